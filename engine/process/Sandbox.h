// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace lectern::engine {

enum class Confinement {
    Complete,
    NoFileRules, // this kernel has no Landlock: file permissions alone hold
    Failed,      // the process must not go on; the reason is on standard error
};

// Takes from this process, and from every thread it starts later, what laying
// out a document does not need:
//  - privileges: none are gained any more, and capabilities are dropped but
//    for reading files;
//  - files: reading as before, writing and making only inside `folder`
//    (absolute, existing) and to /dev/null, no program is executed;
//  - the network: no sockets are made, none connected; an empty network of
//    its own where the kernel lets it;
//  - other processes: no children, no signals, no tracing, no System V IPC,
//    which is the service's channel to its clients.
// Refused calls fail with EPERM or EACCES. Call while there is one thread.
[[nodiscard]] Confinement enterSandbox(const std::string& folder);

} // namespace lectern::engine
