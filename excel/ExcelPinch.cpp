// SPDX-License-Identifier: Apache-2.0
// Pinches: the module renders nothing until the pinch ends. Until then, paints show
// the last frame, scaled.
#include "excel/Excel.h"
#include "raster/Saturate.h"
#include "view/PinchGeometry.h"

#include <algorithm>
#include <cmath>

namespace {

// One axis of the part of the last frame that fills the screen when zooming in: it
// is centred on `middle`, but stays inside the frame. scale is above 1.
Extent prvSource(double middle, int viewLength, double scale) {
    const double length = viewLength / scale;
    const double from = std::clamp(middle - length / 2, 0.0, viewLength - length);
    return {saturateToInt(from), saturateToInt(from + length)};
}

// One axis of the place of the last frame on the screen when zooming out: in the
// centre, but towards an edge of the screen if half of the shrunk view reaches past
// that edge of the sheet. scale is below 1.
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
    if (scale > 1.0) {
        // Centred on the middle of the sheet and not of the screen.
        const int halfWidth = mSheetWidth / 2;
        const int halfHeight = mSheetHeight / 2;
        magnifyLastFrame(frameBuffer, scale,
                         rectangleOf(prvSource(halfWidth - static_cast<double>(mScroll.x), mWidth, scale),
                                     prvSource(halfHeight - static_cast<double>(mScroll.y), mHeight, scale)));
    } else {
        shrinkLastFrame(frameBuffer, scale,
                        rectangleOf(prvTarget(mScroll.x, mSheetWidth, mWidth, scale),
                                    prvTarget(mScroll.y, mSheetHeight, mHeight, scale)));
    }
}
