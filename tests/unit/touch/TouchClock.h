// SPDX-License-Identifier: Apache-2.0
// The clock of touch views, controlled by tests.
#pragma once

#include "touch/Clock.h"

class TouchClock {
public:
    TouchClock() {
        now() = 1000.0;
        setTouchClock([] { return now(); });
    }
    ~TouchClock() { setTouchClock(nullptr); }
    TouchClock(const TouchClock&) = delete;
    TouchClock& operator=(const TouchClock&) = delete;

    static void advance(double seconds) { now() += seconds; }

private:
    static double& now() {
        static double seconds = 0.0;
        return seconds;
    }
};
