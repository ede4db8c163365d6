// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"
#include "engine/host/DocumentFile.h"
#include "engine/host/Engine.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/Export.h"
#include "engine/host/ForkServer.h"
#include "engine/host/Watchdog.h"

#include <cstdint>
#include <memory>

namespace lectern::engine {

// Hands out engines for documents of all kinds. They are forked from one fork server,
// which is started when it is first needed and again when it has ended. When the
// process exits, the fork server and the engines are ended.
//
// Any thread may call any function.
class LECTERN_ENGINE_EXPORT Supervisor {
public:
    // Created on first use, never destroyed.
    static Supervisor& instance();
    Supervisor(const Supervisor&) = delete;
    Supervisor& operator=(const Supervisor&) = delete;

    // Returns a new engine that can open this document, or null as Engine::start does.
    std::unique_ptr<Engine> take(const LaunchSettings& settings, const DocumentFile& document,
                                 TimePoint deadline, std::int32_t& result);

    // Starts a fork server with these settings unless there is one, for later opens.
    // Returns at once.
    void prepare(const LaunchSettings& settings);

    // Call before the process stops: calls, including running ones, get at most
    // two more seconds, and no more engines are started.
    void stopSoon();

    bool isStopping();

    Watchdog& watchdog() { return mWatchdog; }

private:
    Supervisor();
    // The fork server with these settings; a new one if need be, or null when that fails.
    std::shared_ptr<ForkServer> serverFor(const LaunchSettings& settings, bool& isNew);
    // Ends a fork server that does not work.
    void giveUp(std::shared_ptr<ForkServer> server);

    Watchdog mWatchdog;
    Mutex mMutex;
    std::shared_ptr<ForkServer> mServer GUARDED_BY(mMutex); // the last one started, or null
    bool mStopping GUARDED_BY(mMutex) = false;
};

} // namespace lectern::engine
