// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "base/Mutex.h"
#include "engine/host/EngineProcess.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/Watchdog.h"

#include <cstdint>
#include <memory>

namespace lectern::engine {

// The process from which engines with the same settings are forked: it has started the
// suite, so that an engine need not. It never sees a document.
//
// Any thread may call any function.
class ForkServer {
public:
    // Starts the process; its suite is ready later. Returns null on failure, with the
    // reason on standard error. `watchdog` must outlive the fork server.
    static std::unique_ptr<ForkServer> start(const LaunchSettings& settings, Watchdog& watchdog);
    // Ends the process; engines live on. Returns when it has ended.
    ~ForkServer();
    ForkServer(const ForkServer&) = delete;
    ForkServer& operator=(const ForkServer&) = delete;

    const LaunchSettings& settings() const { return mSettings; }
    bool isAlive() const;

    // Forks an engine for a document, which is open and stays the caller's; waits until
    // the suite is ready. A fork server that does not answer by the deadline is killed;
    // one that has answered before gets two seconds at most. On failure returns null,
    // with MODULE_NO_ENGINE or MODULE_TIMED_OUT in `result`.
    std::unique_ptr<EngineProcess> fork(int document, TimePoint deadline, std::int32_t& result);

private:
    ForkServer(const LaunchSettings& settings, Watchdog& watchdog, FileDescriptor socket,
               const std::shared_ptr<TemporaryFolder>& folder, Watchdog::Handle handle);
    // Asks for an engine; returns its pidfd, or none.
    FileDescriptor request(const TemporaryFolder& folder, int socket, int document, TimePoint deadline,
                           std::int32_t& result);

    const LaunchSettings mSettings;
    Watchdog& mWatchdog;
    const std::weak_ptr<TemporaryFolder> mFolder; // goes with the process and its engines
    const Watchdog::Handle mHandle;
    Mutex mMutex; // held from a request to its answer
    FileDescriptor mSocket GUARDED_BY(mMutex);
    bool mHasAnswered GUARDED_BY(mMutex) = false;
};

} // namespace lectern::engine
