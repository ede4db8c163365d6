// SPDX-License-Identifier: Apache-2.0
#include "touch/Clock.h"

#include <chrono>

namespace {

double prvSystemClock() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double (*gClock)() = prvSystemClock;

} // namespace

double touchTime() {
    return gClock();
}

void setTouchClock(double (*clock)()) {
    gClock = clock != nullptr ? clock : prvSystemClock;
}
