// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/ThreadAnnotations.h"

#include <mutex>

namespace lectern {

// A std::mutex that the thread safety analysis knows. Not recursive.
class CAPABILITY("mutex") Mutex {
public:
    void lock() ACQUIRE() { mMutex.lock(); }
    void unlock() RELEASE() { mMutex.unlock(); }

private:
    std::mutex mMutex;
};

// Holds a mutex until the end of the scope. Can be released and taken again in
// between, by a std::condition_variable_any for instance.
class SCOPED_CAPABILITY Lock {
public:
    explicit Lock(Mutex& mutex) ACQUIRE(mutex) : mLock(mutex) {}
    ~Lock() RELEASE() {}
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    void lock() ACQUIRE() { mLock.lock(); }
    void unlock() RELEASE() { mLock.unlock(); }

private:
    std::unique_lock<Mutex> mLock;
};

} // namespace lectern
