// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPoint.h"

// By how much the finger is beyond the document's edge, in pixels: above 0 beyond the
// right or bottom edge. Clients that let the edge give a little show it.
class Overscroll {
public:
    // True if that has changed.
    bool set(const CpPoint& beyond) {
        const bool changed = beyond.x != mBeyond.x || beyond.y != mBeyond.y;
        mBeyond = beyond;
        return changed;
    }
    const CpPoint& beyond() const { return mBeyond; }

private:
    CpPoint mBeyond{0, 0};
};
