// SPDX-License-Identifier: Apache-2.0
// What the service asks of the system and of json-c: seen, and failed on demand.
#pragma once

#include <pthread.h>

#include <atomic>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

struct SystemCalls {
    // Lines for the system's log, as "<6> text". Nothing reaches the log itself.
    std::vector<std::string> takeLog();

    std::atomic<time_t> now{0};             // the wall clock; 0: the system's
    std::atomic<bool> noJsonObjects{false}; // no JSON object can be made
    std::atomic<int> mutexInitError{0};     // what pthread_mutex_init fails with
    // The mutex whose unlocks are reported as failed (EPERM) although they work.
    std::atomic<pthread_mutex_t*> failingUnlock{nullptr};
    // What the n-th pthread_create from now fails with; n counts down to 0.
    std::atomic<int> threadsUntilError{-1};
    std::atomic<int> threadError{0};
    // The errors of the next receives that may wait, one each.
    std::atomic<int> receiveErrors{0};
    std::atomic<int> receiveError{0};
    std::atomic<unsigned int> slept{0}; // microseconds, of all sleeps so far
    // Timers of whole seconds come at once, and set the wall clock ahead instead.
    std::atomic<bool> timersAtOnce{false};
    std::atomic<bool> noQueue{false};    // no message queue can be had
    std::atomic<bool> noSegments{false}; // no shared-memory segment can be had
    // Lines for the log also go to standard error: for processes that end.
    std::atomic<bool> echoLog{false};

    // Called at the beginning of what they are named after, by whatever thread
    // it is; may be empty. Set while there is one thread only.
    std::function<void()> onLog;
    std::function<void(long type)> onSend;
    std::function<void()> onFrameAttach;
};

extern SystemCalls systemCalls;
