// SPDX-License-Identifier: Apache-2.0
#include "engine/host/ForkServer.h"

#include "base/Packet.h"
#include "engine/host/SandboxPolicy.h"
#include "engine/protocol/ForkMessages.h"
#include "modules/ModuleResults.h"

#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <utility>

namespace lectern::engine {
namespace {

// A fork takes milliseconds, a step of preparing up to 0.2 s.
constexpr std::chrono::seconds ANSWER_LIMIT(2);

} // namespace

std::unique_ptr<ForkServer> ForkServer::start(const LaunchSettings& settings, Watchdog& watchdog) {
    std::unique_ptr<EngineProcess> process = sandboxSuffices() ? EngineProcess::spawn(settings) : nullptr;
    if (!process) {
        return nullptr;
    }
    FileDescriptor socket = process->takeSocket();
    const std::shared_ptr<TemporaryFolder> folder = process->folder();
    return std::unique_ptr<ForkServer>(
        new ForkServer(settings, watchdog, std::move(socket), folder, watchdog.watch(std::move(process))));
}

ForkServer::ForkServer(const LaunchSettings& settings, Watchdog& watchdog, FileDescriptor socket,
                       const std::shared_ptr<TemporaryFolder>& folder, Watchdog::Handle handle)
    : mSettings(settings), mWatchdog(watchdog), mFolder(folder), mHandle(std::move(handle)),
      mSocket(std::move(socket)) {}

ForkServer::~ForkServer() {
    mWatchdog.kill(mHandle);
    mWatchdog.end(mHandle, std::chrono::milliseconds(0));
}

bool ForkServer::isAlive() const {
    return mWatchdog.isAlive(mHandle);
}

std::unique_ptr<EngineProcess> ForkServer::fork(int document, TimePoint deadline, std::int32_t& result) {
    result = MODULE_NO_ENGINE;
    std::shared_ptr<TemporaryFolder> outer = mFolder.lock();
    std::unique_ptr<TemporaryFolder> folder = outer ? TemporaryFolder::make(outer->path()) : nullptr;
    int ends[2];
    if (!folder || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        std::fprintf(stderr, "engine: cannot start one: %s\n", std::strerror(errno));
        return nullptr;
    }
    FileDescriptor ours(ends[0]);
    const FileDescriptor theirs(ends[1]);
    FileDescriptor pidfd = request(*folder, theirs.get(), document, deadline, result);
    if (!pidfd) {
        return nullptr;
    }
    result = MODULE_OK;
    return std::make_unique<EngineProcess>(std::move(pidfd), std::move(ours), std::move(folder),
                                           std::move(outer));
}

FileDescriptor ForkServer::request(const TemporaryFolder& folder, int socket, int document,
                                   TimePoint deadline, std::int32_t& result) {
    const Lock lock(mMutex);
    mWatchdog.setDeadline(mHandle, mHasAnswered ? std::min(deadline, Clock::now() + ANSWER_LIMIT) : deadline);
    Packet answer;
    const bool answered =
        sendPacket(mSocket.get(), FORK + folder.path(), {socket, folder.lock(), document}) &&
        receivePacket(mSocket.get(), answer) && answer.files.size() == 1;
    const bool expired = mWatchdog.liftDeadline(mHandle);
    mHasAnswered = mHasAnswered || answered;
    if (!answered || expired) {
        result = expired && Clock::now() >= deadline ? MODULE_TIMED_OUT : MODULE_NO_ENGINE;
        return {};
    }
    return std::move(answer.files[0]);
}

} // namespace lectern::engine
