// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpPixmap.h"

#include <algorithm>
#include <cstdint>

// Bounds the work of drawing what a module has listed. Marks of documents never overlap
// so much that they reach the bound; those of a broken module would take hours, with the
// registry locked.
class DrawingBudget {
public:
    // How many times all pixels of the target may be drawn.
    static constexpr int64_t COVERS = 64;

    explicit DrawingBudget(const CpPixmap& target)
        : mWidth(target.Width()), mHeight(target.Height()), mLeft(COVERS * mWidth * mHeight) {}

    // Whether a rectangle may still be drawn.
    bool coversRect(const CpRect& r) {
        const int64_t columns = std::min<int64_t>(r.Right(), mWidth) - std::max(r.Left(), 0);
        const int64_t rows = std::min<int64_t>(r.Bottom(), mHeight) - std::max(r.Top(), 0);
        return columns <= 0 || rows <= 0 || covers(columns * rows);
    }
    // Whether a triangle of CpPixmap::DrawAlphaTriOnPix may. Its rows are not shortened
    // at the left and top edges.
    bool coversTriangle(int x, int y, int side) {
        const bool isOutside = x > mWidth || y > mHeight || int64_t{x} + side < 1 || int64_t{y} + side < 1;
        return side < 1 || isOutside || covers(int64_t{side} * std::min<int64_t>(side, mHeight));
    }

private:
    bool covers(int64_t pixels) {
        if (pixels > mLeft) {
            return false;
        }
        mLeft -= pixels;
        return true;
    }

    int64_t mWidth;
    int64_t mHeight;
    int64_t mLeft; // pixels
};
