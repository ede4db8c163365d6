// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"
#include "engine/host/Engine.h"
#include "engine/host/EngineSettings.h"
#include "engine/host/Export.h"
#include "engine/host/Watchdog.h"

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <optional>
#include <thread>

namespace lectern::engine {

// Starts engines for the documents of this process, of whatever kind, and
// keeps one spare that is ready to open, so that an open costs only the load.
// The spare is started after an open, in the background. When the process
// exits, the engines that are left are ended with it.
//
// Every function may be called by any thread.
class LECTERN_ENGINE_EXPORT Supervisor {
public:
    // Made on first use, never destroyed.
    static Supervisor& instance();
    Supervisor(const Supervisor&) = delete;
    Supervisor& operator=(const Supervisor&) = delete;

    // The spare, or the one that is being started, when it was started with
    // these settings; else a new engine. Null as for Engine::start.
    std::unique_ptr<Engine> take(const LaunchSettings& settings, TimePoint deadline, std::int32_t& result);

    // Sees to it that there is a spare with these settings, which may take as
    // long as `limit`. Returns at once.
    void prepareSpare(const LaunchSettings& settings, std::chrono::milliseconds limit);

    // The process is about to stop: calls, running ones too, get at most two
    // more seconds, and no spare is started any more.
    void stopSoon();

    Watchdog& watchdog() { return mWatchdog; }

private:
    struct SpareOrder {
        LaunchSettings settings;
        std::chrono::milliseconds limit;
    };

    Supervisor();
    void run();
    std::unique_ptr<Engine> takeSpare(const LaunchSettings& settings, TimePoint deadline);

    Watchdog mWatchdog;
    Mutex mMutex;
    std::condition_variable_any mChanged;
    std::optional<SpareOrder> mOrder GUARDED_BY(mMutex); // being started; empty when nothing is
    std::unique_ptr<Engine> mSpare GUARDED_BY(mMutex);   // ready, or dead meanwhile, or null
    LaunchSettings mSpareSettings GUARDED_BY(mMutex);    // of mSpare
    bool mStopping GUARDED_BY(mMutex) = false;
    std::thread mThread;
};

} // namespace lectern::engine
