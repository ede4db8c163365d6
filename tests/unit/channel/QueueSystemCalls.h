// SPDX-License-Identifier: Apache-2.0
// What the code under test asks of the system: counted, and failed on demand.
#pragma once

#include <atomic>
#include <functional>

struct SystemCalls {
    std::atomic<int> receives{0};         // calls of msgrcv
    std::atomic<int> sleeps{0};           // calls of usleep, which return at once
    std::atomic<unsigned int> slept{0};   // microseconds that they were to take
    std::atomic<int> nextReceiveError{0}; // what the next msgrcv fails with; 0: it does its work
    // Called by each sleep, with its number from 1; may be empty.
    std::function<void(int number)> onSleep;

    void reset();
};

extern SystemCalls systemCalls;
