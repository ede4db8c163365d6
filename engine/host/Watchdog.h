// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"
#include "engine/host/EngineProcess.h"
#include "engine/host/EngineTotals.h"

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

// Watches all engine processes of the service from one thread: it reaps each as
// soon as it ends, for whatever reason, and kills each whose deadline passes.
//
// A caller that waits for an engine needs no time limit of its own: it sets a
// deadline. When that passes, the engine is killed, its connection ends, and
// the wait ends too, even for an engine that is stopped, does not read or never
// finishes starting.
//
// Any thread may call any function. Never destroyed.
class Watchdog {
public:
    // One watched process; guarded by the watchdog's mutex.
    struct Watched {
        std::unique_ptr<EngineProcess> process; // null when it has ended
        TimePoint deadline = TimePoint::max();
        bool expired = false; // killed because its deadline passed
        bool gone = false;    // reaped, its folder removed
        std::uint64_t calls = 0;
        EngineTotals totals; // the watchdog's thread's
    };
    using Handle = std::shared_ptr<Watched>;

    Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    // Takes ownership of a process and starts to watch it.
    Handle watch(std::unique_ptr<EngineProcess> process);

    void setDeadline(const Handle& handle, TimePoint deadline);
    // Removes the deadline. Returns true when it had passed and the engine was killed.
    bool liftDeadline(const Handle& handle);

    bool isAlive(const Handle& handle);
    void kill(const Handle& handle);
    // Hangs up, gives the engine `grace` to end by itself, then kills it.
    // Returns when it has ended.
    void end(const Handle& handle, std::chrono::milliseconds grace);

    // Limits all deadlines to `rest` from now, and later ones to `rest` from
    // when they are set.
    void cutDeadlines(std::chrono::milliseconds rest);
    // Kills all engines, and those watched later at once; returns when they have ended.
    void endAll();

private:
    void run();
    TimePoint expireAndCollect(std::vector<pollfd>& files) REQUIRES(mMutex);
    void lookAtTotals() EXCLUDES(mMutex);
    std::list<Handle> takeEnded() REQUIRES(mMutex);
    void wakeFor(TimePoint deadline) REQUIRES(mMutex);

    Mutex mMutex;
    std::condition_variable_any mGone;
    std::list<Handle> mWatched GUARDED_BY(mMutex);
    // The longest time allowed for a deadline.
    std::chrono::milliseconds mLongest GUARDED_BY(mMutex) = std::chrono::hours(1);
    // When the thread wakes by itself.
    TimePoint mWakeAt GUARDED_BY(mMutex) = TimePoint::max();
    bool mEnding GUARDED_BY(mMutex) = false;
    TimePoint mNextLook = Clock::now(); // the thread's own
    FileDescriptor mWake;               // eventfd
    std::thread mThread;
};

} // namespace lectern::engine
