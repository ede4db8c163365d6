// SPDX-License-Identifier: Apache-2.0
// Painting: the rendered part of the sheet, the marks over it, and the preview of a zoom.
#include "raster/Saturate.h"
#include "touch/TouchExcel.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr uint32_t TAPPED_COLOUR = 0xFF1A66D0;
constexpr uint32_t GUIDE_COLOUR = 0xFF404040;
constexpr double LINE_INCHES = 0.0125; // two pixels of a screen with 160 dots per inch
// The usual size of a cell without contents, in inches.
constexpr double CELL_WIDTH = 0.89;
constexpr double CELL_HEIGHT = 0.178;

bool prvContains(const CpRect& outer, const CpRect& inner) {
    return outer.Left() <= inner.Left() && outer.Top() <= inner.Top() && inner.Right() <= outer.Right() &&
           inner.Bottom() <= outer.Bottom();
}

// The first pixel of a window of this length whose middle is that of the view.
int prvCentredEdge(int from, int shown, int length, int sheetLength) {
    const int edge = saturatedDifference(from, std::max(0, length - shown) / 2);
    return std::clamp(edge, 0, std::max(0, saturatedDifference(sheetLength, length)));
}

// The first document pixel of the preview on one axis. `begun` and `point` are where the
// fingers were and are. It stays in the sheet, as the view does after the zoom.
double prvPreviewEdge(int scroll, int header, int begun, int point, double scale, int viewLength,
                      int sheetLength) {
    const double edge = static_cast<double>(scroll) - header + begun + (header * scale - point) / scale;
    const double shown = viewLength / scale - header;
    return std::clamp(edge, 0.0, std::max(0.0, sheetLength - shown));
}

} // namespace

// A window that cannot be rendered keeps what was rendered before.
int TouchExcel::drawOffscreenBuffer() {
    mRenderResult = mModule.stg_render_sheet(mDocument, mCurrentSheet, mCells->Left(), mCells->Top());
    mUnrendered = mRenderResult != 0;
    if (!mUnrendered) {
        drawCommentMarks();
        mRendered = static_cast<const CpRect&>(*mCells);
        mIsStale = false;
    }
    return 0;
}

void TouchExcel::handlePaint(unsigned int* frameBuffer) {
    MutexLock guard;
    if (guard.lock(&mMutex) != 0) {
        return;
    }
    tick();
    if (mIsStale) {
        drawOffscreenBuffer();
    }
    draw(frameBuffer, {static_cast<double>(mScroll.x), static_cast<double>(mScroll.y), 1.0, corner()});
}

void TouchExcel::handlePaintGesture(unsigned int* frameBuffer) {
    MutexLock guard;
    if (!isOpen() || guard.lock(&mMutex) != 0) {
        return;
    }
    const SheetPlace place = previewPlace();
    if (!prvContains(mRendered, SheetScreen(frameBuffer, mWidth, mHeight, place).shown())) {
        coverAround();
    }
    draw(frameBuffer, place);
}

// As far as the window reaches on all sides of the view. During a pinch the view stays,
// so this renders once.
void TouchExcel::coverAround() {
    const CpRect shown = shownCells();
    placeWindow(prvCentredEdge(shown.Left(), shown.Width(), mCells->Width(), mSheetWidth),
                prvCentredEdge(shown.Top(), shown.Height(), mCells->Height(), mSheetHeight));
    if (mIsStale) {
        drawOffscreenBuffer();
    }
}

SheetPlace TouchExcel::previewPlace() const {
    const PinchAnchor& pinch = pinchAnchor();
    const double scale = pinch.previewFactor();
    const CpPoint header = corner();
    SheetPlace place;
    place.scale = scale;
    place.header = {saturateToInt(std::round(header.x * scale)), saturateToInt(std::round(header.y * scale))};
    place.left =
        prvPreviewEdge(mScroll.x, header.x, pinch.begun().x, pinch.point().x, scale, mWidth, mSheetWidth);
    place.top =
        prvPreviewEdge(mScroll.y, header.y, pinch.begun().y, pinch.point().y, scale, mHeight, mSheetHeight);
    return place;
}

void TouchExcel::draw(unsigned int* frameBuffer, const SheetPlace& place) {
    SheetScreen screen(frameBuffer, mWidth, mHeight, place);
    if (!prvContains(mRendered, screen.shown())) {
        const double dots = mDotsPerInch * mScale;
        screen.drawGround({mSheetWidth, mSheetHeight},
                          {saturateToInt(CELL_WIDTH * dots), saturateToInt(CELL_HEIGHT * dots)});
    }
    if (!mRendered.Empty()) {
        screen.drawCells(*mCells, mRendered);
        screen.drawHeaders(*mRowHeaders, *mColumnHeaders, mRendered);
    }
    screen.drawCorner();
    drawMarks(screen);
}

int TouchExcel::lineThickness() const {
    return std::max(2, saturateToInt(std::round(LINE_INCHES * mDotsPerInch)));
}

void TouchExcel::drawMarks(SheetScreen& screen) {
    if (mSearch.sheet == mCurrentSheet && currentRegion() != nullptr) {
        screen.tint(hitPlace(), CURRENT_HIT_COLOUR);
    }
    if (mTapped.sheet == mCurrentSheet && !mTapped.place.Empty()) {
        screen.drawFrame(mTapped.place, lineThickness(), TAPPED_COLOUR);
    }
    if (mResizeMode) {
        screen.drawVeil(RESIZE_MODE_VEIL);
    }
    if (mStroke.resizesColumn) {
        screen.drawVerticalGuide(mStrokePoint.x, lineThickness(), GUIDE_COLOUR);
    } else if (mStroke.resizesRow) {
        screen.drawHorizontalGuide(mStrokePoint.y, lineThickness(), GUIDE_COLOUR);
    }
}
