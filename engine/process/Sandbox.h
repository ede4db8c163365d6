// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

enum class Confinement {
    Complete,
    NoFileRules, // this kernel has no Landlock; only file permissions apply
    Failed,      // the process must end; the reason is on standard error
};

// Removes from this process, and from the threads it starts later, the rights
// that laying out a document does not need:
//  - privileges: none can be gained, and capabilities are dropped except for
//    reading files;
//  - files: reading as before; writing and creating only inside `folder`
//    (absolute, existing) and to /dev/null; no program can be executed;
//  - network: no socket can be created or connected; a separate, empty network
//    where the kernel allows it;
//  - other processes: no children, no signals, no tracing, and no System V IPC,
//    which is the service's channel to its clients.
// Refused calls fail with EPERM or EACCES. Call while the process has one
// thread.
[[nodiscard]] Confinement enterSandbox(const std::string& folder);

} // namespace lectern::engine
