// SPDX-License-Identifier: Apache-2.0
#include "client/lib/TaskThread.h"

#include <utility>

namespace lectern {

TaskThread::~TaskThread() {
    stop();
    std::thread last;
    {
        const Lock lock(mMutex);
        last.swap(mThread);
    }
    if (last.joinable()) {
        last.join();
    }
}

void TaskThread::post(Task task) {
    const Lock lock(mMutex);
    if (mStop.stop_requested()) {
        return;
    }
    mTasks.push_back(std::move(task));
    mPosted.notify_one();
    if (!mThread.joinable()) {
        mThread = std::thread([this] { run(); });
        pthread_setname_np(mThread.native_handle(), mName);
    }
}

void TaskThread::stop() {
    std::deque<Task> dropped; // destroyed without the mutex, because they are the program's
    mStop.request_stop();
    const Lock lock(mMutex);
    dropped.swap(mTasks);
}

void TaskThread::run() {
    const std::stop_token stop = mStop.get_token();
    while (true) {
        Task task;
        {
            Lock lock(mMutex);
            mPosted.wait(lock, stop, [this]() REQUIRES(mMutex) { return !mTasks.empty(); });
            if (stop.stop_requested()) {
                return;
            }
            task = std::move(mTasks.front());
            mTasks.pop_front();
        }
        task(stop);
    }
}

} // namespace lectern
