// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/Mutex.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <stop_token>
#include <thread>

namespace lectern {

// Does tasks in their order on a thread of its own, which starts with the first task.
// The destructor does not start further tasks and waits for the one that runs.
class TaskThread {
public:
    // stop: requested when the task is not wanted any more.
    using Task = std::function<void(const std::stop_token& stop)>;

    // name: of the thread, at most 15 characters, valid for ever.
    explicit TaskThread(const char* name) : mName(name) {}
    ~TaskThread();
    TaskThread(const TaskThread&) = delete;
    TaskThread& operator=(const TaskThread&) = delete;

    // Any thread may call this; never waits for a task. Does nothing after stop().
    void post(Task task);
    // Requests the stop of the task that runs and drops the others; waits for none.
    void stop();

private:
    void run();

    const char* const mName;
    std::stop_source mStop;
    Mutex mMutex;
    std::condition_variable_any mPosted;
    std::deque<Task> mTasks GUARDED_BY(mMutex);
    std::thread mThread GUARDED_BY(mMutex);
};

} // namespace lectern
