// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Each of these makes system calls fail with EPERM from now on, in this process and
// those it forks; see Sandbox.h. They return false when the filter cannot be loaded and
// write the reason to standard error. REQUIRES: no_new_privs is set, and the process has
// one thread.

// Calls that reach beyond this process and those it forks.
[[nodiscard]] bool refuseDangerousCalls();
// Calls that start processes, or reach those that exist, except to signal this one.
[[nodiscard]] bool refuseOtherProcesses();

} // namespace lectern::engine
