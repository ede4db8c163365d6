// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace lectern {

// A program to start as a child of this process. It starts with no signal blocked,
// with the default action for every signal, and in a session of its own, without
// this process's terminal.
struct ChildProgram {
    std::string path;                                    // not looked up in PATH
    std::vector<std::string> arguments;                  // after the program's name
    std::optional<std::vector<std::string>> environment; // "NAME=value"; none: that of this process
    // Descriptors of this process that become 0, 1, 2 and so on, at least three; -1
    // stands for /dev/null. The child has no others.
    std::vector<int> files{-1, -1, -1};
};

// Starts the program. Returns 0 and the child, which the caller waits for, or an
// errno value. Threads: any.
int spawn(const ChildProgram& program, pid_t& child);

// Waits for a child's end. Returns its exit status, or -1 when a signal ended it.
int waitForExit(pid_t child);

} // namespace lectern
