// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

// A child process of a test; its output goes to files. Killed and reaped on destruction.
class Subprocess {
public:
    // Starts argv[0] (found on PATH) with these additions to the environment.
    // Output goes to outputPrefix + ".out" and ".err".
    Subprocess(std::vector<std::string> argv, const std::map<std::string, std::string>& environment,
               const std::string& outputPrefix);
    ~Subprocess();
    Subprocess(const Subprocess&) = delete;
    Subprocess& operator=(const Subprocess&) = delete;

    pid_t pid() const { return mPid; }
    void signal(int number) const;
    // Waits for the process; returns its wait status, or nothing when it still
    // runs after the time.
    std::optional<int> wait(std::chrono::milliseconds limit);
    std::string output() const;
    std::string errors() const;

private:
    pid_t mPid = -1;
    int mPidFd = -1;
    std::optional<int> mStatus;
    std::string mOutputPrefix;
};

// The contents of a file; empty when there is none.
std::string readFile(const std::string& path);

// A folder that is removed with its contents.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};
