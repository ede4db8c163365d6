// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Point.h>

#include <optional>

namespace lectern {

// A pen contact: down at `from`, up at `to`, in view pixels.
struct Drag {
    Point from;
    Point to;
    bool operator==(const Drag&) const = default;
};

// Computes drags that move a view to a position in a document. Each drag is at
// most as long as the view and depends on where the previous one has led.
//
// Only the start of the text has a fixed row, 0, and a view that was zoomed may
// count from elsewhere. So row 0 counts as reached only when a drag towards the
// start moves no further.
class ScrollPlan {
public:
    ScrollPlan(int viewWidth, int viewHeight, Point target)
        : mWidth(viewWidth), mHeight(viewHeight), mTarget(target) {}

    // Returns the next drag from this scroll position, or nothing when the
    // target is reached or the document ends before it.
    std::optional<Drag> next(Point position);

private:
    bool done(Point position);

    int mWidth;
    int mHeight;
    Point mTarget;
    std::optional<Point> mBefore; // position before the last drag
    int mStalls = 0;              // number of successive drags without movement
    bool mStartFound = false;     // row 0 is known to be the first row of the text
    int mDrags = 0;
};

} // namespace lectern
