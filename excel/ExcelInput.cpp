// SPDX-License-Identifier: Apache-2.0
// Pens and taps. A stroke that begins on the cells scrolls. A stroke that begins on
// the headers selects columns or rows or, in resize mode, moves a border.
#include "excel/Excel.h"
#include "raster/Saturate.h"
#include "view/JsonReply.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <cstdlib>

namespace {

// In resize mode the touch area of headers is twice as deep as drawn.
constexpr int RESIZE_DEPTH = 2;
// In pixels: a longer stroke selects; a tap closer to a border of the headers does
// not select.
constexpr int SELECTING_STROKE = 5;
constexpr int BORDER_WIDTH = 5;

constexpr uint32_t WIPED_GUIDE = 0xFFCCCCCC;
constexpr uint32_t SHOWN_GUIDE = 0x88000000;

constexpr int32_t COMMENT_CAPACITY = 1024;

} // namespace

bool Excel::isOnHeaders(const TrackKind& tracks, const CpPoint& pen, int depth) const {
    const CpPoint header = corner();
    return isOpen() && pen.*tracks.along > header.*tracks.along &&
           pen.*tracks.across < depth * (header.*tracks.across);
}

void Excel::trackAt(const TrackKind& tracks, int place, int& start, int& length) const {
    CpPoint point(0, 0);
    CpPoint topLeft(0, 0);
    CpPoint size(0, 0);
    point.*tracks.along = place;
    mModule.stg_cell_bounds(mDocument, mCurrentSheet, point.x, point.y, &topLeft.x, &topLeft.y, &size.x,
                            &size.y);
    start = topLeft.*tracks.along;
    length = size.*tracks.along;
}

bool Excel::handlePenDown(int x, int y) {
    if (mScroller.isMoving()) {
        mScroller.Stop();
        StopHandler();
        mTapStoppedScroll = true;
    }
    if (mGestureActive) {
        return false;
    }
    const CpPoint pen(x, y);
    mPenDown = true;
    mPenDownPoint = pen;
    mPenDownScroll = mScroll;
    beginHeaderStroke(pen);
    return true;
}

void Excel::beginHeaderStroke(const CpPoint& pen) {
    const int depth = mResizeMode ? RESIZE_DEPTH : 1;
    if (isOnHeaders(COLUMN_TRACKS, pen, depth)) {
        beginStroke(COLUMN_TRACKS, pen, mStroke.resizesColumn, mStroke.selectsColumns);
    } else if (isOnHeaders(ROW_TRACKS, pen, depth)) {
        beginStroke(ROW_TRACKS, pen, mStroke.resizesRow, mStroke.selectsRows);
    }
}

void Excel::beginStroke(const TrackKind& tracks, const CpPoint& pen, bool& resizes, bool& selects) {
    int& anchor = mAnchor.*tracks.along;
    int start = 0;
    int length = 0;
    anchor = documentPoint(pen).*tracks.along;
    trackAt(tracks, anchor, start, length);
    // A stroke in the first half of a track moves the border at its start, that is the
    // end of the track before it.
    if (mResizeMode && anchor < saturatedSum(start, length / 2)) {
        anchor = saturatedDifference(start, 1);
    }
    (mResizeMode ? resizes : selects) = true;
    mStrokePoint = pen;
}

bool Excel::handlePenMove(int x, int y) {
    if (mGestureActive) {
        return true;
    }
    const CpPoint pen(x, y);
    if (mStroke.resizesColumn) {
        moveGuide(COLUMN_TRACKS, pen);
    } else if (mStroke.resizesRow) {
        moveGuide(ROW_TRACKS, pen);
    } else if (mPenDown && !mStroke.selectsColumns && !mStroke.selectsRows) {
        mScroll = draggedPosition(x, y);
        clampPosition(mScroll.x, mScroll.y);
    }
    return true;
}

// Draws the guide at the pen's document pixel, used as a coordinate in the header
// strip without converting it.
void Excel::drawGuide(const TrackKind& tracks, const CpPoint& pen, uint32_t colour) {
    const int place = documentPoint(pen).*tracks.along;
    if (&tracks == &COLUMN_TRACKS) {
        mColumnHeaders->DrawVerticalAlphaLine(place, 0, mColumnHeaders->Height(), colour);
    } else {
        mRowHeaders->DrawHorizontalAlphaLine(place, 0, mRowHeaders->Width(), colour);
    }
}

void Excel::moveGuide(const TrackKind& tracks, const CpPoint& pen) {
    drawGuide(tracks, mStrokePoint, WIPED_GUIDE);
    drawGuide(tracks, pen, SHOWN_GUIDE);
    mStrokePoint = pen;
}

bool Excel::handlePenUp(int x, int y) {
    const CpPoint pen(x, y);
    if (mStroke.resizesColumn) {
        finishResize(COLUMN_TRACKS, pen);
    } else if (mStroke.resizesRow) {
        finishResize(ROW_TRACKS, pen);
    } else if (mStroke.selectsColumns && isSelectingStroke(COLUMN_TRACKS, pen)) {
        const int count = selectStroke(COLUMN_TRACKS, pen);
        SendDocMessage(count < 2 ? _COLUMN_SELECTED : _TRACKS_SELECTED);
    } else if (mStroke.selectsRows && isSelectingStroke(ROW_TRACKS, pen)) {
        selectStroke(ROW_TRACKS, pen);
        SendDocMessage(_TRACKS_SELECTED);
    } else if (mPenDown && !mStroke.selectsColumns && !mStroke.selectsRows) {
        finishScroll(pen);
    }
    mPenDown = false;
    mStroke = HeaderStroke();
    mFlicking = false;
    mClicked = false;
    return true;
}

