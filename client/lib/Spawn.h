// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <sys/types.h>

#include <string>
#include <vector>

namespace lectern {

// What a spawned program gets as its standard files: a descriptor each, or -1
// for nothing at all (/dev/null).
struct StandardFiles {
    int input = -1;
    int output = -1;
    int error = -1;
};

// Starts a program in a session of its own, so that Ctrl-C in a terminal
// reaches only the program that the user started, and with no signal blocked.
// The caller waits for it. words: the arguments after the program's name.
Result<pid_t> spawn(const std::string& program, const std::vector<std::string>& words,
                    const StandardFiles& files);

// Waits for a child's end; its exit status, or -1 when a signal ended it.
int waitForExit(pid_t child);

} // namespace lectern
