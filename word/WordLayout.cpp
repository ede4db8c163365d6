// SPDX-License-Identifier: Apache-2.0
// The size of the layout and the operations that change it: wide mode, double tap and
// pinch.
#include "raster/Saturate.h"
#include "word/Word.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int ZOOM_LEVELS = 3;
constexpr long long MAX_SURFACE_PIXELS = 64LL * 1024 * 1024 / 4;

long long prvPixels(const TextStretch::Size& size) {
    return static_cast<long long>(size.width) * size.height;
}

// The position of one axis of mScroll that centres a point of the view. A point
// outside the view is moved to its edge, because the stretch would otherwise follow
// a tap to any distance.
int prvCentred(int scroll, int point, double ratio, int viewLength) {
    const int half = viewLength / 2;
    return saturateToInt((static_cast<double>(scroll) + std::clamp(point, 0, viewLength)) * ratio - half);
}

} // namespace

double Word::layoutWidth(double scale) const {
    const double factor = mWideMode ? scale + scale : 1.0;
    return std::max(1.0, factor * mWidth);
}

// The wanted zoom, or the largest lower zoom whose surface fits into 64 MiB. Does not
// go below mMinScale for that.
double Word::fittingScale(double scale) const {
    const double wanted = bearableScale(scale);
    const TextStretch::Size size = TextStretch::sizeFor(layoutWidth(wanted), mHeight);
    if (!mWideMode || prvPixels(size) <= MAX_SURFACE_PIXELS) {
        return wanted;
    }
    const long long widest = MAX_SURFACE_PIXELS / size.height / 2 * 2;
    return std::clamp(static_cast<double>(widest) / (2.0 * mWidth), std::min(mMinScale, wanted), wanted);
}

void Word::resizeDocument() {
    layOut();
}

int Word::layOut() {
    mScale = fittingScale(mScale);
    if (!mWideMode) {
        mScroll.x = 0;
    }
    if (mDocument == nullptr) {
        return 0;
    }
    mRenderResult = mStretch.layOut(TextStretch::sizeFor(layoutWidth(mScale), mHeight),
                                    saturateToInt(mScale * mDotsPerInch));
    mDocPixmap = mStretch.surface();
    return mRenderResult;
}

void Word::setWideMode(bool on) {
    closePopup();
    const bool wasOn = std::exchange(mWideMode, on);
    const double oldScale = mScale;
    const CpPoint oldScroll = mScroll;
    const bool hadPicture = mDocPixmap != nullptr;
    resizeDocument();
    if (mRenderResult != 0 && hadPicture) {
        mWideMode = wasOn;
        mScale = oldScale;
        mScroll = oldScroll;
        return;
    }
    // Ends drags and glides, because their positions belong to the old layout.
    mScroller.Stop();
    mScroll.set(0, 0);
    mPenDownScroll.set(0, 0);
}

// Scaling rows by the ratio keeps the place only approximately, because a reflow also
// moves text. The character at the stretch's top is kept exactly.
bool Word::relayoutKeepingPlace(double ratio) {
    const bool hadPicture = mDocPixmap != nullptr;
    const int oldTop = hadPicture ? mStretch.top() : 0;
    recenterDocument();
    resizeDocument();
    mOffscreenDirty = true;
    setDirty();
    if (mRenderResult != 0 && hadPicture) {
        return false;
    }
    if (mDocPixmap != nullptr) {
        mStretch.place(saturateToInt(oldTop * ratio));
    }
    return true;
}

bool Word::handleDoubleClick(int x, int y) {
    if (mGestureActive) {
        return true;
    }
    mClicked = true;
    MutexLock guard;
    if (guard.lock(&mMutex) != 0) {
        return true;
    }
    closePopup();
    const double oldScale = mScale;
    const int oldLevel = mScaleLevel;
    const CpPoint oldScroll = mScroll;
    mScaleLevel = (mScaleLevel + 1) % ZOOM_LEVELS;
    mScale = fittingScale(mBaseScale + mScaleLevel * mBaseScale);
    const double ratio = mScale / oldScale;
    if (!relayoutKeepingPlace(ratio)) {
        mScale = oldScale;
        mScaleLevel = oldLevel;
        mScroll = oldScroll;
        return true;
    }
    if (mWideMode) {
        mScroll.x = prvCentred(mScroll.x, x, ratio, mWidth);
    }
    mScroll.y = prvCentred(mScroll.y, y, ratio, mHeight);
    if (mDocPixmap != nullptr) {
        coverTappedPosition();
    }
    ReinitSearchRects();
    return true;
}

// Moves the stretch under the view after a double tap. Does not clamp the view at the
// top: it may start above row 0, so that the tapped point is in its centre.
void Word::coverTappedPosition() {
    const int amount = std::max(mStretch.size().step, mHeight);
    if (saturatedSum(mScroll.y, mHeight) > mStretch.bottom()) {
        if (mStretch.askTextBelow()) {
            mStretch.advance(saturateToInt(static_cast<long long>(mScroll.y) + amount - mStretch.bottom()));
        } else {
            mScroll.y = saturatedDifference(mStretch.bottom(), mHeight);
        }
    }
    if (mScroll.y < mStretch.top() && mStretch.askTextAbove()) {
        mStretch.moveUp(amount);
    }
}

bool Word::handleGestureEnd(double /*scale*/, double /*unused*/) {
    {
        MutexLock guard;
        if (guard.lock(&mMutex) != 0) {
            return true;
        }
        mGestureActive = false;
        mPenDown = false;
        const bool closed = closePopup();
        mDrawMode = _NORMAL;
        const double oldScale = mScale;
        const CpPoint oldScroll = mScroll;
        const bool zoomed = takeGestureScale();
        if (!zoomed && !closed) {
            return true;
        }
        if (zoomed) {
            const double wanted = mScale;
            mScale = fittingScale(wanted);
            mScroll.set(0, mScale == wanted ? mGestureScroll.y
                                            : saturateToInt(mGestureScroll.y * (mScale / wanted)));
            if (!relayoutKeepingPlace(mScale / oldScale)) {
                mScale = oldScale;
                mScroll = oldScroll;
            }
            ReinitSearchRects();
        }
        settle();
    }
    InvalidateScreen();
    return true;
}
