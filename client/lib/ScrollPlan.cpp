// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ScrollPlan.h"

#include <algorithm>

namespace lectern {

namespace {

// Number of drags without movement that prove an edge. One drag may end at the
// position where it began because rows were counted anew, but two drags of
// different lengths do not.
constexpr int STALLS_AT_EDGE = 2;
// More than any document needs; ends a plan when the view does not move as expected.
constexpr int MOST_DRAGS = 100'000;

// One axis of a drag that scrolls by `distance`, limited to the longest drag
// divided by `divisor`. No drag starts in the view's first third, which may
// contain headers that react differently.
struct Stroke {
    Stroke(long distance, int extent, int divisor) {
        const int first = distance >= 0 ? extent - 1 : extent / 3;
        const long longest = distance >= 0 ? first : extent - 1 - first;
        const long most = std::max(longest / divisor, 1L);
        from = first;
        to = from - static_cast<int>(std::clamp(distance, -most, most)); // the document follows the finger
    }
    int from;
    int to;
};

} // namespace

bool ScrollPlan::done(Point position) {
    mStalls = mBefore == position ? mStalls + 1 : 0;
    const bool pushedUp = mBefore && mTarget.y == 0 && mBefore->y <= 0;
    // Only at its start does a short document move below it, to a negative position.
    if (pushedUp && (position.y < 0 || mStalls >= STALLS_AT_EDGE)) {
        mStartFound = true;
    }
    if (position == mTarget && (mTarget.y != 0 || mStartFound)) {
        return true;
    }
    return mStalls >= STALLS_AT_EDGE || mDrags >= MOST_DRAGS;
}

std::optional<Drag> ScrollPlan::next(Point position) {
    if (done(position)) {
        return std::nullopt;
    }
    const int divisor = mStalls + 1;
    long down = static_cast<long>(mTarget.y) - position.y;
    if (down == 0 && mTarget.y == 0 && !mStartFound) {
        down = -mHeight;
    }
    const Stroke horizontal(static_cast<long>(mTarget.x) - position.x, mWidth, divisor);
    const Stroke vertical(down, mHeight, divisor);
    mBefore = position;
    ++mDrags;
    return Drag{{horizontal.from, vertical.from}, {horizontal.to, vertical.to}};
}

} // namespace lectern
