// SPDX-License-Identifier: Apache-2.0
#include "engine/host/EngineProcess.h"

#include "engine/host/SpawnEngine.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <utility>

// Older C libraries do not declare these as C functions.
extern "C" {
#include <sys/pidfd.h>
}

namespace lectern::engine {
namespace {

std::nullptr_t refuse(const char* what, const std::string& name, int error) {
    std::fprintf(stderr, "engine: %s %s: %s\n", what, name.c_str(), std::strerror(error));
    return nullptr;
}

} // namespace

std::unique_ptr<EngineProcess> EngineProcess::spawn(const LaunchSettings& settings) {
    std::unique_ptr<TemporaryFolder> folder = TemporaryFolder::make(settings.temporaryParent);
    if (!folder) {
        return refuse("no temporary folder in", settings.temporaryParent, errno);
    }
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) {
        return refuse("no connection for", settings.program, errno);
    }
    FileDescriptor ours(ends[0]);
    const FileDescriptor theirs(ends[1]);
    pid_t pid = 0;
    if (const int error = spawnEngine(settings, *folder, theirs.get(), pid); error != 0) {
        return refuse("cannot start", settings.program, error);
    }
    FileDescriptor pidfd(pidfd_open(pid, 0));
    if (!pidfd) {
        // Too few descriptors, or a host that ignores SIGCHLD. Only here is the
        // pid certain to denote this child or no process.
        const int error = errno;
        ::kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
        return refuse("cannot watch", settings.program, error);
    }
    return std::make_unique<EngineProcess>(std::move(pidfd), std::move(ours), std::move(folder), nullptr);
}

EngineProcess::EngineProcess(FileDescriptor pidfd, FileDescriptor socket,
                             std::unique_ptr<TemporaryFolder> folder,
                             std::shared_ptr<TemporaryFolder> outerFolder)
    : mPidfd(std::move(pidfd)), mSocket(std::move(socket)), mHangUp(fcntl(mSocket.get(), F_DUPFD_CLOEXEC, 0)),
      mOuterFolder(std::move(outerFolder)), mFolder(std::move(folder)) {}

EngineProcess::~EngineProcess() {
    kill();
    pollfd end{mPidfd.get(), POLLIN, 0};
    while (poll(&end, 1, -1) < 0 && errno == EINTR) {
    }
    // An engine is the fork server's child, and there is nothing to wait for.
    siginfo_t info{};
    while (waitid(P_PIDFD, static_cast<id_t>(mPidfd.get()), &info, WEXITED) != 0 && errno == EINTR) {
    }
}

FileDescriptor EngineProcess::takeSocket() {
    return std::move(mSocket);
}

bool EngineProcess::hasEnded() const {
    pollfd end{mPidfd.get(), POLLIN, 0};
    return poll(&end, 1, 0) > 0;
}

void EngineProcess::hangUp() {
    shutdown(mHangUp.get(), SHUT_RDWR);
}

void EngineProcess::kill() {
    (void)pidfd_send_signal(mPidfd.get(), SIGKILL, nullptr, 0);
    hangUp();
}

} // namespace lectern::engine
