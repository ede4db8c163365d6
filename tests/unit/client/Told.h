// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <vector>

// Records the callbacks on other threads, in order.
class Told {
public:
    void add(const std::string& what) {
        const std::lock_guard lock(mMutex);
        mAll.push_back(what);
        mAdded.notify_all();
    }
    // Waits for at least `count` callbacks; returns all so far.
    std::vector<std::string> waitFor(size_t count) {
        std::unique_lock lock(mMutex);
        mAdded.wait(lock, [&] { return mAll.size() >= count; });
        return mAll;
    }
    size_t count() {
        const std::lock_guard lock(mMutex);
        return mAll.size();
    }

private:
    std::mutex mMutex;
    std::condition_variable mAdded;
    std::vector<std::string> mAll;
};
