// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pthread.h>

#include <future>
#include <thread>

// Holds a mutex in another thread during its lifetime.
class HeldByAnother {
public:
    explicit HeldByAnother(pthread_mutex_t* mutex)
        : mThread([this, mutex] {
              pthread_mutex_lock(mutex);
              mHeld.set_value();
              mReleased.get_future().wait();
              pthread_mutex_unlock(mutex);
          }) {
        mHeld.get_future().wait();
    }
    ~HeldByAnother() {
        mReleased.set_value();
        mThread.join();
    }
    HeldByAnother(const HeldByAnother&) = delete;
    HeldByAnother& operator=(const HeldByAnother&) = delete;

private:
    std::promise<void> mHeld;
    std::promise<void> mReleased;
    std::thread mThread; // last, because it uses the other members
};
