// SPDX-License-Identifier: Apache-2.0
#include "engine/host/Watchdog.h"

#include <sys/eventfd.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace lectern::engine {
namespace {

using std::chrono::milliseconds;

// The time between two looks at all engines' totals.
constexpr std::chrono::seconds LOOK(4);

// Rounded up, so that the deadline has passed when poll returns.
int millisecondsUntil(TimePoint time) {
    if (time == TimePoint::max()) {
        return -1;
    }
    const auto left = std::chrono::ceil<milliseconds>(time - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, 3'600'000));
}

} // namespace

Watchdog::Watchdog() : mWake(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), mThread([this] { run(); }) {}

Watchdog::Handle Watchdog::watch(std::unique_ptr<EngineProcess> process) {
    auto handle = std::make_shared<Watched>();
    handle->process = std::move(process);
    const Lock lock(mMutex);
    if (mEnding) {
        handle->process->kill();
    }
    mWatched.push_back(handle);
    wakeFor(TimePoint::min());
    return handle;
}

void Watchdog::setDeadline(const Handle& handle, TimePoint deadline) {
    const Lock lock(mMutex);
    handle->calls++;
    handle->deadline = std::min(deadline, Clock::now() + mLongest);
    wakeFor(handle->deadline);
}

bool Watchdog::liftDeadline(const Handle& handle) {
    const Lock lock(mMutex);
    handle->deadline = TimePoint::max();
    return handle->expired;
}

bool Watchdog::isAlive(const Handle& handle) {
    const Lock lock(mMutex);
    return handle->process && !handle->process->hasEnded();
}

void Watchdog::kill(const Handle& handle) {
    const Lock lock(mMutex);
    if (handle->process) {
        handle->process->kill();
    }
}

void Watchdog::end(const Handle& handle, milliseconds grace) {
    Lock lock(mMutex);
    if (handle->process) {
        handle->process->hangUp();
        handle->deadline = Clock::now() + grace;
        wakeFor(handle->deadline);
    }
    mGone.wait(lock, [&] { return handle->gone; });
}

void Watchdog::cutDeadlines(milliseconds rest) {
    const Lock lock(mMutex);
    mLongest = std::min(mLongest, rest);
    const TimePoint latest = Clock::now() + mLongest;
    for (const Handle& handle : mWatched) {
        if (handle->deadline != TimePoint::max()) {
            handle->deadline = std::min(handle->deadline, latest);
        }
    }
    wakeFor(latest);
}

void Watchdog::endAll() {
    Lock lock(mMutex);
    mEnding = true;
    for (const Handle& handle : mWatched) {
        if (handle->process) {
            handle->process->kill();
        }
    }
    const std::list<Handle> all = mWatched;
    mGone.wait(lock,
               [&] { return std::all_of(all.begin(), all.end(), [](auto& each) { return each->gone; }); });
}

// Wakes the thread for a deadline that is earlier than mWakeAt, when it wakes
// by itself. Most calls set a later one.
void Watchdog::wakeFor(TimePoint deadline) {
    if (deadline < mWakeAt) {
        mWakeAt = deadline;
        eventfd_write(mWake.get(), 1);
    }
}

void Watchdog::run() {
    std::vector<pollfd> files;
    Lock lock(mMutex);
    for (;;) {
        mWakeAt = expireAndCollect(files);
        const int timeout = millisecondsUntil(mWakeAt);
        lock.unlock();
        poll(files.data(), files.size(), timeout);
        eventfd_t wakes = 0;
        eventfd_read(mWake.get(), &wakes);
        lookAtTotals();
        lock.lock();

        std::list<Handle> ended = takeEnded();
        std::list<std::unique_ptr<EngineProcess>> remains;
        for (const Handle& handle : ended) {
            remains.push_back(std::move(handle->process));
        }
        lock.unlock();
        remains.clear(); // reaps processes and removes folders, which is slow
        lock.lock();
        for (const Handle& handle : ended) {
            handle->gone = true;
            mWatched.remove(handle);
        }
        mGone.notify_all();
    }
}

// Kills the processes whose deadline has passed; returns the next deadline, and
// in `files` the descriptors to poll.
TimePoint Watchdog::expireAndCollect(std::vector<pollfd>& files) {
    const TimePoint now = Clock::now();
    TimePoint next = TimePoint::max();
    files.assign(1, pollfd{mWake.get(), POLLIN, 0});
    for (const Handle& handle : mWatched) {
        if (handle->deadline <= now) {
            handle->expired = true;
            handle->deadline = TimePoint::max();
            handle->process->kill();
        }
        next = std::min({next, handle->deadline, handle->process->isForkServer() ? next : mNextLook});
        files.push_back(pollfd{handle->process->pidfd(), POLLIN, 0});
    }
    return next;
}

// Without the lock, because files are counted. Only this thread takes a process away.
void Watchdog::lookAtTotals() {
    if (Clock::now() < mNextLook) {
        return;
    }
    mNextLook = Clock::now() + LOOK;
    std::list<std::pair<Handle, std::uint64_t>> engines; // with their counts of calls
    {
        const Lock lock(mMutex);
        for (const Handle& handle : mWatched) {
            if (!handle->process->isForkServer()) {
                handle->calls += handle->deadline != TimePoint::max() ? 1 : 0; // it still runs
                engines.emplace_back(handle, handle->calls);
            }
        }
    }
    for (const auto& [handle, calls] : engines) {
        if (handle->totals.exceed(*handle->process, calls)) {
            kill(handle);
        }
    }
}

std::list<Watchdog::Handle> Watchdog::takeEnded() {
    std::list<Handle> ended;
    std::copy_if(mWatched.begin(), mWatched.end(), std::back_inserter(ended),
                 [](const Handle& handle) { return handle->process->hasEnded(); });
    return ended;
}

} // namespace lectern::engine
