// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>

#include <sys/types.h>

#include <string>
#include <vector>

namespace lectern {

// The standard files of a spawned program: a descriptor each, or -1 for /dev/null.
struct StandardFiles {
    int input = -1;
    int output = -1;
    int error = -1;
};

// Starts a program in its own session, so that Ctrl-C in a terminal does not
// reach it, and with no signals blocked. words: the arguments after the
// program's name. The caller must wait for the child.
Result<pid_t> spawn(const std::string& program, const std::vector<std::string>& words,
                    const StandardFiles& files);

// Waits for a child's end; returns its exit status, or -1 when a signal ended it.
int waitForExit(pid_t child);

} // namespace lectern
