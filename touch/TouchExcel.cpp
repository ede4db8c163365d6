// SPDX-License-Identifier: Apache-2.0
#include "touch/TouchExcel.h"

#include "raster/Saturate.h"

CpPoint TouchExcel::moveTo(const CpPoint& wanted) {
    mScroll = wanted;
    clampPosition(mScroll.x, mScroll.y);
    return {saturatedDifference(wanted.x, mScroll.x), saturatedDifference(wanted.y, mScroll.y)};
}

void TouchExcel::cover() {
    CpRect view;
    CpRect window;
    getViewDocBounds(view);
    getOffscreenDocBounds(window);
    const bool covered = window.Left() <= view.Left() && window.Top() <= view.Top() &&
                         view.Right() <= window.Right() && view.Bottom() <= window.Bottom();
    if (isOpen() && !covered) {
        recenterDocument();
        mOffscreenDirty = true;
    }
}

void TouchExcel::zoomAbout(double scale, const CpPoint& from, const CpPoint& to) {
    const CpPoint header = corner();
    const double ratio = scale / mScale;
    const double x = (static_cast<double>(mScroll.x) + from.x - header.x) * ratio;
    const double y = (static_cast<double>(mScroll.y) + from.y - header.y) * ratio;
    mScale = scale;
    resizeDocument();
    const CpPoint newHeader = corner();
    moveTo({saturateToInt(x - to.x + newHeader.x), saturateToInt(y - to.y + newHeader.y)});
    recenterDocument();
    mOffscreenDirty = true;
    ReinitSearchRects();
}

void TouchExcel::layOutForSize() {
    recenterDocument();
    resizeDocument();
    mOffscreenDirty = true;
    moveTo(mScroll);
}

void TouchExcel::handlePaintGesture(unsigned int* frameBuffer) {
    FillPixels(frameBuffer, framePixels(), 0xFFFFFFFF);
    mLastFrame.ScaleCopyToFit(CpRect(0, 0, mWidth, mHeight), frameBuffer,
                              pinchAnchor().preview(CpRect(0, 0, mWidth, mHeight)), mWidth, mHeight);
}

ViewPlace TouchExcel::place() const {
    ViewPlace place;
    place.documentWidth = mSheetWidth;
    place.documentHeight = mSheetHeight;
    place.view =
        CpRect(mScroll.x, mScroll.y, saturatedSum(mScroll.x, mWidth), saturatedSum(mScroll.y, mHeight));
    place.zoom = mScale;
    place.smallestZoom = mMinScale;
    place.largestZoom = mMaxScale;
    place.part = mCurrentSheet;
    place.parts = mSheetCount;
    place.isMoving = glide().isMoving();
    return place;
}
