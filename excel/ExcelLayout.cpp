// SPDX-License-Identifier: Apache-2.0
// The positions of the sheet, its surfaces and the view, and the operations that
// change them: zooms and glides.
#include "excel/Excel.h"
#include "raster/Saturate.h"
#include "view/ModuleArray.h"

#include <algorithm>
#include <climits>

namespace {

// Gives the module a header strip to paint into. Creates a new strip if the size has
// changed, but keeps the previous one if the module refuses the new one.
void prvFit(void* doc, decltype(&stg_set_row_offscreen_buffer) setBuffer, std::unique_ptr<CpPixmap>& strip,
            int width, int height) {
    const auto give = [&](CpPixmap& pixmap) {
        return setBuffer(doc, 0, pixmap.Pixels(), pixmap.Width(), pixmap.Height());
    };
    if (strip != nullptr && strip->Width() == width && strip->Height() == height) {
        give(*strip);
        return;
    }
    auto fitting = std::make_unique<CpPixmap>(width, height);
    if (give(*fitting) == 0 || strip == nullptr) {
        strip = std::move(fitting);
    } else {
        give(*strip);
    }
}

// The first edge of a window centred on the view, at least 0. It is limited so that
// the other edge does not overflow int.
int prvWindowEdge(int scroll, int viewLength, int windowLength) {
    const long long edge = static_cast<long long>(scroll) - windowLength / 2 + viewLength / 2;
    return static_cast<int>(std::clamp<long long>(edge, 0, INT_MAX - windowLength));
}

// The position of one axis of mScroll that centres the tapped point in the cells
// after a zoom by ratio. `header` is the header's width or height before the zoom.
int prvCentred(int scroll, int point, int header, int viewLength, double ratio) {
    const double tapped = static_cast<double>(scroll) + point - header;
    return saturateToInt(ratio * tapped - 0.5 * (viewLength - header * ratio));
}

// The highest position of one axis of mScroll after a zoom by ratio. The lengths are
// those before the zoom.
int prvFurthest(int sheetLength, int header, int viewLength, double ratio) {
    return saturateToInt(header * ratio + (sheetLength * ratio - viewLength));
}

} // namespace

CpPoint Excel::corner() const {
    return isOpen() ? CpPoint(mRowHeaders->Width(), mColumnHeaders->Height()) : CpPoint(0, 0);
}

CpPoint Excel::documentPoint(const CpPoint& screenPoint) const {
    const CpPoint header = corner();
    return {saturateToInt(static_cast<long long>(mScroll.x) + screenPoint.x - header.x),
            saturateToInt(static_cast<long long>(mScroll.y) + screenPoint.y - header.y)};
}

void Excel::getViewDocBounds(CpRect& r) const {
    r.Set(mScroll.x, mScroll.y, saturatedSum(mScroll.x, mWidth), saturatedSum(mScroll.y, mHeight));
}

void Excel::getOffscreenDocBounds(CpRect& r) const {
    r = isOpen() ? static_cast<const CpRect&>(*mCells) : CpRect();
}

void Excel::resizeDocument() {
    layOut();
}

int Excel::layOut() {
    mScale = bearableScale(mScale);
    if (!isOpen()) {
        return 0;
    }
    const int width = mCells->Width();
    const int height = mCells->Height();
    const int code = mModule.stg_set_offscreen_buffer(mDocument, 0, mCells->Pixels(), width, height);
    mModule.stg_set_dpi(mDocument, saturateToInt(mDotsPerInch * mScale));
    mModule.stg_get_sheet_dimensions(mDocument, mCurrentSheet, &mSheetWidth, &mSheetHeight);

    int32_t left = 0;
    int32_t top = 0;
    int32_t rowHeaderWidth = mRowHeaders != nullptr ? mRowHeaders->Width() : 0;
    int32_t columnHeaderHeight = mColumnHeaders != nullptr ? mColumnHeaders->Height() : 0;
    mModule.stg_cell_bounds(mDocument, mCurrentSheet, -1, -1, &left, &top, &rowHeaderWidth,
                            &columnHeaderHeight);
    refreshCommentMarks();
    // At least one pixel, because modules refuse sizes below 1.
    prvFit(mDocument, mModule.stg_set_row_offscreen_buffer, mRowHeaders, std::clamp(rowHeaderWidth, 1, width),
           height);
    prvFit(mDocument, mModule.stg_set_column_offscreen_buffer, mColumnHeaders, width,
           std::clamp(columnHeaderHeight, 1, height));
    return code;
}

void Excel::refreshCommentMarks() {
    const stg_region* marks = nullptr;
    int32_t count = 0;
    mModule.stg_get_comment_marks_rects(mDocument, mCurrentSheet, &marks, &count);
    mCommentMarks = moduleArray(marks, count);
}

void Excel::recenterDocument() {
    if (!isOpen()) {
        return;
    }
    const int left = prvWindowEdge(mScroll.x, mWidth, mCells->Width());
    const int top = prvWindowEdge(mScroll.y, mHeight, mCells->Height());
    mCells->Set(left, top, left + mCells->Width(), top + mCells->Height());
}

bool Excel::clampPosition(int& x, int& y) const {
    // Adds the headers, which cover part of the view, so that the last column and row
    // can be shown completely.
    const CpPoint header = corner();
    return clampPosition(x, y, saturateToInt(static_cast<long long>(mSheetWidth) - mWidth + header.x),
                         saturateToInt(static_cast<long long>(mSheetHeight) - mHeight + header.y));
}

bool Excel::clampPosition(int& x, int& y, int maxX, int maxY) const {
    return OfficeBase::clampPosition(x, y, std::max(0, maxX), std::max(0, maxY));
}

bool Excel::handleDoubleClick(int x, int y) {
    if (mGestureActive) {
        return true;
    }
    mClicked = true;
    {
        MutexLock guard;
        if (guard.lock(&mMutex) != 0) {
            return true;
        }
        const CpPoint header = corner();
        const double ratio = stepScaleLevel();
        mScroll.set(prvCentred(mScroll.x, x, header.x, mWidth, ratio),
                    prvCentred(mScroll.y, y, header.y, mHeight, ratio));
        clampPosition(mScroll.x, mScroll.y, prvFurthest(mSheetWidth, header.x, mWidth, ratio),
                      prvFurthest(mSheetHeight, header.y, mHeight, ratio));
        relayout();
    }
    InvalidateScreen();
    return true;
}

bool Excel::handleFlick(int vx, int vy) {
    if (mGestureActive) {
        return true;
    }
    mFlicking = true;
    mScroller.Setup(mScroll.x, mScroll.y, vx, vy);
    return mScroller.isMoving();
}

bool Excel::tick() {
    if (!mScroller.isMoving()) {
        return false;
    }
    mScroller.tick(mScroll.x, mScroll.y);
    clampScroll();
    if (!mScroller.isMoving()) {
        StopHandler();
    }
    InvalidateScreen();
    return mScroller.isMoving();
}

void Excel::StopHandler() {
    recenterDocument();
    resizeDocument();
    mOffscreenDirty = true;
}
