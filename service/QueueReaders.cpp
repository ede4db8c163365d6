// SPDX-License-Identifier: Apache-2.0
#include "service/QueueReaders.h"

#include "base/Cancellable.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>

QueueReaders& gQueueReaders = *new QueueReaders();

void QueueReaders::run(Turn turn) {
    {
        const lectern::Lock lock(mMutex);
        mTurn = turn;
        mReader = pthread_self();
        mWaiting = false;
        mEnded = false;
        if (!mTimer) {
            mTimer = lectern::FileDescriptor(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC));
        }
    }
    takeTurns();
}

void QueueReaders::stopStandbys() {
    std::vector<pthread_t> threads;
    {
        const lectern::Lock lock(mMutex);
        mEnded = true;
        threads.swap(mStandbys);
    }
    for (const pthread_t thread : threads) {
        pthread_cancel(thread);
    }
    for (const pthread_t thread : threads) {
        pthread_join(thread, nullptr);
    }
    const lectern::Lock lock(mMutex);
    mIdle = 0;
}

void QueueReaders::waitBegins() {
    const lectern::Lock lock(mMutex);
    if (mEnded || pthread_equal(mReader, pthread_self()) == 0) {
        return;
    }
    mWaiting = true;
    if (mIdle == 0) {
        addStandby();
    }
    setTimer(PATIENCE);
}

void QueueReaders::waitEnds() {
    const lectern::Lock lock(mMutex);
    if (mWaiting && pthread_equal(mReader, pthread_self()) != 0) {
        mWaiting = false;
        setTimer({});
    }
}

void* QueueReaders::standBy(void* readers) {
    pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr);
    auto* self = static_cast<QueueReaders*>(readers);
    self->awaitTakeover();
    self->takeTurns();
    return nullptr;
}

void QueueReaders::takeTurns() {
    Turn turn = nullptr;
    {
        const lectern::Lock lock(mMutex);
        turn = mTurn;
    }
    for (;;) {
        const bool goesOn = turn();
        {
            const lectern::Lock lock(mMutex);
            mEnded = mEnded || !goesOn;
            if (mEnded || leavesAsSurplus()) {
                return;
            }
            mIdle += pthread_equal(mReader, pthread_self()) == 0 ? 1 : 0;
        }
        awaitTakeover();
    }
}

// One idle thread is enough. The first thread is none of the standbys, and stays.
bool QueueReaders::leavesAsSurplus() {
    const auto self = std::find_if(mStandbys.begin(), mStandbys.end(), [](pthread_t thread) {
        return pthread_equal(thread, pthread_self()) != 0;
    });
    if (mIdle == 0 || self == mStandbys.end() || pthread_equal(mReader, *self) != 0) {
        return false;
    }
    mStandbys.erase(self);
    pthread_detach(pthread_self());
    return true;
}

// Returns when this thread is the reader.
void QueueReaders::awaitTakeover() {
    while (!isReader()) {
        uint64_t expirations = 0;
        ssize_t size = 0;
        {
            const lectern::Cancellable whileAsleep;
            size = read(mTimer.get(), &expirations, sizeof expirations);
        }
        if (size > 0 && takeOver()) {
            return;
        }
    }
}

bool QueueReaders::takeOver() {
    const lectern::Lock lock(mMutex);
    if (!mWaiting || mEnded) {
        return false;
    }
    mReader = pthread_self();
    mWaiting = false;
    --mIdle;
    return true;
}

bool QueueReaders::isReader() {
    const lectern::Lock lock(mMutex);
    return pthread_equal(mReader, pthread_self()) != 0;
}

void QueueReaders::addStandby() {
    pthread_t thread{};
    if (mStandbys.size() == MOST_STANDBYS) {
        return;
    }
    if (const int result = pthread_create(&thread, nullptr, standBy, this); result != 0) {
        std::fprintf(stderr, "No thread for other documents: %s\n", std::strerror(result));
        return;
    }
    mStandbys.push_back(thread);
    ++mIdle;
}

void QueueReaders::setTimer(std::chrono::milliseconds time) {
    itimerspec timer = {};
    timer.it_value.tv_nsec = std::chrono::nanoseconds(time).count();
    timerfd_settime(mTimer.get(), 0, &timer, nullptr);
}
