// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/process/AllowedCalls.h"

#include <vector>

namespace lectern::engine {

// Makes all other system calls fail from now on, in this process and those it forks: with
// EPERM, or with ENOSYS where the C library then makes another call. A filter that is
// there stays, so that a second one can only allow less. Returns false when it cannot be
// loaded, with the reason on standard error. REQUIRES: no_new_privs is set, and the
// process has one thread.
[[nodiscard]] bool allowOnly(const std::vector<AllowedCall>& calls);

} // namespace lectern::engine
