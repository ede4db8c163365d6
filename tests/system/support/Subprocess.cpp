// SPDX-License-Identifier: Apache-2.0
#include "tests/system/support/Subprocess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

extern char** environ;

namespace {

std::vector<std::string> mergedEnvironment(const std::map<std::string, std::string>& additions) {
    std::vector<std::string> merged;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        if (additions.count(text.substr(0, text.find('='))) == 0) {
            merged.push_back(text);
        }
    }
    for (const auto& [name, value] : additions) {
        merged.push_back(name + "=" + value);
    }
    return merged;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

} // namespace

Subprocess::Subprocess(std::vector<std::string> argv, const std::map<std::string, std::string>& environment,
                       const std::string& outputPrefix)
    : mOutputPrefix(outputPrefix) {
    std::vector<std::string> merged = mergedEnvironment(environment);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    constexpr int FLAGS = O_WRONLY | O_CREAT | O_APPEND;
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, (outputPrefix + ".out").c_str(), FLAGS, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, (outputPrefix + ".err").c_str(), FLAGS, 0600);
    const int failure = posix_spawnp(&mPid, argv[0].c_str(), &actions, nullptr, pointers(argv).data(),
                                     pointers(merged).data());
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        throw std::runtime_error("cannot start " + argv[0]);
    }
    mPidFd = static_cast<int>(syscall(SYS_pidfd_open, mPid, 0));
}

Subprocess::~Subprocess() {
    if (!mStatus) {
        kill(mPid, SIGKILL);
        wait(std::chrono::seconds(10));
    }
    close(mPidFd);
}

void Subprocess::signal(int number) const {
    kill(mPid, number);
}

std::optional<int> Subprocess::wait(std::chrono::milliseconds limit) {
    if (!mStatus) {
        pollfd ended{mPidFd, POLLIN, 0};
        if (poll(&ended, 1, static_cast<int>(limit.count())) == 1) {
            int status = 0;
            waitpid(mPid, &status, 0);
            mStatus = status;
        }
    }
    return mStatus;
}

std::string Subprocess::output() const {
    return readFile(mOutputPrefix + ".out");
}
std::string Subprocess::errors() const {
    return readFile(mOutputPrefix + ".err");
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

TemporaryFolder::TemporaryFolder() {
    std::string path = std::filesystem::temp_directory_path() / "lectern-test-XXXXXX";
    if (mkdtemp(path.data()) == nullptr) {
        throw std::runtime_error("cannot make a temporary folder");
    }
    mPath = path;
}

TemporaryFolder::~TemporaryFolder() {
    // A process that is ending may still write to the folder.
    constexpr int ATTEMPTS = 100;
    std::error_code error;
    for (int i = 0; i < ATTEMPTS; ++i) {
        std::filesystem::remove_all(mPath, error);
        if (!error) {
            return;
        }
    }
}
