// SPDX-License-Identifier: Apache-2.0
// The glide's clock, controlled by tests.
#pragma once

#include "view/NewtonianSmoothScroll.h"

class TestClock {
public:
    TestClock() {
        now() = 1000.0;
        NewtonianSmoothScroll::setClock([] { return now(); });
    }
    ~TestClock() { NewtonianSmoothScroll::setClock(nullptr); }
    TestClock(const TestClock&) = delete;
    TestClock& operator=(const TestClock&) = delete;

    static void advance(double seconds) { now() += seconds; }

private:
    static double& now() {
        static double seconds = 0.0;
        return seconds;
    }
};
