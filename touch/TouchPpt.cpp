// SPDX-License-Identifier: Apache-2.0
#include "touch/TouchPpt.h"

#include "raster/Saturate.h"

CpPoint TouchPpt::moveTo(const CpPoint& wanted) {
    mScroll = wanted;
    clampPosition(mScroll.x, mScroll.y);
    return {saturatedDifference(wanted.x, mScroll.x), saturatedDifference(wanted.y, mScroll.y)};
}

void TouchPpt::zoomAbout(double scale, const CpPoint& from, const CpPoint& to) {
    const double ratio = scale / mScale;
    const double x = (static_cast<double>(mScroll.x) + from.x) * ratio;
    const double y = (static_cast<double>(mScroll.y) + from.y) * ratio;
    mScale = scale;
    resizeDocument();
    moveTo({saturateToInt(x - to.x), saturateToInt(y - to.y)});
    mOffscreenDirty = true;
    ReinitSearchRects();
}

void TouchPpt::layOutForSize() {
    mBaseScale = scaleForWidth(mWidth);
    mScale = mBaseScale;
    resizeDocument();
    mOffscreenDirty = true;
    moveTo(mScroll);
}

void TouchPpt::handlePaintGesture(unsigned int* frameBuffer) {
    eraseBuffer(frameBuffer, framePixels());
    mLastFrame.ScaleCopyToFit(CpRect(0, 0, mWidth, mHeight), frameBuffer,
                              pinchAnchor().preview(CpRect(0, 0, mWidth, mHeight)), mWidth, mHeight);
}

ViewPlace TouchPpt::place() const {
    ViewPlace place;
    if (mSurface != nullptr) {
        place.documentWidth = mSurface->Width();
        place.documentHeight = mSurface->Height();
    }
    place.view =
        CpRect(mScroll.x, mScroll.y, saturatedSum(mScroll.x, mWidth), saturatedSum(mScroll.y, mHeight));
    place.zoom = mScale;
    place.smallestZoom = mMinScale;
    place.largestZoom = mMaxScale;
    place.fit = mBaseScale;
    place.part = mCurrentSlide;
    place.parts = mSlideCount;
    place.isMoving = glide().isMoving();
    return place;
}
