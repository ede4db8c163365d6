// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Refuses with EPERM, for the rest of this process, the system calls that
// reach beyond it; see Sandbox.h. False when the filter cannot be loaded; the
// reason goes to standard error. Needs no_new_privs, and one thread.
[[nodiscard]] bool loadSystemCallFilter();

} // namespace lectern::engine
