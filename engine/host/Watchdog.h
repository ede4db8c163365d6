// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"
#include "engine/host/EngineProcess.h"

#include <poll.h>

#include <chrono>
#include <condition_variable>
#include <list>
#include <memory>
#include <thread>
#include <vector>

namespace lectern::engine {

using Clock = std::chrono::steady_clock;
using TimePoint = Clock::time_point;

// Watches all engine processes of the service from one thread: it reaps each
// as soon as it ends, whatever ended it, and kills each whose deadline passes.
//
// A caller who waits for an engine needs no time limit of its own: it sets a
// deadline, and when that passes the engine dies, its connection ends, and so
// does the wait. This holds for engines that are stopped, that do not read, or
// that never finish starting, too.
//
// Every function may be called by any thread. Never destroyed.
class Watchdog {
public:
    // One watched process; guarded by the watchdog.
    struct Watched {
        std::unique_ptr<EngineProcess> process; // null once it is gone
        TimePoint deadline = TimePoint::max();
        bool expired = false; // killed for its deadline
        bool gone = false;    // reaped, its folder removed
    };
    using Handle = std::shared_ptr<Watched>;

    Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    // Takes a process over.
    Handle watch(std::unique_ptr<EngineProcess> process);

    void setDeadline(const Handle& handle, TimePoint deadline);
    // True when the deadline passed: the engine was killed for it.
    bool liftDeadline(const Handle& handle);

    bool isAlive(const Handle& handle);
    void kill(const Handle& handle);
    // Hangs up, lets the engine end by itself for as long as `grace`, then
    // kills it. Returns when it is gone.
    void end(const Handle& handle, std::chrono::milliseconds grace);

    // Deadlines end within `rest` from now; those set later within `rest` of
    // their setting.
    void cutDeadlines(std::chrono::milliseconds rest);
    // Kills all, and each that is watched later; returns when they are gone.
    void endAll();

private:
    void run();
    TimePoint expireAndCollect(std::vector<pollfd>& files) REQUIRES(mMutex);
    std::list<Handle> takeEnded() REQUIRES(mMutex);
    void wakeFor(TimePoint deadline) REQUIRES(mMutex);

    Mutex mMutex;
    std::condition_variable_any mGone;
    std::list<Handle> mWatched GUARDED_BY(mMutex);
    // No limit is longer.
    std::chrono::milliseconds mLongest GUARDED_BY(mMutex) = std::chrono::hours(1);
    // When the thread looks again by itself.
    TimePoint mWakeAt GUARDED_BY(mMutex) = TimePoint::max();
    bool mEnding GUARDED_BY(mMutex) = false;
    FileDescriptor mWake; // eventfd
    std::thread mThread;
};

} // namespace lectern::engine
