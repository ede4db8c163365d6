// SPDX-License-Identifier: Apache-2.0
#include "engine/process/ForkLoop.h"

#include "engine/process/Lifeline.h"
#include "engine/process/ResourceLimits.h"
#include "engine/process/Sandbox.h"
#include "engine/protocol/ForkMessages.h"
#include "engine/protocol/Inherited.h"

#include <malloc.h>
#include <poll.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

// Older C libraries do not declare this as a C function.
extern "C" {
#include <sys/pidfd.h>
}

namespace lectern::engine {
namespace {

// Names in lists of processes, at most 15 characters.
constexpr const char* FORK_SERVER_NAME = "lectern-forksrv";
constexpr const char* ENGINE_NAME = "lectern-engine";

// The time between two looks whether other threads have ended.
constexpr std::chrono::microseconds THREADS_END(500);

// The pause between an open and preparing later ones: the document that was opened is
// painted first, which needs both processors of a small machine.
constexpr std::chrono::milliseconds BEFORE_PREPARING(500);

timespec toTimespec(std::chrono::microseconds time) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
    return {seconds.count(), std::chrono::nanoseconds(time - seconds).count()};
}

// Threads that the suite starts for a while, to prepare, must have ended before a fork.
bool isSingleThreaded() {
    std::error_code error;
    const auto tasks = std::filesystem::directory_iterator("/proc/self/task", error);
    return std::distance(begin(tasks), end(tasks)) == 1;
}

} // namespace

ForkLoop::ForkLoop(Office& office, int socket, std::string folder)
    : mOffice(office), mRequests(socket), mFolder(std::move(folder)), mReadPaths(office.readPaths()),
      mPause(BEFORE_PREPARING) {
    prctl(PR_SET_NAME, FORK_SERVER_NAME);
    // The service waits for the engines; the kernel removes them from its list.
    (void)std::signal(SIGCHLD, SIG_IGN);
}

void ForkLoop::take(std::chrono::microseconds longest) {
    if (mEngine) {
        mEngine->take(longest);
        return;
    }
    if (!isSingleThreaded()) {
        std::this_thread::sleep_for(std::min(longest, THREADS_END));
        return;
    }
    pollfd requests{mRequests.get(), POLLIN, 0};
    const timespec limit = toTimespec(mPreparing ? mPause : longest);
    const bool hasLimit = mPreparing || longest < Office::FAR_TIMER;
    const int ready = ppoll(&requests, 1, hasLimit ? &limit : nullptr, nullptr);
    if (ready > 0) {
        handleRequest();
    } else if (ready == 0 && mPreparing) {
        mPause = {};
        mPreparing = mOffice.prepareNext();
        malloc_trim(0); // less for engines to copy
    }
}

void ForkLoop::wake() {
    // Only threads wake, and the fork server has none.
    if (mEngine) {
        mEngine->wake();
    }
}

void ForkLoop::handleRequest() {
    Packet request;
    if (!receivePacket(mRequests.get(), request)) {
        hangUp();
    }
    mPause = BEFORE_PREPARING;
    if (request.text[0] == FORK && request.files.size() == 3) {
        forkEngine(std::move(request));
    }
}

void ForkLoop::forkEngine(Packet request) {
    const pid_t child = fork();
    if (child == 0) {
        if (!becomeEngine(std::move(request))) {
            _exit(1);
        }
        return;
    }
    const FileDescriptor pidfd(child > 0 ? pidfd_open(child, 0) : -1);
    if (!pidfd) {
        std::fprintf(stderr, "engine: cannot fork: %s\n", std::strerror(errno));
        (void)sendPacket(mRequests.get(), std::string_view(&FAILED, 1));
        return;
    }
    (void)sendPacket(mRequests.get(), std::string_view(&FORKED, 1), {pidfd.get()});
}

void ForkLoop::hangUp() {
    emptyFolder(mFolder);
    _exit(0);
}

bool ForkLoop::becomeEngine(Packet request) {
    const std::string folder = request.text.substr(1);
    prctl(PR_SET_NAME, ENGINE_NAME);
    (void)std::signal(SIGCHLD, SIG_DFL);
    mRequests.reset();
    if (setsid() < 0 || dup2(request.files[0].get(), ENGINE_SOCKET) < 0) {
        return false;
    }
    request.files[0].reset();
    // The kernel closes the lock with the process.
    (void)request.files[1].release();
    limitEngine();
    if (!confineEngine({folder, request.files[2].get(), mReadPaths}) || !mOffice.useTemporaryFolder(folder)) {
        return false;
    }
    startLifeline(ENGINE_SOCKET, folder);
    mEngine = EngineLoop::connect(ENGINE_SOCKET, mOffice, folder);
    return mEngine != nullptr;
}

} // namespace lectern::engine
