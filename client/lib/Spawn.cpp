// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Spawn.h"

#include "client/lib/Errors.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace lectern {

namespace {

class FileActions {
public:
    explicit FileActions(const StandardFiles& files) {
        posix_spawn_file_actions_init(&mActions);
        give(files.input, STDIN_FILENO);
        give(files.output, STDOUT_FILENO);
        give(files.error, STDERR_FILENO);
    }
    ~FileActions() { posix_spawn_file_actions_destroy(&mActions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &mActions; }

private:
    void give(int descriptor, int place) {
        if (descriptor >= 0) {
            posix_spawn_file_actions_adddup2(&mActions, descriptor, place);
        } else {
            posix_spawn_file_actions_addopen(&mActions, place, "/dev/null", O_RDWR, 0);
        }
    }

    posix_spawn_file_actions_t mActions{};
};

class Attributes {
public:
    Attributes() {
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_init(&mAttributes);
        posix_spawnattr_setsigmask(&mAttributes, &none);
        posix_spawnattr_setflags(&mAttributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK);
    }
    ~Attributes() { posix_spawnattr_destroy(&mAttributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    const posix_spawnattr_t* get() const { return &mAttributes; }

private:
    posix_spawnattr_t mAttributes{};
};

} // namespace

Result<pid_t> spawn(const std::string& program, const std::vector<std::string>& words,
                    const StandardFiles& files) {
    std::vector<std::string> texts{program};
    texts.insert(texts.end(), words.begin(), words.end());
    std::vector<char*> arguments;
    arguments.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        arguments.push_back(text.data());
    }
    arguments.push_back(nullptr);
    pid_t child = -1;
    const int failure = posix_spawn(&child, program.c_str(), FileActions(files).get(), Attributes().get(),
                                    arguments.data(), environ);
    if (failure != 0) {
        return systemError("cannot start " + program, failure);
    }
    return child;
}

int waitForExit(pid_t child) {
    int status = -1;
    while (waitpid(child, &status, 0) == -1) {
        if (errno != EINTR) {
            return -1;
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace lectern
