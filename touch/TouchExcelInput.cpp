// SPDX-License-Identifier: Apache-2.0
// Pens and taps. A contact that begins on the headers selects or resizes columns and rows
// as in the defined view; any other one moves the view.
#include "raster/Saturate.h"
#include "touch/TouchExcel.h"

#include <algorithm>
#include <utility>

namespace {

// A double tap that would zoom in by less than this seems to do nothing.
constexpr double LEAST_STEP = 1.1;

} // namespace

bool TouchExcel::handlePenDown(int x, int y) {
    mStroke = HeaderStroke();
    TouchHandling::handlePenDown(x, y);
    if (mPenDown && !mTapStoppedScroll && isOpen()) {
        takeChanges();
        beginHeaderStroke({x, y});
    }
    return true;
}

bool TouchExcel::handlePenMove(int x, int y) {
    return mPenDown && mStroke.isAny() ? Excel::handlePenMove(x, y) : TouchHandling::handlePenMove(x, y);
}

bool TouchExcel::handlePenUp(int x, int y) {
    if (mPenDown && mStroke.isAny()) {
        const bool hadSelection = std::exchange(mSelectionActive, false);
        Excel::handlePenUp(x, y);
        noteSelectedTracks();
        mSelectionActive = mSelectionActive || hadSelection;
        return true;
    }
    mStroke = HeaderStroke();
    return TouchHandling::handlePenUp(x, y);
}

bool TouchExcel::handleFlick(int vx, int vy) {
    return (mPenDown && mStroke.isAny()) || TouchHandling::handleFlick(vx, vy);
}

// The guide is drawn by each paint.
void TouchExcel::moveGuide(const TrackKind& /*tracks*/, const CpPoint& pen) {
    mStrokePoint = pen;
}

bool TouchExcel::isOnSheet(const CpPoint& point) const {
    const CpPoint header = corner();
    const CpPoint place = documentPoint(point);
    return isOpen() && point.x >= header.x && point.y >= header.y && place.x < mSheetWidth &&
           place.y < mSheetHeight;
}

bool TouchExcel::handleClick(int x, int y) {
    if (mTapStoppedScroll || mGestureActive || !isOpen()) {
        return TouchHandling::handleClick(x, y);
    }
    takeChanges();
    const CpPoint tap(x, y);
    mTapped = CellRange();
    if (isOnHeaders(COLUMN_TRACKS, tap, 1) || isOnHeaders(ROW_TRACKS, tap, 1)) {
        forgetSelection();
        const bool used = Excel::handleClick(x, y);
        noteSelectedTracks();
        InvalidateScreen(); // the cell's frame is gone
        return used;
    }
    mClicked = true;
    forgetSelection();
    if (dropSelection()) {
        contentsChanged();
    } else {
        InvalidateScreen();
    }
    if (!isOnSheet(tap)) {
        return false;
    }
    tapCell(tap);
    return true;
}

void TouchExcel::tapCell(const CpPoint& tap) {
    mTapped = cellsAt(documentPoint(tap));
    SendDocMessage(_CELL_TAPPED, mTapped.first.column, mTapped.first.row);
    if (readComment(tap.x, tap.y)) {
        SendDocMessage(_COMMENT_TAPPED);
    }
}

// As wide as the screen beside the row headers, which grow too.
TapTarget TouchExcel::tapTarget(const CpPoint& point) {
    const TapTarget usual{fit() * TapTarget::ZOOM, point, point};
    if (!isOnSheet(point)) {
        return usual;
    }
    takeChanges();
    const CpPoint place = documentPoint(point);
    module_rect tapped{};
    CpRect area = cellsAt(place).place;
    if (mFunctions.getTapArea != nullptr &&
        mFunctions.getTapArea(mDocument, mCurrentSheet, place.x, place.y, &tapped) == 0) {
        area = CpRect(tapped.x, tapped.y, saturatedSum(tapped.x, tapped.width),
                      saturatedSum(tapped.y, tapped.height));
    }
    const CpPoint header = corner();
    const double fitting = mWidth / (static_cast<double>(std::max(1, area.Width())) + header.x);
    const double ratio = std::clamp(fitting, smallestZoom() / mScale, mMaxScale / mScale);
    if (area.Width() < 1 || (ratio < LEAST_STEP && ratio > 1.0 / LEAST_STEP)) {
        return usual;
    }
    const CpRect shown = onView(area);
    return {mScale * ratio,
            {shown.Left() + shown.Width() / 2, point.y},
            {saturateToInt((header.x * ratio + mWidth) / 2), point.y}};
}
