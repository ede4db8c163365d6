// SPDX-License-Identifier: Apache-2.0
#include "bench/service/RunningService.h"

#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

namespace {

// The parent of each process of the machine.
std::map<pid_t, pid_t> parents() {
    std::map<pid_t, pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t process = std::atoi(entry.path().filename().c_str());
        const std::string stat = process > 0 ? readFile(entry.path().string() + "/stat") : "";
        // PID (name) state parent; the name may contain anything.
        const size_t close = stat.rfind(')');
        if (close != std::string::npos) {
            found[process] = std::atoi(stat.c_str() + close + 4);
        }
    }
    return found;
}

// The processor time that the processes have used, in nanoseconds.
long long work(const std::vector<pid_t>& processes) {
    long long used = 0;
    for (const pid_t process : processes) {
        std::error_code ended;
        for (std::filesystem::directory_iterator task("/proc/" + std::to_string(process) + "/task", ended),
             end;
             !ended && task != end; task.increment(ended)) {
            used += std::atoll(readFile(task->path().string() + "/schedstat").c_str());
        }
    }
    return used;
}

} // namespace

std::vector<std::string> threadsOf(pid_t process) {
    std::vector<std::string> found;
    std::error_code ended;
    const std::filesystem::directory_iterator threads("/proc/" + std::to_string(process) + "/task", ended);
    for (auto thread = begin(threads); !ended && thread != end(threads); thread.increment(ended)) {
        found.push_back(thread->path());
    }
    return found;
}

RunningService::RunningService() : mBus(mFolder.path()) {
    mService = std::make_unique<Subprocess>(
        std::vector<std::string>{SERVICE_PROGRAM},
        std::map<std::string, std::string>{{"DBUS_SESSION_BUS_ADDRESS", mBus.address()}},
        mFolder.path() + "/service");
    mClient = std::make_unique<BusConnection>(mBus.address());
    if (!mClient->waitForService(20000)) {
        throw std::runtime_error("the service does not start: " + mService->errors());
    }
    mQueue = std::make_unique<Queue>();
}

RunningService::~RunningService() {
    mService->signal(SIGTERM);
    mService->wait(std::chrono::seconds(20));
}

std::vector<pid_t> RunningService::processes() const {
    const std::map<pid_t, pid_t> parentOf = parents();
    std::vector<pid_t> found{mService->pid()};
    for (size_t i = 0; i < found.size(); ++i) {
        for (const auto& [process, parent] : parentOf) {
            if (parent == found[i]) {
                found.push_back(process);
            }
        }
    }
    return found;
}

// Quiet is: for 50 checks, which are 20 ms apart, the processes have used less than a
// millisecond each between two. The suite's timers use less; the fork server waits half
// as long before it prepares. Calls in between keep the service from stopping.
void RunningService::waitUntilQuiet() const {
    constexpr long long MOST_WORK = 1'000'000;
    constexpr int CHECK_MS = 20;
    constexpr int QUIET_CHECKS = 50;
    constexpr int CHECKS_BETWEEN_CALLS = 500; // 10 s; the service stops 30 s after the last one
    constexpr int MOST_CHECKS = 6000;         // two minutes: a thousand pages are laid out at rest
    const auto most = MOST_WORK * static_cast<long long>(processes().size());
    long long last = work(processes());
    for (int quiet = 0, tries = 0; quiet < QUIET_CHECKS; ++tries) {
        if (tries > MOST_CHECKS) {
            throw std::runtime_error("the service does not come to rest");
        }
        if (tries % CHECKS_BETWEEN_CALLS == CHECKS_BETWEEN_CALLS - 1) {
            mClient->call("/events", "ping", "{}", CHECK_MS); // without a reply
        } else {
            usleep(CHECK_MS * 1000);
        }
        const long long used = work(processes());
        quiet = used - last < most ? quiet + 1 : 0;
        last = used;
    }
}
