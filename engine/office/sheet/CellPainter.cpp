// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/CellPainter.h"

#include "engine/layout/GridLines.h"

#include <algorithm>
#include <ctime>

namespace lectern::engine {

namespace {

// Rows of pixels kept around a window at most. Most drags and short flicks are
// shorter.
constexpr int64_t MOST_AROUND = 768;
// Rows of pixels painted ahead in one step.
constexpr int64_t STRIP = 256;
// A window whose strip takes longer is painted ahead no further, and a sheet with
// several in a row not at all, because calls would wait.
constexpr double LONGEST_STEP = 0.008; // seconds of processor time
constexpr int32_t MOST_SLOW_STEPS = 2;

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void makeRoom(WrappedRows& kept, const Surface& window) {
    kept.resize(window.width, window.height + std::min<int64_t>(window.height / 2, MOST_AROUND));
}

// Hides the grid lines of the sheet that is shown.
class WithoutGrid {
public:
    explicit WithoutGrid(Workbook& book) : mBook(book) { mBook.showGrid(false); }
    ~WithoutGrid() { mBook.showGrid(true); }
    WithoutGrid(const WithoutGrid&) = delete;
    WithoutGrid& operator=(const WithoutGrid&) = delete;

private:
    Workbook& mBook;
};

// Where two tiles meet: in the space below the letters of a row of cells and above
// the line behind it, which the suite draws with both of its rows only.
constexpr int64_t ABOVE_LINE = 3; // pixels
// Pixels at the top and the bottom of a tile that are not kept, because the suite
// draws borders wrong there whose cells the tile cuts.
constexpr int64_t MARGIN = 96;

int64_t seamBefore(const Tracks& rows, int32_t track) {
    return std::max<int64_t>(rows.position(track) - ABOVE_LINE, 0);
}

// A range of pixels that begins and ends at seams: the least one around it, or the
// largest one in it. Rows beyond the sheet belong to no cell.
RowRange withWholeCells(const Tracks& rows, const RowRange& range) {
    const int32_t behind = rows.trackAt(range.last - 1 + ABOVE_LINE) + 1;
    const int64_t end = behind < rows.count() ? seamBefore(rows, behind) : rows.total();
    return {std::min(range.first, seamBefore(rows, rows.trackAt(range.first + ABOVE_LINE))),
            std::max(range.last, end)};
}
RowRange onlyWholeCells(const Tracks& rows, const RowRange& range) {
    const int32_t track = rows.trackAt(range.first + ABOVE_LINE);
    const bool begins = seamBefore(rows, track) >= range.first || track + 1 >= rows.count();
    return {begins ? range.first : seamBefore(rows, track + 1),
            range.last >= rows.total() ? range.last
                                       : seamBefore(rows, rows.trackAt(range.last + ABOVE_LINE))};
}

// The rows of pixels with parts of lines; `top` is the window's first row.
RowRange rowsOf(const std::vector<LinePart>& parts, int64_t top) {
    RowRange rows{top + parts.front().top, top + parts.front().bottom};
    for (const LinePart& part : parts) {
        rows.first = std::min(rows.first, top + part.top);
        rows.last = std::max(rows.last, top + part.bottom);
    }
    return rows;
}

// Calls use(column, row) for every pixel of the parts, in pixels of the window.
template<class Use>
void forPixels(const std::vector<LinePart>& parts, Use use) {
    for (const LinePart& part : parts) {
        for (int64_t row = part.top; row < part.bottom; ++row) {
            use(part.x, row);
        }
    }
}

} // namespace

void CellPainter::paint(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi,
                        const Surface& surface) {
    const RowRange window{y, y + surface.height};
    makeRoom(mCells, surface);
    moveTo(book, {sheet, dpi, book.revision(), x, x + surface.width}, window);
    const bool drawings = book.hasDrawings(sheet);
    // One tile paints a window faster than a strip that is nearly as high.
    const RowRange& painted = mCells.painted();
    const int64_t common = std::min(painted.last, window.last) - std::max(painted.first, window.first);
    if (drawings || common < window.count() / 8) {
        paintTile(book, window);
        mTileIsNew = !drawings;
    } else {
        paintMissing(book, mCells, window);
    }
    for (int32_t row = 0; row < surface.height; ++row) {
        const bool inTile = drawings || mTileIsNew;
        std::copy_n(inTile ? mTile.row(y + row) : mCells.row(y + row), surface.width, surface.row(row));
    }
    leaveOutCrossedLines(book, surface);
}

void CellPainter::moveTo(Workbook& book, const Contents& contents, const RowRange& window) {
    if (contents == mContents) {
        mMovesDown = window == mWindow ? mMovesDown : window.first > mWindow.first;
        mTileIsNew = mTileIsNew && mWindow.overlaps(window);
        keepTile(book);
    } else {
        mCells.clear();
        mWithoutLines.clear();
        mContents = contents;
        mMovesDown = true;
        mTileIsNew = false;
        mSlowSteps = 0;
    }
    mWindow = window;
}

void CellPainter::keepTile(Workbook& book) {
    if (!mTileIsNew) {
        return;
    }
    mTileIsNew = false;
    mCells.clear();
    const Tracks& rows = book.geometry(mContents.sheet).rows;
    const RowRange right{mWindow.first > 0 ? mWindow.first + MARGIN : mWindow.first,
                         mWindow.last < rows.total() ? mWindow.last - MARGIN : mWindow.last};
    const RowRange whole = right.isEmpty() ? right : onlyWholeCells(rows, right);
    if (!whole.isEmpty()) {
        mCells.write(whole, [&](int64_t row) { return mTile.row(row); });
    }
}

void CellPainter::paintTile(Workbook& book, const RowRange& rows) {
    mTile.paint(book, mContents.sheet, {mContents.left, rows.first, mContents.right, rows.last},
                mContents.dpi);
}

void CellPainter::paintRows(Workbook& book, WrappedRows& kept, const RowRange& rows) {
    keepTile(book);
    paintTile(book, {rows.first - MARGIN, rows.last + MARGIN});
    kept.write(rows, [&](int64_t row) { return mTile.row(row); });
}

RowRange CellPainter::wantedAround(Workbook& book, const WrappedRows& kept, const RowRange& window) const {
    const RowRange whole = withWholeCells(book.geometry(mContents.sheet).rows, window);
    return whole.count() <= kept.room() ? whole : window;
}

void CellPainter::paintMissing(Workbook& book, WrappedRows& kept, const RowRange& window) {
    const RowRange wanted = wantedAround(book, kept, window);
    while (const auto rows = kept.missing(wanted)) {
        paintRows(book, kept, *rows);
    }
}

bool CellPainter::paintNext(Workbook& book, WrappedRows& kept, const RowRange& window) {
    const Tracks& tracks = book.geometry(mContents.sheet).rows;
    const auto next = kept.ahead(wantedAround(book, kept, window), mMovesDown, STRIP, tracks.total());
    RowRange rows;
    if (next) {
        // The side next to the painted rows stays.
        const RowRange whole = onlyWholeCells(tracks, *next);
        rows = mMovesDown ? RowRange{next->first, whole.last} : RowRange{whole.first, next->last};
    }
    if (!rows.isEmpty()) {
        paintRows(book, kept, rows);
    }
    return !rows.isEmpty();
}

void CellPainter::leaveOutCrossedLines(Workbook& book, const Surface& surface) {
    mCrossedRows = {};
    book.show(mContents.sheet);
    if (!book.showsGrid()) {
        return;
    }
    const auto& [columns, rows] = book.geometry(mContents.sheet);
    const CellBlock shown{columns.trackAt(mContents.left), rows.trackAt(mWindow.first),
                          columns.trackAt(mContents.right - 1), rows.trackAt(mWindow.last - 1)};
    const CellSet empty = book.emptyCells(mContents.sheet, shown);
    const std::vector<LinePart> parts =
        crossedLines({surface, mContents.left, mWindow.first, columns, rows}, mContents.dpi,
                     [&](int32_t column, int32_t row) { return empty.has(column, row); });
    if (parts.empty()) {
        return;
    }
    const WithoutGrid hidden(book);
    if (book.hasDrawings(mContents.sheet)) {
        paintTile(book, mWindow);
        forPixels(parts, [&](int64_t column, int64_t row) {
            surface.row(row)[column] = mTile.at(mContents.left + column, mWindow.first + row);
        });
        return;
    }
    mCrossedRows = rowsOf(parts, mWindow.first);
    makeRoom(mWithoutLines, surface);
    paintMissing(book, mWithoutLines, mCrossedRows);
    forPixels(parts, [&](int64_t column, int64_t row) {
        surface.row(row)[column] = mWithoutLines.row(mWindow.first + row)[column];
    });
}

void CellPainter::releaseMemory() {
    if (!mTileIsNew) {
        mTile.discard();
    }
}

bool CellPainter::paintAhead(Workbook& book, int32_t dpi) {
    if (mWindow.isEmpty() || mContents.revision != book.revision() || mContents.dpi != dpi ||
        book.hasDrawings(mContents.sheet)) {
        return false;
    }
    keepTile(book);
    if (mSlowSteps > MOST_SLOW_STEPS) {
        return false;
    }
    const double start = processorTime();
    paintMissing(book, mCells, mWindow);
    bool more = paintNext(book, mCells, mWindow);
    if (!more && !mCrossedRows.isEmpty()) {
        const WithoutGrid hidden(book);
        more = paintNext(book, mWithoutLines, mCrossedRows);
    }
    if (!more) {
        return false;
    }
    const bool slow = processorTime() - start > LONGEST_STEP;
    mSlowSteps = slow ? mSlowSteps + 1 : 0;
    return !slow;
}

} // namespace lectern::engine
