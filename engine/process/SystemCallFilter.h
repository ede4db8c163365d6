// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/process/AllowedCalls.h"

#include <vector>

namespace lectern::engine {

// These make system calls fail from now on, in this process and those it forks: with
// EPERM, or with ENOSYS where the C library then makes another call. They return false
// when that is not possible, with the reason on standard error. REQUIRES: no_new_privs is
// set, and the process has one thread.

// All others fail.
[[nodiscard]] bool allowOnly(const std::vector<SystemCall>& calls);
// These fail, too. Takes less time.
[[nodiscard]] bool refuse(const std::vector<SystemCall>& calls);

} // namespace lectern::engine
