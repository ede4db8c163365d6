// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::engine {

// Makes the system calls that reach beyond this process fail with EPERM from
// now on; see Sandbox.h. Returns false when the filter cannot be loaded and
// writes the reason to standard error. REQUIRES: no_new_privs is set, and the
// process has one thread.
[[nodiscard]] bool loadSystemCallFilter();

} // namespace lectern::engine
