// SPDX-License-Identifier: Apache-2.0
// Cells and where they are, and what is selected.
#include "raster/Saturate.h"
#include "touch/ModuleText.h"
#include "touch/TouchExcel.h"
#include "view/ModuleArray.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr int32_t LONGEST_COMMENT = 32768; // UTF-16 units, as long as the suites' own
constexpr int32_t MOST_TEXTS = 4096;       // of one screen
constexpr int MOST_GUESSES = 64;           // bisection of all pixels that there can be needs 31

CpRect prvRect(const module_rect& r) {
    return {r.x, r.y, saturatedSum(r.x, r.width), saturatedSum(r.y, r.height)};
}

// "B7" for column 1 and row 6.
std::string prvAddress(int column, int row) {
    constexpr long long LETTERS = 26;
    std::string letters;
    for (long long rest = column + 1LL; rest > 0; rest = (rest - 1) / LETTERS) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % LETTERS));
    }
    return letters + std::to_string(row + 1LL);
}

} // namespace

TouchExcel::CellIndex TouchExcel::cellAt(const CpPoint& documentPoint) const {
    CellIndex cell;
    mModule.stg_get_cell_reference_at_location(mDocument, mCurrentSheet, documentPoint.x, documentPoint.y,
                                               &cell.column, &cell.row);
    return cell;
}

CpRect TouchExcel::boundsAt(const CpPoint& documentPoint) const {
    module_rect r{};
    mModule.stg_cell_bounds(mDocument, mCurrentSheet, documentPoint.x, documentPoint.y, &r.x, &r.y, &r.width,
                            &r.height);
    return prvRect(r);
}

TouchExcel::CellPoint TouchExcel::cellPoint(const CpPoint& documentPoint) const {
    if (!isOpen()) {
        return {};
    }
    // The point (-1, -1) does not stand for a cell.
    const CpPoint inSheet(std::max(0, documentPoint.x), std::max(0, documentPoint.y));
    const CpRect r = boundsAt(inSheet);
    return {cellAt(inSheet), (static_cast<double>(documentPoint.x) - r.Left()) / std::max(1, r.Width()),
            (static_cast<double>(documentPoint.y) - r.Top()) / std::max(1, r.Height())};
}

CpPoint TouchExcel::documentPointOf(const CellPoint& point, const CpPoint& estimate) const {
    CpPoint place = estimate;
    int start = 0;
    int length = 0;
    if (findTrack(COLUMN_TRACKS, point.cell.column, estimate.x, start, length)) {
        place.x = saturateToInt(std::round(start + point.right * length));
    }
    if (findTrack(ROW_TRACKS, point.cell.row, estimate.y, start, length)) {
        place.y = saturateToInt(std::round(start + point.down * length));
    }
    return place;
}

// Tracks follow each other, so each guess leaves out a part of the sheet.
bool TouchExcel::findTrack(const TrackKind& tracks, int index, int estimate, int& start, int& length) const {
    CpPoint sheet(mSheetWidth, mSheetHeight);
    long long low = 0;
    long long high = sheet.*tracks.along - 1LL;
    long long guess = estimate;
    for (int i = 0; i < MOST_GUESSES && low <= high; ++i) {
        guess = std::clamp(guess, low, high);
        CpPoint place(0, 0);
        place.*tracks.along = static_cast<int>(guess);
        const CellIndex cell = cellAt(place);
        const int found = &tracks == &COLUMN_TRACKS ? cell.column : cell.row;
        trackAt(tracks, static_cast<int>(guess), start, length);
        if (found == index) {
            return true;
        }
        if (found < index) {
            low = std::max(guess + 1, static_cast<long long>(start) + length);
        } else {
            high = std::min(guess - 1, start - 1LL);
        }
        // The next one is near if the tracks are as long as this one; then the middle.
        const long long step = (static_cast<long long>(index) - found) * std::max(1, length);
        guess = i < MOST_GUESSES / 4 ? start + step : low + (high - low) / 2;
    }
    // Hidden tracks have no pixels: they are between those beside them.
    start = static_cast<int>(std::clamp<long long>(low, 0, sheet.*tracks.along));
    length = 0;
    return false;
}

