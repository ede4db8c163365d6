// SPDX-License-Identifier: Apache-2.0
// Painting: copying the surface into the client's frame buffer.
#include "raster/Saturate.h"
#include "view/OfficeBase.h"

#include <algorithm>
#include <climits>
#include <cstring>

namespace {

// The rectangle of a view's size at a position. A position near the limit of int, where
// no surface reaches, is moved so that the rectangle keeps its size.
CpRect prvSourceRect(int left, int top, int width, int height) {
    const int x = std::min(left, INT_MAX - std::max(width, 0));
    const int y = std::min(top, INT_MAX - std::max(height, 0));
    return {x, y, saturatedSum(x, width), saturatedSum(y, height)};
}

} // namespace

int OfficeBase::drawOffscreenBuffer() {
    return 0;
}

unsigned int OfficeBase::framePixels() const {
    return mWidth > 0 && mHeight > 0 ? static_cast<unsigned int>(mWidth) * static_cast<unsigned int>(mHeight)
                                     : 0;
}

void OfficeBase::eraseBuffer(unsigned int* frameBuffer, unsigned int count) const {
    FillPixels(frameBuffer, count, 0xFF000000U);
}

void OfficeBase::handlePaintRouter(unsigned int* frameBuffer) {
    if (mDocPixmap == nullptr || !mDirty) {
        return;
    }
    mDirty = false;
    if (mGestureActive) {
        handlePaintGesture(frameBuffer);
    } else if (between(_WIDE, mDrawMode, _DOWN)) {
        handlePaintWide(frameBuffer);
    } else {
        handlePaint(frameBuffer);
    }
    // Saves after each paint, so that the position survives a crash. While a pop-up
    // is shown, the record keeps the position in the page below it.
    if (!showsPopup()) {
        SaveStateToDataStore();
    }
}

void OfficeBase::handlePaint(unsigned int* frameBuffer) {
    MutexLock guard;
    if (guard.lock(&mMutex) != 0) {
        return;
    }
    tick();
    if (mOffscreenDirty) {
        drawOffscreenBuffer();
    }
    if (repeatLastFrame(frameBuffer)) {
        return;
    }
    const CpRect source = prvSourceRect(saturatedDifference(mScroll.x, mDocPixmap->Left()),
                                        saturatedDifference(mScroll.y, mDocPixmap->Top()), mWidth, mHeight);
    unsigned int background = 0;
    eraseBuffer(&background, 1); // its colour, for what the surface does not cover
    mHasShown = !mUnrendered;
    // A highlight belongs into the last frame too, so that is copied after the drawing.
    const bool highlighted = mCurrentResult > -1;
    mDocPixmap->CopyFrame(source, background, frameBuffer, highlighted ? nullptr : mLastFrame.Pixels());
    if (highlighted) {
        CpPixmap frame(frameBuffer, mWidth, mHeight);
        drawCurrentResult(&frame);
        keepFrame(frameBuffer);
    }
}

void OfficeBase::handlePaintWide(unsigned int* frameBuffer) {
    MutexLock guard;
    if (guard.lock(&mMutex) != 0) {
        return;
    }
    if (mOffscreenDirty) {
        drawOffscreenBuffer();
    }
    if (repeatLastFrame(frameBuffer)) {
        return;
    }
    // The device lies on its side, so width and height of the view are exchanged.
    const CpRect source = prvSourceRect(mDocPixmap->Left(), mDocPixmap->Top(), mHeight, mWidth);
    eraseBuffer(frameBuffer, framePixels());
    switch (mDrawMode) {
    case _RIGHT:
        mDocPixmap->CopyBitsRotatedLeft(source, frameBuffer);
        break;
    case _LEFT:
        mDocPixmap->CopyBitsRotatedRight(source, frameBuffer);
        break;
    case _DOWN:
        mDocPixmap->CopyBitsRotated180(source, frameBuffer);
        break;
    default: // _WIDE: views that use it override this function
        break;
    }
    keepFrame(frameBuffer);
}

bool OfficeBase::repeatLastFrame(unsigned int* frameBuffer) {
    if (!mUnrendered || !mHasShown || mLastFrame.Pixels() == nullptr) {
        return false;
    }
    mOffscreenDirty = true;
    std::memcpy(frameBuffer, mLastFrame.Pixels(), framePixels() * sizeof *frameBuffer);
    return true;
}

void OfficeBase::keepFrame(const unsigned int* frameBuffer) {
    mHasShown = !mUnrendered;
    if (mLastFrame.Pixels() != nullptr) {
        std::memcpy(mLastFrame.Pixels(), frameBuffer, framePixels() * sizeof *frameBuffer);
    }
}

void OfficeBase::magnifyLastFrame(unsigned int* frameBuffer, double scale, const CpRect& part) {
    const CpPoint page = pagePosition();
    mLastFrame.ScaleCopyToFit(part, frameBuffer, CpRect(0, 0, mWidth, mHeight), mWidth, mHeight);
    mGestureScroll.set(saturateToInt((static_cast<double>(page.x) + part.Left()) * scale),
                       saturateToInt((static_cast<double>(page.y) + part.Top()) * scale));
    mGestureAppliedScale = scale;
}

void OfficeBase::shrinkLastFrame(unsigned int* frameBuffer, double scale, const CpRect& target) {
    if (scale < 1.0) {
        fitLastFrame(frameBuffer, scale, target);
        return;
    }
    eraseBuffer(frameBuffer, framePixels());
    mLastFrame.CopyBits(CpRect(0, 0, mWidth, mHeight), frameBuffer);
    mGestureScroll = pagePosition();
    mGestureAppliedScale = scale;
}

void OfficeBase::fitLastFrame(unsigned int* frameBuffer, double scale, const CpRect& target) {
    const CpPoint page = pagePosition();
    eraseBuffer(frameBuffer, framePixels());
    mLastFrame.ScaleCopyToFit(CpRect(0, 0, mWidth, mHeight), frameBuffer, target, mWidth, mHeight);
    mGestureScroll.set(saturateToInt(page.x * scale - target.Left()),
                       saturateToInt(page.y * scale - target.Top()));
    mGestureAppliedScale = scale;
}
