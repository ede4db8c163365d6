// SPDX-License-Identifier: Apache-2.0
// The raster operations as one loop over rows and one over columns, directly
// from their definitions. Tests compare with them, and the benchmark measures
// against them.
#pragma once

#include "raster/CpRect.h"

#include <cstdint>

namespace plain {

struct Image {
    const uint32_t* pixels;
    int width;
    int height;
};

// Only `reachable` pixels from the first one may be changed; others are skipped.
struct Canvas {
    uint32_t* pixels;
    int width;
    int height;
    long long reachable;
};

// A copy of s that is all background.
void erase(const CpRect& s, uint32_t background, uint32_t* dst);
void copyBits(const Image& image, const CpRect& s, uint32_t* dst);
void copyBitsTo(const Image& image, const CpRect& s, uint32_t* dst, const CpRect& at, int dstStride);
void turnLeft(const Image& image, const CpRect& s, uint32_t* dst);
void turnRight(const Image& image, const CpRect& s, uint32_t* dst);
void turnAround(const Image& image, const CpRect& s, uint32_t* dst);
void scaleToFit(const Image& image, const CpRect& src, uint32_t* dst, const CpRect& dstRect, int dstWidth,
                int dstHeight);

uint32_t blended(uint32_t old, uint32_t colour);
void alphaRect(const Canvas& canvas, CpRect& r, uint32_t colour);
void alphaTriangle(const Canvas& canvas, int x, int y, int size, uint32_t colour);
void verticalLine(const Canvas& canvas, int x, int y0, int y1, uint32_t colour);
void horizontalLine(const Canvas& canvas, int y, int x0, int x1, uint32_t colour);

} // namespace plain
