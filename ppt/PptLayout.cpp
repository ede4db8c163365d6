// SPDX-License-Identifier: Apache-2.0
// The size of the surface, the position of the view and the current slide.
#include "ppt/PPT.h"
#include "raster/Saturate.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr long long MOST_PIXELS = (64LL << 20) / 4; // the limit of a surface: 64 MiB of 4-byte pixels
// A pinch's first frame is not limited by the zoom limits. Scales are limited to
// this factor above and below them, to keep arithmetic in range.
constexpr double BEYOND_LIMITS = 16.0;

int prvEvenLength(int units, double scale) {
    const int length = saturateToInt(units * scale);
    return length % 2 == 0 ? length : saturatedSum(length, 1);
}

// Clamps one axis. True if the value was changed or the slide is centred.
bool prvClampAxis(int& value, int max) {
    if (max < 0) {
        value = max / 2;
        return true;
    }
    const int wanted = value;
    value = std::clamp(value, 0, max);
    return value != wanted;
}

} // namespace

CpPoint PPT::surfaceSize(double scale) const {
    return {prvEvenLength(mSlideWidth, scale), prvEvenLength(mSlideHeight, scale)};
}

double PPT::possibleScale(double wanted) const {
    const auto fits = [this](double scale) {
        const CpPoint size = surfaceSize(scale);
        return static_cast<long long>(size.x) * size.y <= MOST_PIXELS;
    };
    double tooLarge = std::min(wanted, BEYOND_LIMITS * mMaxScale);
    if (fits(tooLarge)) {
        return tooLarge;
    }
    double fitting = 0.0;
    constexpr int HALVINGS = 64; // more than a double has digits
    for (int i = 0; i < HALVINGS; ++i) {
        const double middle = fitting + (tooLarge - fitting) / 2;
        (fits(middle) ? fitting : tooLarge) = middle;
    }
    return fitting;
}

double PPT::scaleForWidth(int pixels) const {
    return mSlideWidth > 0 ? static_cast<double>(pixels) / mSlideWidth : mBaseScale;
}

void PPT::resizeDocument() {
    if (mDocument == nullptr) {
        return;
    }
    mScale = possibleScale(std::max(mScale, mMinScale / BEYOND_LIMITS));
    const CpPoint size = surfaceSize(mScale);
    mSurface.reset(); // frees the old surface first, because both may be large
    mSurface = std::make_unique<CpPixmap>(size.x, size.y);
    mDocPixmap = mSurface.get();
}

bool PPT::clampPosition(int& x, int& y) const {
    if (mSurface == nullptr) {
        return false;
    }
    return clampPosition(x, y, saturatedDifference(mSurface->Width(), mWidth),
                         saturatedDifference(mSurface->Height(), mHeight));
}

bool PPT::clampPosition(int& x, int& y, int maxX, int maxY) const {
    const bool movedX = prvClampAxis(x, maxX);
    const bool movedY = prvClampAxis(y, maxY);
    return movedX && movedY;
}

void PPT::setFitWideMode(const char* mode) {
    const std::string_view text = mode != nullptr ? mode : "";
    if (text == "right") {
        mDrawMode = _RIGHT;
    } else if (text == "left") {
        mDrawMode = _LEFT;
    } else if (text == "down") {
        mDrawMode = _DOWN;
    } else {
        mDrawMode = mode == nullptr && mDrawMode == _NORMAL ? _WIDE : _NORMAL;
    }
    const bool onItsSide = mDrawMode == _RIGHT || mDrawMode == _LEFT || mDrawMode == _WIDE;
    mScale = onItsSide ? scaleForWidth(mHeight) : mBaseScale;
    resizeDocument();
    mOffscreenDirty = true;
    InvalidateScreen();
}

bool PPT::handleFlick(int vx, int vy) {
    if (!mGestureActive) {
        mScroller.Setup(mScroll.x, mScroll.y, vx, vy);
    }
    return true;
}

int PPT::jumpToSlide(int index) {
    mCurrentSlide = std::clamp(index, 0, std::max(0, mSlideCount - 1));
    mOffscreenDirty = true;
    SendDocMessage(_SLIDE_CHANGED, mCurrentSlide);
    return mCurrentSlide;
}
