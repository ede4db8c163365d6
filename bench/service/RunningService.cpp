// SPDX-License-Identifier: Apache-2.0
#include "bench/service/RunningService.h"

#include "tests/system/support/Python.h"

#include <signal.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

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

std::vector<pid_t> RunningService::engines() const {
    std::vector<pid_t> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const pid_t candidate = std::atoi(entry.path().filename().c_str());
        const std::string stat = candidate > 0 ? readFile(entry.path().string() + "/stat") : "";
        const size_t close = stat.rfind(')');
        if (close != std::string::npos && std::atoi(stat.c_str() + close + 4) == mService->pid()) {
            found.push_back(candidate);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

// A spare engine is ready when the newest engine has used no processor time for
// 15 checks, which are 20 ms apart.
void RunningService::waitForSpare(size_t used) const {
    std::string last;
    for (int quiet = 0, tries = 0; quiet < 15 && tries < 1000; ++tries) {
        usleep(20000);
        const std::vector<pid_t> all = engines();
        std::string ticks;
        if (all.size() > used) {
            const std::string stat = readFile("/proc/" + std::to_string(all.back()) + "/schedstat");
            ticks = stat.substr(0, stat.find(' '));
        }
        quiet = !ticks.empty() && ticks == last ? quiet + 1 : 0;
        last = ticks;
    }
}

double quantile(std::vector<double> values, double q) {
    std::sort(values.begin(), values.end());
    return values[static_cast<size_t>(q * static_cast<double>(values.size() - 1) + 0.5)];
}

std::string longWorkbook(const TemporaryFolder& folder, int rows) {
    std::string path = folder.path() + "/" + std::to_string(rows) + ".xlsx";
    python({std::string(SAMPLES_FOLDER) + "/make_xlsx.py", "long", std::to_string(rows), path});
    return path;
}

std::string longDocument(const TemporaryFolder& folder, int pages, const std::string& word, int hits) {
    std::string path = folder.path() + "/" + std::to_string(pages) + "-" + std::to_string(hits) + ".docx";
    std::vector<std::string> command{std::string(SAMPLES_FOLDER) + "/make_long_docx.py",
                                     std::to_string(pages), path};
    if (hits > 0) {
        command.insert(command.end(), {word, std::to_string(hits)});
    }
    python(command);
    return path;
}

double now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_nsec) / 1e6;
}
