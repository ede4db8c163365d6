// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "base/Mutex.h"

#include <pthread.h>

#include <chrono>
#include <cstddef>
#include <vector>

// The threads that serve the message queue. One of them, the reader, reads a record and
// serves it before it reads the next. When it waits longer than PATIENCE for a rendering
// engine, a standby thread becomes the reader, so that other documents do not wait, too.
// The first thread then finishes its record and becomes a standby.
//
// Standby threads are made when they are needed; one stays idle, others end when they
// have finished. Where no module tells of its waits, there is only the first thread.
class QueueReaders {
public:
    // Longer than most calls of an engine, and short enough for paints within 50 ms.
    static constexpr std::chrono::milliseconds PATIENCE{25};
    // With so many engines waited for at once, the next wait holds up the queue.
    static constexpr size_t MOST_STANDBYS = 32;

    // Reads and serves one record. False if the queue must not be read any longer.
    using Turn = bool (*)();

    // Takes turns on this thread, which starts as the reader. Returns when a turn has
    // returned false. The thread can be cancelled while it is a standby, and in the turn
    // if that allows it. No other thread may be in here, except for standbys.
    void run(Turn turn);
    // Cancels the standby threads, and returns when they have ended. There are no new ones
    // until the next run().
    void stopStandbys();

    // Around a wait of this thread. They do nothing on a thread that is not the reader.
    void waitBegins();
    void waitEnds();

private:
    static void* standBy(void* readers);
    void takeTurns();
    void awaitTakeover();
    bool takeOver() EXCLUDES(mMutex);
    bool isReader();
    void addStandby() REQUIRES(mMutex);
    bool leavesAsSurplus() REQUIRES(mMutex);
    void setTimer(std::chrono::milliseconds time) REQUIRES(mMutex);

    lectern::Mutex mMutex;
    Turn mTurn GUARDED_BY(mMutex) = nullptr;
    pthread_t mReader GUARDED_BY(mMutex) = {};
    bool mWaiting GUARDED_BY(mMutex) = false; // the reader, for an engine
    bool mEnded GUARDED_BY(mMutex) = true;    // nobody shall read any longer
    size_t mIdle GUARDED_BY(mMutex) = 0;      // standbys that are neither reading nor finishing
    std::vector<pthread_t> mStandbys GUARDED_BY(mMutex);
    lectern::FileDescriptor mTimer; // runs while the reader waits; every standby sleeps on it
};

extern QueueReaders& gQueueReaders; // never destroyed
