// SPDX-License-Identifier: Apache-2.0
#include "engine/host/EngineTotals.h"

#include "engine/host/EngineSettings.h"

#include <sys/stat.h>

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace lectern::engine {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t MOST_BYTES = std::int64_t{1} << 30;
constexpr int MOST_FILES = 10'000;
constexpr int MOST_THREADS = 512;
constexpr int MOST_FOLDERS_ABOVE = 64; // of a file

struct Files {
    int count = 0;
    std::int64_t bytes = 0;

    bool tooMany() const { return count > MOST_FILES || bytes > MOST_BYTES; }
};

// What it cannot see counts as too many.
void addFilesIn(const std::string& folder, Files& files) {
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, error);
    for (const fs::recursive_directory_iterator end; !error && entry != end; entry.increment(error)) {
        struct stat file {};
        if (lstat(entry->path().c_str(), &file) == 0) {
            files.count++;
            files.bytes += file.st_size;
        }
        if (entry.depth() > MOST_FOLDERS_ABOVE) {
            files.count = MOST_FILES + 1;
        }
        if (files.tooMany()) {
            return;
        }
    }
    // Files may go meanwhile.
    if (error && error != std::errc::no_such_file_or_directory) {
        files.count = MOST_FILES + 1;
    }
}

// Only files of the folder are looked at: the document may be on a device that hangs.
void addRemovedFiles(const std::string& process, const std::string& folder, Files& files) {
    std::error_code error;
    fs::directory_iterator entry(process + "/fd", error);
    for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
        std::error_code closed;
        const std::string place = fs::read_symlink(entry->path(), closed);
        struct stat file {};
        if (place.rfind(folder + "/", 0) == 0 && stat(entry->path().c_str(), &file) == 0 &&
            file.st_nlink == 0) {
            files.count++;
            files.bytes += file.st_size;
        }
    }
}

// The value of a line "NAME: VALUE"; 0 when there is none.
int valueOf(const std::string& path, const std::string& name) {
    std::ifstream lines(path);
    int value = 0;
    for (std::string word; lines >> word;) {
        if (word == name) {
            lines >> value;
            break;
        }
    }
    return value;
}

std::chrono::nanoseconds processorTime(int pid) {
    clockid_t clock = 0;
    timespec used{};
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &used) != 0) {
        return {}; // it ends now
    }
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

} // namespace

bool EngineTotals::spins(int pid, std::uint64_t calls) {
    const std::chrono::nanoseconds used = processorTime(pid);
    if (calls != mCalls) {
        mCalls = calls;
        mProcessorTimeAtCall = used;
    }
    return used - mProcessorTimeAtCall > TimeLimits::betweenCalls();
}

bool EngineTotals::exceed(const EngineProcess& process, std::uint64_t calls) {
    const std::string& folder = process.folder()->path();
    const int pid = valueOf("/proc/self/fdinfo/" + std::to_string(process.pidfd()), "Pid:");
    if (pid < 1) {
        return false; // it has ended
    }
    const std::string information = "/proc/" + std::to_string(pid);
    Files files;
    addFilesIn(folder, files);
    addRemovedFiles(information, folder, files);
    const int threads = valueOf(information + "/status", "Threads:");
    if (files.tooMany()) {
        std::fprintf(stderr, "engine: one is ended: %d files of %lld MiB in its temporary folder\n",
                     files.count, static_cast<long long>(files.bytes >> 20));
    } else if (threads > MOST_THREADS) {
        std::fprintf(stderr, "engine: one is ended: it has %d threads\n", threads);
    } else if (spins(pid, calls)) {
        std::fprintf(stderr, "engine: one is ended: it works without a call\n");
    } else {
        return false;
    }
    return true;
}

} // namespace lectern::engine
