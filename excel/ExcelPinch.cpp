// SPDX-License-Identifier: Apache-2.0
// Pinches: the module renders nothing until the fingers are off, so what is
// shown meanwhile is the last frame, scaled.
#include <algorithm>
#include <cmath>

#include "excel/Excel.h"
#include "raster/Saturate.h"

namespace {

// One axis of a rectangle.
struct Extent {
    int from;
    int to;
};

// The part of the last frame that a zoom into it shows: about a middle, but
// inside the frame. scale is above 1.
Extent prvSource(double middle, int viewLength, double scale) {
    const double length = viewLength / scale;
    const double from = std::clamp(middle - length / 2, 0.0, viewLength - length);
    return {saturateToInt(from), saturateToInt(from + length)};
}

// Where on the screen a zoom out of the last frame shows it: in the middle, but
// towards an edge of the screen when half of the shrunk view reaches past that
// edge of the sheet. scale is below 1.
Extent prvTarget(int scroll, int sheetLength, int viewLength, double scale) {
    const double length = viewLength * scale;
    const double reach = length / 2;
    const double before = reach - scroll;
    const double after = reach - (static_cast<double>(sheetLength) - scroll - viewLength);
    const int middle = viewLength / 2;
    const double from = middle - reach - scale * std::max(0.0, before) + scale * std::max(0.0, after);
    return {saturateToInt(from), saturateToInt(from + length)};
}

} // namespace

bool Excel::handleGestureChange(double scale, double /*unused*/) {
    if (std::isnan(scale)) {
        return true;
    }
    const double requested = requestedScale(scale);
    const auto covers = [requested](int sheetLength, int viewLength) {
        return static_cast<float>(sheetLength * requested) >= static_cast<float>(viewLength);
    };
    if (covers(mSheetWidth, mWidth) && covers(mSheetHeight, mHeight)) {
        mGestureRequestScale = requested;
    }
    return true;
}

void Excel::handlePaintGesture(unsigned int* frameBuffer) {
    const double scale = mGestureRequestScale;
    const CpRect view(0, 0, mWidth, mHeight);
    const double x = mScroll.x;
    const double y = mScroll.y;
    if (scale > 1.0) {
        // About the middle of the sheet, wherever on the screen that is.
        const Extent columns = prvSource(mSheetWidth / 2 - x, mWidth, scale);
        const Extent rows = prvSource(mSheetHeight / 2 - y, mHeight, scale);
        mLastFrame.ScaleCopyToFit(CpRect(columns.from, rows.from, columns.to, rows.to), frameBuffer, view,
                                  mWidth, mHeight);
        mGestureScroll.set(saturateToInt((x + columns.from) * scale), saturateToInt((y + rows.from) * scale));
    } else if (scale < 1.0) {
        const Extent columns = prvTarget(mScroll.x, mSheetWidth, mWidth, scale);
        const Extent rows = prvTarget(mScroll.y, mSheetHeight, mHeight, scale);
        eraseBuffer(frameBuffer, framePixels());
        mLastFrame.ScaleCopyToFit(view, frameBuffer, CpRect(columns.from, rows.from, columns.to, rows.to),
                                  mWidth, mHeight);
        mGestureScroll.set(saturateToInt(x * scale - columns.from), saturateToInt(y * scale - rows.from));
    } else {
        eraseBuffer(frameBuffer, framePixels());
        mLastFrame.CopyBits(view, frameBuffer);
        mGestureScroll = mScroll;
    }
    mGestureAppliedScale = scale;
}
