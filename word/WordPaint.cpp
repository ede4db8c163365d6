// SPDX-License-Identifier: Apache-2.0
// The parts of painting that differ from other views: the white background and the
// preview of a pinch.
#include "raster/Saturate.h"
#include "word/Word.h"

#include <cstdio>

namespace {
constexpr unsigned int WHITE = 0xFFFFFFFF;

// The rectangle of a view of width * height, scaled about its centre.
CpRect prvCentred(int width, int height, double scale) {
    const double halfWidth = 0.5 * width * scale;
    const double halfHeight = 0.5 * height * scale;
    const int middleX = width / 2;
    const int middleY = height / 2;
    return {saturateToInt(middleX - halfWidth), saturateToInt(middleY - halfHeight),
            saturateToInt(middleX + halfWidth), saturateToInt(middleY + halfHeight)};
}
} // namespace

void Word::eraseBuffer(unsigned int* frameBuffer, unsigned int count) const {
    std::puts("Erasing buffer!...");
    FillPixels(frameBuffer, count, WHITE);
}

// Scales the last frame, because the module renders nothing until the pinch ends.
// Limits the scale to that of the largest possible surface, because the pinch ends
// with that zoom.
void Word::handlePaintGesture(unsigned int* frameBuffer) {
    const double wanted = mScale * mGestureRequestScale;
    const double possible = fittingScale(wanted);
    const double scale = possible < wanted ? possible / mScale : mGestureRequestScale;
    if (scale > 1.0) {
        magnifyLastFrame(frameBuffer, scale, prvCentred(mWidth, mHeight, 1.0 / scale));
    } else {
        fitLastFrame(frameBuffer, scale, prvCentred(mWidth, mHeight, scale));
    }
}
