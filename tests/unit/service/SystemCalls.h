// SPDX-License-Identifier: Apache-2.0
// What the service asks of the system and of json-c: seen, and failed on demand.
#pragma once

#include <pthread.h>

#include <atomic>
#include <ctime>
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
};

extern SystemCalls systemCalls;
