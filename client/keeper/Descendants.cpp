// SPDX-License-Identifier: Apache-2.0
#include "client/keeper/Descendants.h"

#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace lectern {

namespace {

using Clock = std::chrono::steady_clock;

// Signals are not lost, but a process can be reparented to this one without a signal.
constexpr std::chrono::milliseconds LOOK_AGAIN{50};

// Reads the parent's pid from /proc/PID/stat: "PID (name) state parent ...".
// The name may contain spaces and parentheses.
pid_t parentOf(const std::filesystem::path& process) {
    std::ifstream file(process / "stat");
    std::string line;
    std::getline(file, line);
    const size_t nameEnd = line.rfind(')');
    if (nameEnd == std::string::npos || line.size() < nameEnd + 5) {
        return -1;
    }
    pid_t parent = -1;
    std::from_chars(line.data() + nameEnd + 4, line.data() + line.size(), parent);
    return parent;
}

std::vector<pid_t> children() {
    std::vector<pid_t> found;
    std::error_code failure;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", failure)) {
        const std::string name = entry.path().filename();
        pid_t process = 0;
        const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), process);
        if (error == std::errc() && stop == name.data() + name.size() && parentOf(entry.path()) == getpid()) {
            found.push_back(process);
        }
    }
    return found;
}

// Reaps all ended children; returns false when there are no children left.
bool reap() {
    pid_t gone = 0;
    do {
        gone = waitpid(-1, nullptr, WNOHANG);
    } while (gone > 0);
    return gone == 0;
}

void waitForChange(std::chrono::milliseconds longest) {
    sigset_t childEnded;
    sigemptyset(&childEnded);
    sigaddset(&childEnded, SIGCHLD);
    const timespec limit{0, std::chrono::nanoseconds(longest).count()};
    sigtimedwait(&childEnded, nullptr, &limit);
}

} // namespace

void endDescendants(std::chrono::milliseconds patience) {
    const Clock::time_point deadline = Clock::now() + patience;
    std::set<pid_t> asked;
    while (reap()) {
        const bool insist = Clock::now() >= deadline;
        for (const pid_t child : children()) {
            if (insist) {
                kill(child, SIGKILL);
            } else if (asked.insert(child).second) {
                kill(child, SIGTERM);
            }
        }
        waitForChange(LOOK_AGAIN);
    }
}

} // namespace lectern
