// SPDX-License-Identifier: Apache-2.0
// How a view handles pens, clicks, flicks, keys and pinches.
#include "raster/Saturate.h"
#include "view/OfficeBase.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int KEY_STEP = 5; // pixels
constexpr int SCALE_LEVELS = 3;
constexpr double SMALLEST_SCALE = 1.0 / 16;
constexpr double LARGEST_SCALE = 64.0;
} // namespace

bool OfficeBase::handleKeyDown(int key, int /*modifiers*/) {
    switch (key) {
    case 'a':
        mScroll.x = saturatedDifference(mScroll.x, KEY_STEP);
        break;
    case 'd':
        mScroll.x = saturatedSum(mScroll.x, KEY_STEP);
        break;
    case 'w':
        mScroll.y = saturatedDifference(mScroll.y, KEY_STEP);
        break;
    case 's':
        mScroll.y = saturatedSum(mScroll.y, KEY_STEP);
        break;
    default:
        break;
    }
    return true;
}

bool OfficeBase::handleKeyUp(int /*key*/, int /*modifiers*/) {
    return true;
}

bool OfficeBase::handlePenDown(int x, int y) {
    if (mScroller.isMoving()) {
        mScroller.Stop();
        mTapStoppedScroll = true;
    }
    if (!mGestureActive) {
        mPenDown = true;
        mPenDownPoint.set(x, y);
        mPenDownScroll = mScroll;
    }
    return true;
}

CpPoint OfficeBase::draggedPosition(int x, int y) const {
    return {saturateToInt(static_cast<long long>(mPenDownScroll.x) + mPenDownPoint.x - x),
            saturateToInt(static_cast<long long>(mPenDownScroll.y) + mPenDownPoint.y - y)};
}

bool OfficeBase::handlePenMove(int x, int y) {
    if (mPenDown && !mGestureActive) {
        mScroll = draggedPosition(x, y);
        clampScroll();
    }
    return true;
}

bool OfficeBase::handlePenUp(int x, int y) {
    if (mPenDown && !mGestureActive && !mClicked && !mFlicking) {
        mScroll = draggedPosition(x, y);
        clampScroll();
    }
    mFlicking = false;
    mClicked = false;
    mPenDown = false;
    return true;
}

bool OfficeBase::handleClick(int /*x*/, int /*y*/) {
    if (mGestureActive) {
        return true;
    }
    mClicked = true;
    // A tap that stopped a glide has no other effect.
    const bool used = mTapStoppedScroll;
    mTapStoppedScroll = false;
    return used;
}

int OfficeBase::centredPosition(int scroll, int point, float ratio, int viewLength) {
    const double zoomed = static_cast<double>(ratio) * (static_cast<double>(point) + scroll);
    const int half = viewLength / 2;
    return saturateToInt(zoomed - half);
}

float OfficeBase::stepScaleLevel() {
    const double oldScale = mScale;
    mScaleLevel = (mScaleLevel + 1) % SCALE_LEVELS;
    mScale = mMinScale + (mScaleLevel + 1) * ((mMaxScale - mMinScale) * 0.25);
    return static_cast<float>(mScale / oldScale);
}

bool OfficeBase::handleDoubleClick(int x, int y) {
    if (mGestureActive) {
        return true;
    }
    mClicked = true;
    float ratio = 1.0F;
    {
        MutexLock guard;
        if (guard.lock(&mMutex) != 0) {
            return true;
        }
        const double oldScale = mScale;
        stepScaleLevel();
        relayout();
        // The layout may have limited mScale, so the ratio is computed after it.
        ratio = static_cast<float>(mScale / oldScale);
    }
    mScroll.set(centredPosition(mScroll.x, x, ratio, mWidth), centredPosition(mScroll.y, y, ratio, mHeight));
    clampScroll();
    InvalidateScreen();
    return true;
}

bool OfficeBase::handleFlick(int vx, int vy) {
    if (mGestureActive) {
        return true;
    }
    mFlicking = true;
    mScroller.Setup(mScroll.x, mScroll.y, vx, vy);
    mFlickUp = vy < 0;
    InvalidateScreen();
    return true;
}

bool OfficeBase::tick() {
    if (mScroller.isMoving()) {
        mScroller.tick(mScroll.x, mScroll.y);
        InvalidateScreen();
    }
    clampScroll();
    return mScroller.isMoving();
}

bool OfficeBase::handleGestureStart(double scale, double /*unused*/) {
    mGestureActive = true;
    mGestureAppliedScale = 1.0;
    mGestureRequestScale = std::isnan(scale) ? 1.0 : scale;
    return true;
}

bool OfficeBase::handleGestureChange(double scale, double /*unused*/) {
    if (!std::isnan(scale)) {
        mGestureRequestScale = requestedScale(scale);
    }
    return true;
}

double OfficeBase::requestedScale(double pinch) const {
    return std::max(mMinScale, std::min(mScale * pinch, mMaxScale)) / mScale;
}

double OfficeBase::bearableScale(double scale) {
    return std::clamp(scale, SMALLEST_SCALE, LARGEST_SCALE);
}

bool OfficeBase::handleGestureEnd(double /*scale*/, double /*unused*/) {
    mGestureActive = false;
    mPenDown = false;
    if (!takeGestureScale()) {
        return true;
    }
    mScroll = mGestureScroll;
    {
        MutexLock guard;
        if (guard.lock(&mMutex) != 0) {
            return true;
        }
        relayout();
    }
    InvalidateScreen();
    return true;
}

bool OfficeBase::takeGestureScale() {
    const double scale = mScale * mGestureAppliedScale;
    if (mGestureAppliedScale == 1.0 || !std::isfinite(scale) || scale <= 0.0) {
        return false;
    }
    mScale = scale;
    return true;
}

void OfficeBase::relayout() {
    recenterDocument();
    resizeDocument();
    mOffscreenDirty = true;
    ReinitSearchRects();
}
