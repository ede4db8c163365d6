// SPDX-License-Identifier: Apache-2.0
// System calls of the code under test: counted, and made to fail on request.
#pragma once

#include <atomic>
#include <functional>

struct SystemCalls {
    std::atomic<int> receives{0};         // number of msgrcv calls
    std::atomic<int> sleeps{0};           // number of usleep calls, which return at once
    std::atomic<unsigned int> slept{0};   // sum of their microseconds
    std::atomic<int> nextReceiveError{0}; // error of the next msgrcv; with 0 it works
    // Called by each usleep with its number, from 1; may be empty.
    std::function<void(int number)> onSleep;

    void reset();
};

extern SystemCalls systemCalls;