void TouchExcel::findPlace(CellRange& range) const {
    if (range.sheet != mCurrentSheet || !isOpen()) {
        return;
    }
    CpPoint first(0, 0);
    CpPoint last(0, 0);
    CpPoint length(0, 0);
    findTrack(COLUMN_TRACKS, range.first.column, range.place.Left(), first.x, length.x);
    findTrack(ROW_TRACKS, range.first.row, range.place.Top(), first.y, length.y);
    last.set(saturatedSum(first.x, length.x), saturatedSum(first.y, length.y));
    if (range.last.column != range.first.column) {
        findTrack(COLUMN_TRACKS, range.last.column, saturatedDifference(range.place.Right(), 1), last.x,
                  length.x);
        last.x = saturatedSum(last.x, length.x);
    }
    if (range.last.row != range.first.row) {
        findTrack(ROW_TRACKS, range.last.row, saturatedDifference(range.place.Bottom(), 1), last.y, length.y);
        last.y = saturatedSum(last.y, length.y);
    }
    range.place = CpRect(first, last);
}

CpRect TouchExcel::onView(const CpRect& documentRect) const {
    const CpPoint header = corner();
    CpRect r = documentRect;
    r.Offset(saturatedDifference(header.x, mScroll.x), saturatedDifference(header.y, mScroll.y));
    return r;
}

// Without the module's function a merged area is not known, nor what a cell shows.
TouchResult TouchExcel::fetchCell(const CellIndex& index, Cell& cell) const {
    const CellIndex end = cellAt({std::max(0, mSheetWidth - 1), std::max(0, mSheetHeight - 1)});
    const bool isBeyond = index.column >= std::max(mColumnCount, end.column + 1) || index.row > end.row;
    stg_cell found{};
    if (mFunctions.getCell != nullptr) {
        if (mFunctions.getCell(mDocument, mCurrentSheet, index.column, index.row, &found) != 0) {
            return isBeyond ? TouchResult::OutOfRange : TouchResult::Failed;
        }
        cell.text = utf8OrEmpty(found.text);
        cell.formula = utf8OrEmpty(found.formula);
        cell.place = prvRect(found.place);
    } else if (isBeyond) {
        return TouchResult::OutOfRange;
    } else {
        CellRange range{mCurrentSheet, index, index, CpRect()};
        findPlace(range);
        found.column = index.column;
        found.row = index.row;
        cell.place = range.place;
    }
    cell.column = found.column;
    cell.row = found.row;
    cell.address = prvAddress(cell.column, cell.row);
    return TouchResult::Ok;
}

TouchExcel::CellRange TouchExcel::cellsAt(const CpPoint& documentPoint) const {
    const CellIndex index = cellAt(documentPoint);
    Cell found;
    if (mFunctions.getCell == nullptr || fetchCell(index, found) != TouchResult::Ok || found.place.Empty()) {
        return {mCurrentSheet, index, index, boundsAt(documentPoint)};
    }
    const CellIndex last =
        cellAt({saturatedDifference(found.place.Right(), 1), saturatedDifference(found.place.Bottom(), 1)});
    return {mCurrentSheet, {found.column, found.row}, last, found.place};
}

TouchResult TouchExcel::cell(int column, int row, Cell& cell) {
    if (!isOpen()) {
        return TouchResult::Failed;
    }
    takeChanges();
    CellIndex index{column, row};
    if (column == -1 && row == -1) {
        if (mTapped.sheet != mCurrentSheet) {
            return TouchResult::NothingThere;
        }
        index = mTapped.first;
    } else if (column < 0 || row < 0) {
        return TouchResult::OutOfRange;
    }
    if (const TouchResult result = fetchCell(index, cell); result != TouchResult::Ok) {
        return result;
    }
    if (!cell.place.Empty()) {
        const CpRect at = cell.place;
        cell.comment = moduleText(LONGEST_COMMENT, [&](uint16_t* text, int32_t capacity, int32_t* length) {
            return mModule.stg_get_comment(mDocument, mCurrentSheet, at.Left(), at.Top(), text, capacity, 0,
                                           length);
        });
    }
    cell.place = onView(cell.place);
    return TouchResult::Ok;
}

TouchResult TouchExcel::visibleText(std::vector<TextLine>& lines) {
    if (mFunctions.getCells == nullptr) {
        return TouchResult::NotSupported;
    }
    if (!isOpen()) {
        return TouchResult::Failed;
    }
    takeChanges();
    const CpRect shown = shownCells();
    const stg_cell* cells = nullptr;
    int32_t count = 0;
    if (mFunctions.getCells(mDocument, mCurrentSheet, shown.Left(), shown.Top(), std::max(1, shown.Width()),
                            std::max(1, shown.Height()), &cells, &count) != 0) {
        return TouchResult::Failed;
    }
    for (const stg_cell& cell : moduleArray(cells, std::min(count, MOST_TEXTS))) {
        lines.push_back({utf8OrEmpty(cell.text), onView(prvRect(cell.place))});
    }
    return TouchResult::Ok;
}
