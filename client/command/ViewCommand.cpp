// SPDX-License-Identifier: Apache-2.0
// The sub-command that starts the viewer, a program of its own, because it needs a toolkit
// that the command does without.
#include "client/command/CommandLine.h"
#include "client/command/Commands.h"
#include "client/lib/Programs.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace lectern {

Parsed<WindowArguments> parseView(const Words& words) {
    CommandLine line("view", {}, "Shows documents in windows.", "[FILE...]");
    line.acceptMore();
    if (auto refusal = line.parse(words, {})) {
        return asParsed<WindowArguments>(std::move(*refusal));
    }
    WindowArguments arguments{line.operands()};
    if (std::count(arguments.files.begin(), arguments.files.end(), "-") > 0) {
        return Misuse{"'-' is not a file; the viewer does not read standard input"};
    }
    return arguments;
}

int runView(const WindowArguments& arguments, Interrupt& /*unused: the viewer handles signals*/) {
    const std::string viewer = findProgram("lectern-view", "LECTERN_VIEWER");
    if (viewer.empty()) {
        return report(Error{Error::Kind::System,
                            "the viewer is not installed; install the program lectern-view, or build it with "
                            "'cmake --preset viewer' (option LECTERN_WITH_GTK)",
                            0,
                            {}});
    }
    std::vector<const char*> words = {viewer.c_str(), "--"};
    for (const std::string& file : arguments.files) {
        words.push_back(file.c_str());
    }
    words.push_back(nullptr);
    execv(viewer.c_str(), const_cast<char* const*>(words.data()));
    return report(Error{Error::Kind::System, viewer + " cannot be started: " + std::strerror(errno), 0, {}});
}

} // namespace lectern
