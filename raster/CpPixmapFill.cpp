// SPDX-License-Identifier: Apache-2.0
// The translucent fills.
#include "raster/CpPixmap.h"
#include "raster/PixelKernels.h"

#include <algorithm>

// All fills consist of runs of consecutive pixels. `first` is an index into all
// pixels of the pixmap, row after row.
void CpPixmap::blendRun(long long first, long long count, uint32_t colour) {
    const long long end = std::min(first + count, static_cast<long long>(reachablePixels()));
    if (first < end) {
        pixelKernels().blend(mPixels + first, static_cast<size_t>(end - first), colour);
    }
}

int CpPixmap::DrawAlphaRectOnPix(CpRect& r, uint32_t colour) {
    if (r.Left() > Width() || r.Top() > Height() || r.Right() < 1 || r.Bottom() < 1) {
        return 0;
    }
    r.clip(Width(), Height());
    if (r.Empty()) {
        return 0;
    }
    const long long stride = Width();
    if (r.Width() == Width()) {
        blendRun(r.Top() * stride, r.Height() * stride, colour);
        return 0;
    }
    for (int y = r.Top(); y < r.Bottom(); y++) {
        blendRun(y * stride + r.Left(), r.Width(), colour);
    }
    return 0;
}

int CpPixmap::DrawAlphaTriOnPix(int x, int y, int size, uint32_t colour) {
    const long long right = static_cast<long long>(x) + size;
    const long long bottom = static_cast<long long>(y) + size;
    if (Width() < x || Height() < y || right < 1 || bottom < 1) {
        return 0;
    }
    long long side = size;
    if (right > Width()) {
        side = static_cast<long long>(Width()) - x;
    }
    if (y + side > Height()) {
        side = static_cast<long long>(Height()) - y;
    }
    const long long stride = Width();
    const long long end = static_cast<long long>(reachablePixels());
    long long first = std::max(y, 0) * stride + std::max(x, 0);
    for (; side > 0 && first < end; side--, first += stride + 1) {
        blendRun(first, side, colour);
    }
    return 0;
}

int CpPixmap::DrawVerticalAlphaLine(int x, int y0, int y1, uint32_t colour) {
    if (x > Width() || x < 0 || y0 >= y1 || y1 < 0 || y0 > Height()) {
        return 0;
    }
    const long long stride = Width();
    const int last = std::min(y1, Height());
    for (int y = std::max(y0, 0); y <= last; y++) {
        blendRun(y * stride + x, 1, colour);
    }
    return 0;
}

int CpPixmap::DrawHorizontalAlphaLine(int y, int x0, int x1, uint32_t colour) {
    if (y > Height() || y < 0 || x0 >= x1 || x1 < 0 || x0 > Width()) {
        return 0;
    }
    const long long first = std::max(x0, 0);
    const long long last = std::min(x1, Height());
    blendRun(static_cast<long long>(y) * Width() + first, last - first + 1, colour);
    return 0;
}
