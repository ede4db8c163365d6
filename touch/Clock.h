// SPDX-License-Identifier: Apache-2.0
#pragma once

// The time in seconds of a clock that only runs forward.
double touchTime();
// For tests: replaces the clock. Null restores the system's.
void setTouchClock(double (*clock)());
