// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPoint.h"
#include "raster/Saturate.h"

// True when low <= value <= high.
inline bool between(int low, int value, int high) {
    return low <= value && value <= high;
}

// A rectangle in pixels. Its size is half-open: (0, 0, 10, 5) covers columns 0
// to 9 and rows 0 to 4. The containment tests count right and bottom as inside;
// that difference is meant and callers rely on it. Sizes and moved edges stop at
// the ends of int.
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
    // Height times width, neither checked for sign nor for overflow: the product wraps.
    int Area() const;

    bool Empty() const;
    void setEmpty();

    bool Contains(const CpPoint& p) const;
    // Looks at the columns of r only, whatever its rows: meant so.
    bool Contains(const CpRect& r) const;
    // In place; disjoint rectangles leave one that is Empty() with its edges crossed.
    void Intersect(const CpRect& r);
    // Placeholders: always true.
    bool Above(const CpRect&) const { return true; }
    bool LeftOf(const CpRect&) const { return true; }

    // Cuts to columns 0 to width and rows 0 to height, in place; a rectangle
    // that lies wholly outside is left with crossed edges.
    void clip(int width, int height);
    void Offset(const CpPoint& d);
    void Offset(int dx, int dy);
    // Half the size, measured from the rectangle's own corner (not from 0, 0).
    CpPoint MidPoint() const;

    // Writes "label: (left, top) width x height" as a line to standard output.
    void Print(const char* label) const;

    static bool between(int low, int value, int high) { return ::between(low, value, high); }

private:
    CpPoint mTopLeft;
    CpPoint mBottomRight;
};
