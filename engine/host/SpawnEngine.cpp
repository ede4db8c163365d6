// SPDX-License-Identifier: Apache-2.0
#include "engine/host/SpawnEngine.h"

#include "base/FileDescriptor.h"
#include "engine/protocol/Inherited.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

namespace lectern::engine {
namespace {

// The engine's environment. With it the suite finds no display, no bus and no
// files of the user, and its output does not depend on the service's user.
std::vector<std::string> environmentIn(const std::string& folder) {
    std::vector<std::string> environment = {
        "PATH=/usr/bin:/bin",
        "LANG=C.UTF-8",
        "LC_ALL=C.UTF-8",
        "HOME=" + folder,
        "TMPDIR=" + folder,
        "XDG_CACHE_HOME=" + folder,
        "XDG_CONFIG_HOME=" + folder,
        "SAL_USE_VCLPLUGIN=svp",
        "SAL_DISABLE_OPENCL=1",
        "OOO_DISABLE_RECOVERY=1",
        // Media plug-ins crash on hostile files, and nothing is played.
        "GST_PLUGIN_SYSTEM_PATH_1_0=/nonexistent",
        "GST_REGISTRY=" + folder + "/gst-registry",
    };
    constexpr const char* PASSED_ON[] = {"TZ", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS",
                                         "TSAN_OPTIONS"};
    for (const char* name : PASSED_ON) {
        if (const char* value = std::getenv(name)) {
            environment.push_back(std::string(name) + "=" + value);
        }
    }
    return environment;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

// Duplicates a descriptor to a number above those that the new process uses, so
// that moving one descriptor into place never overwrites another.
FileDescriptor clearOfTargets(int fd) {
    return FileDescriptor(fcntl(fd, F_DUPFD_CLOEXEC, std::max(ENGINE_SOCKET, ENGINE_FOLDER) + 1));
}

struct FileActions {
    FileActions() { posix_spawn_file_actions_init(&actions); }
    ~FileActions() { posix_spawn_file_actions_destroy(&actions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    posix_spawn_file_actions_t actions;
};

struct Attributes {
    Attributes() {
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setpgroup(&attributes, 0);
        posix_spawnattr_setflags(&attributes,
                                 POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    ~Attributes() { posix_spawnattr_destroy(&attributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    posix_spawnattr_t attributes;
};

int addFiles(FileActions& files, bool verbose, int socket, int folder) {
    posix_spawn_file_actions_t* actions = &files.actions;
    int error = posix_spawn_file_actions_addopen(actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    if (!verbose) {
        error |= posix_spawn_file_actions_addopen(actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        error |= posix_spawn_file_actions_addopen(actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
    error |= posix_spawn_file_actions_adddup2(actions, socket, ENGINE_SOCKET);
    error |= posix_spawn_file_actions_adddup2(actions, folder, ENGINE_FOLDER);
    error |= posix_spawn_file_actions_addclosefrom_np(actions, ENGINE_FOLDER + 1);
    return error == 0 ? 0 : ENOMEM;
}

} // namespace

int spawnEngine(const LaunchSettings& settings, const TemporaryFolder& folder, int socket, pid_t& pid) {
    const FileDescriptor theirSocket = clearOfTargets(socket);
    const FileDescriptor theirFolder = clearOfTargets(folder.lock());
    if (!theirSocket || !theirFolder) {
        return EMFILE;
    }
    FileActions files;
    if (const int error = addFiles(files, settings.verbose, theirSocket.get(), theirFolder.get());
        error != 0) {
        return error;
    }
    const Attributes attributes;
    std::vector<std::string> arguments = {settings.program, folder.path()};
    std::vector<std::string> environment = environmentIn(folder.path());
    return posix_spawn(&pid, settings.program.c_str(), &files.actions, &attributes.attributes,
                       pointersTo(arguments).data(), pointersTo(environment).data());
}

} // namespace lectern::engine
