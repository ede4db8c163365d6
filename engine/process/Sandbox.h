// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

enum class Confinement {
    Complete,
    NoFileRules, // this kernel has no Landlock; only file permissions apply
    Failed,      // the process must end; the reason is on standard error
};

// Removes from this process, and from the threads and processes it starts later, the
// rights that laying out a document does not need:
//  - privileges: none can be gained, and capabilities are dropped except for
//    reading files;
//  - files: reading as before; writing and creating only inside `folder`
//    (absolute, existing) and to /dev/null; no program can be executed;
//  - network: no socket can be created or connected; a separate, empty network
//    where the kernel allows it;
//  - System V IPC, which is the service's channel to its clients.
// Refused calls fail with EPERM or EACCES. Call while the process has one
// thread.
[[nodiscard]] Confinement enterSandbox(const std::string& folder);

// Removes more from a process in the sandbox, before it opens a document: it can make
// no children and send no signals to others, and writes only inside `folder`, a folder
// in that of the sandbox. Call while the process has one thread. Returns false on
// failure, with the reason on standard error; then the process must end.
[[nodiscard]] bool confineEngine(const std::string& folder);

} // namespace lectern::engine
