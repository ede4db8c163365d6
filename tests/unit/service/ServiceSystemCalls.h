// SPDX-License-Identifier: Apache-2.0
// Calls of the service to the system and to json-c: recorded, and made to fail
// on request.
#pragma once

#include <pthread.h>

#include <atomic>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

struct SystemCalls {
    // Takes the lines for the system log, as "<6> text". Nothing reaches the log itself.
    std::vector<std::string> takeLog();

    std::atomic<time_t> now{0};             // time of the wall clock; 0: the system's
    std::atomic<bool> noJsonObjects{false}; // creating a JSON object fails
    std::atomic<int> mutexInitError{0};     // error of pthread_mutex_init
    // Unlocking this mutex works but reports an error (EPERM).
    std::atomic<pthread_mutex_t*> failingUnlock{nullptr};
    // The n-th pthread_create from now fails with this error; n counts down to 0.
    std::atomic<int> threadsUntilError{-1};
    std::atomic<int> threadError{0};
    // Errors of the next receives that may wait, one each.
    std::atomic<int> receiveErrors{0};
    std::atomic<int> receiveError{0};
    std::atomic<unsigned int> slept{0}; // microseconds of all sleeps so far
    // Timers of whole seconds expire at once and advance the wall clock instead.
    std::atomic<bool> timersAtOnce{false};
    std::atomic<bool> noQueue{false};    // opening a message queue fails
    std::atomic<bool> noSegments{false}; // creating a shared-memory segment fails
    // Log lines also go to standard error, for processes that end.
    std::atomic<bool> echoLog{false};

    // Called at the start of the operation in the name, on any thread; may be
    // empty. Set while there is only one thread.
    std::function<void()> onLog;
    std::function<void(long type)> onSend;
    std::function<void()> onFrameAttach;
};

extern SystemCalls systemCalls;
