// SPDX-License-Identifier: Apache-2.0
#include "base/Spawn.h"

#include "base/FileDescriptor.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace lectern {
namespace {

struct Attributes {
    Attributes() {
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setflags(&attributes, static_cast<short>(POSIX_SPAWN_SETSIGMASK |
                                                                 POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID));
    }
    ~Attributes() { posix_spawnattr_destroy(&attributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    posix_spawnattr_t attributes{};
};

class FileActions {
public:
    FileActions() { posix_spawn_file_actions_init(&mActions); }
    ~FileActions() { posix_spawn_file_actions_destroy(&mActions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;

    const posix_spawn_file_actions_t* get() const { return &mActions; }

    // 0 or an errno value. Each descriptor is duplicated above the numbers that the
    // child uses first, so that moving one into its place never overwrites another.
    int add(const std::vector<int>& files) {
        const int count = static_cast<int>(files.size());
        for (int number = 0; number < count; ++number) {
            const int file = files[static_cast<size_t>(number)];
            int error = 0;
            if (file < 0) {
                error = posix_spawn_file_actions_addopen(&mActions, number, "/dev/null", O_RDWR, 0);
            } else {
                const auto& copy = mCopies.emplace_back(fcntl(file, F_DUPFD_CLOEXEC, count));
                error = copy ? posix_spawn_file_actions_adddup2(&mActions, copy.get(), number) : errno;
            }
            if (error != 0) {
                return error;
            }
        }
        return posix_spawn_file_actions_addclosefrom_np(&mActions, count);
    }

private:
    posix_spawn_file_actions_t mActions{};
    std::vector<FileDescriptor> mCopies; // until the child has them
};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

int spawn(const ChildProgram& program, pid_t& child) {
    FileActions files;
    if (const int error = files.add(program.files); error != 0) {
        return error;
    }
    const Attributes attributes;
    std::vector<std::string> words{program.path};
    words.insert(words.end(), program.arguments.begin(), program.arguments.end());
    std::vector<std::string> variables = program.environment.value_or(std::vector<std::string>());
    return posix_spawn(&child, program.path.c_str(), files.get(), &attributes.attributes,
                       pointersTo(words).data(),
                       program.environment ? pointersTo(variables).data() : environ);
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
