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

// Starts engines for documents of all kinds and keeps one spare engine that is
// ready to open, so that an open takes only the time of the load. The spare is
// started in the background after an open. When the process exits, the
// remaining engines are ended.
//
// Any thread may call any function.
class LECTERN_ENGINE_EXPORT Supervisor {
public:
    // Created on first use, never destroyed.
    static Supervisor& instance();
    Supervisor(const Supervisor&) = delete;
    Supervisor& operator=(const Supervisor&) = delete;

    // Returns the spare, or the one being started, if its settings are these;
    // otherwise starts an engine. Returns null as Engine::start does.
    std::unique_ptr<Engine> take(const LaunchSettings& settings, TimePoint deadline, std::int32_t& result);

    // Starts a spare with these settings in the background unless there is one;
    // the start may take up to `limit`. Returns at once.
    void prepareSpare(const LaunchSettings& settings, std::chrono::milliseconds limit);

    // Call before the process stops: calls, including running ones, get at most
    // two more seconds, and no more spares are started.
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
    std::optional<SpareOrder> mOrder GUARDED_BY(mMutex); // the spare being started; empty when none is
    std::unique_ptr<Engine> mSpare GUARDED_BY(mMutex);   // ready, or ended since, or null
    LaunchSettings mSpareSettings GUARDED_BY(mMutex);    // of mSpare
    bool mStopping GUARDED_BY(mMutex) = false;
    std::thread mThread;
};

} // namespace lectern::engine
