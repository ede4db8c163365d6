// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/Geometry.h"

#include <chrono>

namespace lectern::gtk4 {

using Milliseconds = std::chrono::milliseconds;

// Counts taps or clicks that follow each other soon and at nearly the same place.
class Taps {
public:
    // Both are limits for one tap after the other.
    Taps(Milliseconds interval, double radius) : mInterval(interval), mRadius(radius) {}

    // The number of this tap: 1, or 2 and more for those that follow.
    int count(Point at, Milliseconds time) {
        const bool follows = mCount > 0 && time - mTime <= mInterval && distance(at, mAt) <= mRadius;
        mCount = follows ? mCount + 1 : 1;
        mAt = at;
        mTime = time;
        return mCount;
    }
    // The next tap is a first one.
    void forget() { mCount = 0; }

private:
    Milliseconds mInterval;
    double mRadius;
    Point mAt;
    Milliseconds mTime{0};
    int mCount = 0;
};

} // namespace lectern::gtk4
