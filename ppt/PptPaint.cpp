// SPDX-License-Identifier: Apache-2.0
// Rendering slides, marking the current hit, and painting pinches.
#include "ppt/PPT.h"
#include "raster/Saturate.h"
#include "view/DrawingBudget.h"
#include "view/PinchGeometry.h"

#include <cstdio>

namespace {

constexpr uint32_t CURRENT_HIT_COLOUR = 0x40FF0000;

// One axis of the part of the last frame that fills the view when zooming in: it is
// centred on `middle`, in whole pixels, and moved if it reaches outside the frame.
// scale is above 1.
Extent prvSource(double middle, int viewLength, double scale) {
    const double half = 0.5 * viewLength / scale;
    Extent part = {saturateToInt(middle - half), saturateToInt(middle + half)};
    if (part.from < 0) {
        part = {0, saturatedDifference(part.to, part.from)};
    }
    if (part.to > viewLength) {
        part = {part.from - (part.to - viewLength), viewLength};
    }
    return part;
}

// One axis of the place of the last frame in the view when zooming out. Slide and
// background shrink together towards the centre of the view, but not past an edge of
// the slide. slideLength is in pixels before the zoom. scale is below 1.
Extent prvTarget(int scroll, double slideLength, int viewLength, double scale) {
    const double length = viewLength * scale;
    const int middle = viewLength / 2;
    double from = 0.0;
    double to = 0.0;
    if (viewLength > slideLength * scale) {
        from = middle - 0.5 * slideLength * scale + scroll * scale;
        to = from + length;
    } else {
        from = middle - 0.5 * length;
        to = middle + 0.5 * length;
        const double reach = 0.5 * viewLength / scale - middle;
        const double after = slideLength - scroll - viewLength;
        if (reach > scroll) {
            from -= (reach - scroll) * scale;
            to -= (reach - scroll) * scale;
        }
        if (reach > after) {
            from += (reach - after) * scale;
            to += (reach - after) * scale;
        }
    }
    return {saturateToInt(from), saturateToInt(to)};
}

} // namespace

int PPT::drawOffscreenBuffer() {
    if (mSurface == nullptr) {
        std::fputs("drawOffscreenBuffer: no allocated buffer\n", stderr);
        return 0;
    }
    mOffscreenDirty = false;
    mUnrendered = false;
    if (mSurface->Pixels() == nullptr) {
        return 0; // no slide, or a side shrunk to 0 pixels
    }
    mRenderResult = mModule.sstg_render_slide(mDocument, mCurrentSlide, 0, mSurface->Pixels(),
                                              mSurface->Width(), mSurface->Height());
    mUnrendered = mRenderResult != 0;
    return mRenderResult;
}

int PPT::drawCurrentResult(CpPixmap* frame) {
    if (isSearching() && isHitSlideShown() && mRegionsOf != rendering()) {
        fetchRegions();
    }
    const sstg_find_region* region = currentRegion();
    if (region == nullptr || mResults[mHitSlide].slide_hits < 1) {
        return 0;
    }
    const int left = saturatedDifference(mSurface->Left(), mScroll.x);
    const int top = saturatedDifference(mSurface->Top(), mScroll.y);
    DrawingBudget budget(*frame);
    for (const module_rect& hit : std::span(region->rectangles, region->rectangle_count)) {
        const int x = saturatedSum(left, hit.x);
        const int y = saturatedSum(top, hit.y);
        CpRect mark(x, y, saturatedSum(x, hit.width), saturatedSum(y, hit.height));
        if (budget.coversRect(mark)) {
            frame->DrawAlphaRectOnPix(mark, CURRENT_HIT_COLOUR);
        }
    }
    return 0;
}

// Limits the scale to that of the largest possible surface, because the pinch ends
// with that zoom.
void PPT::handlePaintGesture(unsigned int* frameBuffer) {
    const double wanted = mScale * mGestureRequestScale;
    const double possible = possibleScale(wanted);
    const double scale = possible < wanted ? possible / mScale : mGestureRequestScale;
    const double slideWidth = mSlideWidth * mScale;
    const double slideHeight = mSlideHeight * mScale;
    if (scale > 1.0) {
        // Centred on the middle of the slide and not of the view.
        const Extent columns = prvSource(slideWidth / 2 - mScroll.x, mWidth, scale);
        const Extent rows = prvSource(slideHeight / 2 - mScroll.y, mHeight, scale);
        magnifyLastFrame(frameBuffer, scale, rectangleOf(columns, rows));
    } else {
        const Extent columns = prvTarget(mScroll.x, slideWidth, mWidth, scale);
        const Extent rows = prvTarget(mScroll.y, slideHeight, mHeight, scale);
        shrinkLastFrame(frameBuffer, scale, rectangleOf(columns, rows));
    }
}
