// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace lectern::engine {

// Removes from this process, and from the threads and processes it starts later, the
// rights that starting the suite and forking engines do not need:
//  - privileges: none can be gained, and capabilities are dropped except for
//    reading files;
//  - files: writing and creating only inside `folder` (absolute, existing) and to
//    /dev/null; no program can be executed;
//  - namespaces of their own for the network and System V objects, and for users when
//    the service is not root's, where the system allows them;
//  - system calls: only those on the list in AllowedCalls.cpp.
// Refused calls fail with EPERM, EACCES or ENOSYS. The file rules are missing on a
// kernel without Landlock. Call while the process has one thread. Returns false on
// failure, with the reason on standard error; then the process must end.
[[nodiscard]] bool enterSandbox(const std::string& folder);

struct EngineFiles {
    std::string folder;             // to write to, in that of enterSandbox
    int document = -1;              // a descriptor of the only other file of a user
    std::vector<std::string> suite; // what the suite reads, as Office::readPaths
};

// Removes more from a process in the sandbox, before it opens a document: it reads
// only `files` and the system's libraries and data, writes only inside of its folder,
// makes threads but no processes, and signals none. Call while the process has one
// thread. Returns false on failure, with the reason on standard error; then the process
// must end.
[[nodiscard]] bool confineEngine(const EngineFiles& files);

} // namespace lectern::engine
