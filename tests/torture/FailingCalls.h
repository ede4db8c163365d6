// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

// Shared by a test and the library that makes calls fail: in a file that the environment
// variable LECTERN_TEST_FAULTS names, mapped by both.
struct FaultControl {
    // The number of the next call that fails, counted down at each call that code of
    // Lectern makes; below 1: none fails.
    std::atomic<int> callsUntilFault;
    std::atomic<bool> happened;
    char call[32]; // the name of the one that failed
};
