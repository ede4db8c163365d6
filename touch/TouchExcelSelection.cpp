// SPDX-License-Identifier: Apache-2.0
// The selection: cells, columns or rows, or the whole sheet. All have one colour.
#include "raster/Saturate.h"
#include "touch/ModuleText.h"
#include "touch/TouchExcel.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int32_t LONGEST_COPY = 1 << 20; // UTF-16 units

void prvOrder(int& first, int& last) {
    if (last < first) {
        std::swap(first, last);
    }
}

} // namespace

void TouchExcel::forgetSelection() {
    mSelected = CellRange();
}

int TouchExcel::clearSelection() {
    forgetSelection();
    mSelectionActive = false;
    return Excel::clearSelection();
}

// After a contact with the headers, which may have selected something.
void TouchExcel::noteSelectedTracks() {
    if (!mSelectionActive) {
        return;
    }
    const bool isColumns = &selectedTracks() == &COLUMN_TRACKS;
    mSelectedKind = isColumns ? Selected::Columns : Selected::Rows;
    mSelected.sheet = mCurrentSheet;
    mSelected.first = cellAt({mSelection.Left(), mSelection.Top()});
    mSelected.last = cellAt({mSelection.Right(), mSelection.Bottom()});
    const CellIndex end = cellAt({mSheetWidth - 1, mSheetHeight - 1});
    (isColumns ? mSelected.first.row : mSelected.first.column) = 0;
    (isColumns ? mSelected.last.row : mSelected.last.column) = isColumns ? end.row : end.column;
    findPlace(mSelected);
}

// The defined view keeps the ends of the selected tracks as document pixels.
void TouchExcel::findSelectedTracks() {
    if (mSelected.sheet != mCurrentSheet) {
        return;
    }
    const CpRect& place = mSelected.place;
    if (mSelectedKind == Selected::Columns) {
        mSelection =
            CpRect(place.Left(), 0, std::max(place.Left(), saturatedDifference(place.Right(), 1)), 0);
    } else if (mSelectedKind == Selected::Rows) {
        mSelection = CpRect(0, place.Top(), 0, std::max(place.Top(), saturatedDifference(place.Bottom(), 1)));
    }
}

void TouchExcel::selectRange(Selected selected, const CellRange& range) {
    mSelectedKind = selected;
    mSelected = range;
    const CpRect& place = range.place;
    if (selected == Selected::Columns) {
        selectTracks(COLUMN_TRACKS, place.Left(),
                     std::max(place.Left(), saturatedDifference(place.Right(), 1)));
    } else if (selected == Selected::Rows) {
        selectTracks(ROW_TRACKS, place.Top(), std::max(place.Top(), saturatedDifference(place.Bottom(), 1)));
    } else {
        mModule.stg_set_highlight_color(mDocument, SELECTION_COLOUR);
        mModule.stg_select_area(mDocument, mCurrentSheet, place.Left(), place.Top(),
                                std::max(1, place.Width()), std::max(1, place.Height()));
        mSelectionActive = true;
    }
    contentsChanged();
}

TouchResult TouchExcel::select(SelectUnit unit, const CpPoint& point) {
    if (!isOpen()) {
        return TouchResult::Failed;
    }
    takeChanges();
    if (unit == SelectUnit::None) {
        clearSelection();
        return TouchResult::Ok;
    }
    const CellIndex end = cellAt({std::max(0, mSheetWidth - 1), std::max(0, mSheetHeight - 1)});
    if (unit == SelectUnit::All) {
        selectRange(Selected::All, {mCurrentSheet, {}, end, CpRect(0, 0, mSheetWidth, mSheetHeight)});
        return TouchResult::Ok;
    }
    if (!isOnSheet(point)) {
        return TouchResult::NothingThere;
    }
    CellRange range = cellsAt(documentPoint(point));
    if (unit == SelectUnit::Line) {
        range.first.column = 0;
        range.last.column = end.column;
        range.place = CpRect(0, range.place.Top(), mSheetWidth, range.place.Bottom());
    }
    selectRange(unit == SelectUnit::Line ? Selected::Rows : Selected::Cells, range);
    return TouchResult::Ok;
}

TouchResult TouchExcel::moveSelectionEnd(SelectEnd end, const CpPoint& point) {
    if (!isOpen() || mSelected.sheet != mCurrentSheet) {
        return TouchResult::NothingThere;
    }
    takeChanges();
    const CpPoint place = documentPoint(point);
    const CellRange to = cellsAt({std::clamp(place.x, 0, std::max(0, mSheetWidth - 1)),
                                  std::clamp(place.y, 0, std::max(0, mSheetHeight - 1))});
    CellRange range = mSelected;
    const bool movesStart = end == SelectEnd::Start;
    if (mSelectedKind != Selected::Rows) {
        (movesStart ? range.first.column : range.last.column) = movesStart ? to.first.column : to.last.column;
        prvOrder(range.first.column, range.last.column);
    }
    if (mSelectedKind != Selected::Columns) {
        (movesStart ? range.first.row : range.last.row) = movesStart ? to.first.row : to.last.row;
        prvOrder(range.first.row, range.last.row);
    }
    findPlace(range);
    selectRange(mSelectedKind == Selected::All ? Selected::Cells : mSelectedKind, range);
    return TouchResult::Ok;
}

TouchResult TouchExcel::selection(Selection& selection) {
    if (!isOpen() || mSelected.sheet != mCurrentSheet) {
        return TouchResult::NothingThere;
    }
    takeChanges();
    selection.text = moduleText(LONGEST_COPY, [&](uint16_t* text, int32_t capacity, int32_t* length) {
        return mModule.stg_copy_selection(mDocument, text, capacity, 0, length);
    });
    selection.rectangles.push_back(onView(mSelected.place));
    return TouchResult::Ok;
}