void Excel::finishResize(const TrackKind& tracks, const CpPoint& pen) {
    moveGuide(tracks, pen);
    const int from = documentPoint(mPenDownPoint).*tracks.along;
    const int to = documentPoint(pen).*tracks.along;
    if (to != from) {
        (mModule.*tracks.resize)(mDocument, mCurrentSheet, mAnchor.*tracks.along,
                                 saturatedDifference(to, from));
        refreshCommentMarks();
        mOffscreenDirty = true;
    }
    SendDocMessage(_TRACK_RESIZED);
    InvalidateScreen();
}

// Moves the window only if the contact began at a position outside it. So a single
// long drag renders nothing.
void Excel::finishScroll(const CpPoint& pen) {
    if (mClicked || mFlicking || mGestureActive) {
        return;
    }
    mScroll = draggedPosition(pen.x, pen.y);
    clampPosition(mScroll.x, mScroll.y);
    CpRect window;
    getOffscreenDocBounds(window);
    if (!window.Contains(mPenDownScroll)) {
        recenterDocument();
        mOffscreenDirty = true;
    }
}

bool Excel::isSelectingStroke(const TrackKind& tracks, const CpPoint& pen) const {
    const long long way = static_cast<long long>(mPenDownPoint.*tracks.along) - pen.*tracks.along;
    return !mClicked && std::abs(way) > SELECTING_STROKE;
}

int Excel::selectTracks(const TrackKind& tracks, int from, int to) {
    CpPoint first(0, 0);
    CpPoint last(0, 0);
    first.*tracks.along = from;
    last.*tracks.along = to;
    mSelection = CpRect(first, last);
    int32_t count = 0;
    mModule.stg_set_highlight_color(mDocument, SELECTION_COLOUR);
    (mModule.*tracks.select)(mDocument, mCurrentSheet, from, to, &count);
    mSelectionActive = true;
    return count;
}

int Excel::selectStroke(const TrackKind& tracks, const CpPoint& pen) {
    const int from = documentPoint(mPenDownPoint).*tracks.along;
    const int to = documentPoint(pen).*tracks.along;
    const int count = selectTracks(tracks, std::min(from, to), std::max(from, to));
    contentsChanged();
    return count;
}

bool Excel::handleClick(int x, int y) {
    if (mGestureActive) {
        return true;
    }
    mClicked = true;
    const bool cleared = dropSelection();
    const CpPoint tap(x, y);
    if (isOnHeaders(COLUMN_TRACKS, tap, 1)) {
        if (selectTapped(COLUMN_TRACKS, tap, _COLUMN_SELECTED)) {
            return true;
        }
    } else if (isOnHeaders(ROW_TRACKS, tap, 1)) {
        if (selectTapped(ROW_TRACKS, tap, _TRACKS_SELECTED)) {
            return true;
        }
    } else if (readComment(x, y)) {
        SendDocMessage(_COMMENT_TAPPED);
        return true;
    }
    if (cleared) {
        contentsChanged();
        return true;
    }
    return OfficeBase::handleClick(x, y);
}

bool Excel::dropSelection() {
    if (!mSelectionActive) {
        return false;
    }
    mModule.stg_clear_selection(mDocument);
    mSelectionActive = false;
    return true;
}

// False for a tap on a border, which selects nothing.
bool Excel::selectTapped(const TrackKind& tracks, const CpPoint& tap, ClientMessageId notice) {
    const int place = documentPoint(tap).*tracks.along;
    int start = 0;
    int length = 0;
    // Slightly before a border, this looks up the track after it.
    trackAt(tracks, saturatedSum(place, BORDER_WIDTH), start, length);
    if (std::abs(static_cast<long long>(place) - start) < BORDER_WIDTH) {
        return false;
    }
    selectTracks(tracks, place, place);
    SendDocMessage(notice);
    contentsChanged();
    return true;
}

// Stores the comment of the tapped cell in mLastComment, also if it has none. True
// if it has one.
bool Excel::readComment(int lastx, int lasty) {
    uint16_t text[COMMENT_CAPACITY] = {};
    int32_t length = 0;
    bool found = false;
    if (isOpen()) {
        const CpPoint point = documentPoint(CpPoint(lastx, lasty));
        found = mModule.stg_get_comment(mDocument, mCurrentSheet, point.x, point.y, text, COMMENT_CAPACITY, 0,
                                        &length) == 0;
    }
    const JsonOwner comment(json_object_new_object());
    if (comment != nullptr) {
        json_object_object_add(comment.get(), "comment", json_object_new_string(utf8OfBuffer(text).c_str()));
        json_object_object_add(comment.get(), "xcoord", json_object_new_int(lastx));
        json_object_object_add(comment.get(), "ycoord", json_object_new_int(lasty));
    }
    mLastComment = jsonText(comment);
    return found && length >= 1;
}
