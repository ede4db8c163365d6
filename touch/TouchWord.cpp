// SPDX-License-Identifier: Apache-2.0
#include "touch/TouchWord.h"

#include "raster/Saturate.h"

void TouchWord::renumber(int rows) {
    Word::renumber(rows);
    shiftDocument(0, rows);
}

CpPoint TouchWord::moveTo(const CpPoint& wanted) {
    if (mDocPixmap == nullptr) {
        return {0, 0};
    }
    mScroll = wanted;
    moveStretchUnderView(); // may renumber the rows, and with them mScroll
    const CpPoint reached = mScroll;
    clampScroll();
    return {saturatedDifference(reached.x, mScroll.x), saturatedDifference(reached.y, mScroll.y)};
}

void TouchWord::cover() {
    Word::cover();
}

void TouchWord::zoomAbout(double scale, const CpPoint& /*from*/, const CpPoint& to) {
    const double oldScale = mScale;
    mScale = fittingScale(scale);
    const double ratio = mScale / oldScale;
    const int row = saturateToInt((static_cast<double>(mScroll.y) + to.y) * ratio);
    relayoutKeepingPlace(ratio);
    moveTo({mScroll.x, saturatedDifference(row, to.y)});
    ReinitSearchRects();
}

void TouchWord::layOutForSize() {
    resizeDocument();
    settle();
}

void TouchWord::handlePaintGesture(unsigned int* frameBuffer) {
    eraseBuffer(frameBuffer, framePixels());
    mLastFrame.ScaleCopyToFit(CpRect(0, 0, mWidth, mHeight), frameBuffer,
                              pinchAnchor().preview(CpRect(0, 0, mWidth, mHeight)), mWidth, mHeight);
}

ViewPlace TouchWord::place() const {
    ViewPlace place;
    if (mDocPixmap != nullptr) {
        place.documentWidth = mDocPixmap->Width();
        place.documentHeight = mDocPixmap->Bottom();
    }
    place.view =
        CpRect(mScroll.x, mScroll.y, saturatedSum(mScroll.x, mWidth), saturatedSum(mScroll.y, mHeight));
    place.zoom = mScale;
    place.smallestZoom = mMinScale;
    place.largestZoom = mMaxScale;
    place.isMoving = glide().isMoving();
    return place;
}
