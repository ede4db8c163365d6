// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPoint.h"
#include "raster/Saturate.h"

// True when low <= value <= high.
inline bool between(int low, int value, int high) {
    return low <= value && value <= high;
}

// A rectangle in pixels. It is half-open: (0, 0, 10, 5) covers columns 0 to 9 and
// rows 0 to 4. Nevertheless Contains() counts the right and bottom edges as inside:
// callers rely on that. Sizes and moved edges saturate at the limits of int.
class CpRect {
public:
    CpRect() : mTopLeft(0, 0), mBottomRight(0, 0) {}
    CpRect(int left, int top, int right, int bottom) : mTopLeft(left, top), mBottomRight(right, bottom) {}
    CpRect(const CpPoint& topLeft, const CpPoint& bottomRight)
        : mTopLeft(topLeft), mBottomRight(bottomRight) {}

    void Set(int left, int top, int right, int bottom);

    int Left() const { return mTopLeft.x; }
    int Top() const { return mTopLeft.y; }
    int Right() const { return mBottomRight.x; }
    int Bottom() const { return mBottomRight.y; }
    int Width() const { return saturatedDifference(mBottomRight.x, mTopLeft.x); }
    int Height() const { return saturatedDifference(mBottomRight.y, mTopLeft.y); }
    // Height times width. Signs are not checked, and the product wraps on overflow.
    int Area() const;

    bool Empty() const;
    void setEmpty();

    bool Contains(const CpPoint& p) const;
    // Compares only the columns, not the rows: callers rely on that.
    bool Contains(const CpRect& r) const;
    // Cuts this rectangle to its intersection with r. If they are disjoint, its edges
    // are crossed and it is Empty().
    void Intersect(const CpRect& r);
    // Not implemented: always true.
    bool Above(const CpRect&) const { return true; }
    bool LeftOf(const CpRect&) const { return true; }

    // Intersect() with (0, 0, width, height).
    void clip(int width, int height);
    void Offset(const CpPoint& d);
    void Offset(int dx, int dy);
    // The centre relative to the rectangle's own top left corner.
    CpPoint MidPoint() const;

    // Writes the line "label: (left, top) width x height" to standard output.
    void Print(const char* label) const;

    static bool between(int low, int value, int high) { return ::between(low, value, high); }

private:
    CpPoint mTopLeft;
    CpPoint mBottomRight;
};
