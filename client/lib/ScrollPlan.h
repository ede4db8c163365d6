// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Point.h>

#include <optional>

namespace lectern {

// A pen contact: down at from, up at to, in view pixels.
struct Drag {
    Point from;
    Point to;
    bool operator==(const Drag&) const = default;
};

// The way to a place in a document by drags alone, as a finger would go there:
// each at most a view wide and high, from where the one before has led.
//
// Only the start of the text has a fixed row, 0, and a view that came to its
// place by zooming may count from elsewhere. So row 0 is believed only when a
// push against it leads no further up.
class ScrollPlan {
public:
    ScrollPlan(int viewWidth, int viewHeight, Point target)
        : mWidth(viewWidth), mHeight(viewHeight), mTarget(target) {}

    // The next drag from this scroll position, or nothing: then the target is
    // reached, or the document ends before it.
    std::optional<Drag> next(Point position);

private:
    bool done(Point position);

    int mWidth;
    int mHeight;
    Point mTarget;
    std::optional<Point> mBefore; // the position before the last drag
    int mStalls = 0;              // drags in a row that have moved nothing
    bool mStartFound = false;     // row 0 is known to be the text's first
    int mDrags = 0;
};

} // namespace lectern
