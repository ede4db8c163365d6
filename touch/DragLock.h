// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPoint.h"

#include <cmath>

// Keeps a drag that is nearly straight on one axis. It decides once in a contact, when
// the pen has moved as far as no tap does.
class DragLock {
public:
    // A tap moves less than this, in pixels of a screen with 160 dots per inch.
    static constexpr double SLOP = 8.0;
    // The longer way is at least this many times the shorter one in a straight drag.
    static constexpr double STRAIGHT = 2.5;

    void begin() { mState = UNDECIDED; }
    // The part of a way since the pen went down that counts.
    CpPoint apply(int dx, int dy, double dotsPerInch) {
        if (mState == UNDECIDED && std::hypot(dx, dy) >= SLOP * dotsPerInch / 160.0) {
            decide(std::abs(static_cast<double>(dx)), std::abs(static_cast<double>(dy)));
        }
        return {mState == VERTICAL ? 0 : dx, mState == HORIZONTAL ? 0 : dy};
    }

private:
    enum State { UNDECIDED, FREE, HORIZONTAL, VERTICAL };

    void decide(double x, double y) {
        mState = y >= STRAIGHT * x ? VERTICAL : x >= STRAIGHT * y ? HORIZONTAL : FREE;
    }

    State mState = UNDECIDED;
};
