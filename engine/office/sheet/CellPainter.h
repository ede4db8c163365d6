// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/layout/WrappedRows.h"
#include "engine/office/sheet/CellTile.h"
#include "engine/office/sheet/Workbook.h"

#include <cstdint>

namespace lectern::engine {

// Paints windows of sheets. It keeps the rows that it has painted, so that a
// window that moves down or up needs only what is new, and nothing if that was
// painted ahead. Two kinds of windows are painted anew: those that move along the
// rows, because the suite places some words by the left edge of the tile, and
// those of sheets with drawings, because it scales a picture from what of it lies
// in the tile.
class CellPainter {
public:
    // Fills the surface with the sheet, from document pixel (x, y). Pixels
    // beyond the sheet's extent become white.
    void paint(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi, const Surface& surface);
    // Paints some rows next to the last window, in the direction in which it
    // moved. Returns false when nothing is left to do.
    // Does nothing when `dpi`, the present resolution, is not that of the last window.
    bool paintAhead(Workbook& book, int32_t dpi);
    // Gives the memory back that holds no pixels of the window or next to it.
    void releaseMemory();

private:
    // The rows of pixels that are kept are parts of this.
    struct Contents {
        int32_t sheet = -1;
        int32_t dpi = 0;
        int64_t revision = 0;
        int64_t left = 0;
        int64_t right = 0;
        friend bool operator==(const Contents&, const Contents&) = default;
    };

    void moveTo(Workbook& book, const Contents& contents, const RowRange& window);
    // Copies the cells of a tile that is new. A window that is painted as a whole
    // is copied only when there is time, or when the next one needs a part of it.
    void keepTile(Workbook& book);
    void paintRows(Workbook& book, WrappedRows& kept, const RowRange& rows);
    // Rows are kept with whole cells: the suite places raised letters, for one, by
    // the top of the tile, and no letter may come from two tiles.
    void paintMissing(Workbook& book, WrappedRows& kept, const RowRange& window);
    // The window with whole cells, where that has room.
    RowRange wantedAround(Workbook& book, const WrappedRows& kept, const RowRange& window) const;
    // Returns false when nothing next to the window has room.
    bool paintNext(Workbook& book, WrappedRows& kept, const RowRange& window);
    void paintTile(Workbook& book, const RowRange& rows);
    // Takes the grid lines away where text runs over them into empty cells. The
    // suite does so only when it prints.
    void leaveOutCrossedLines(Workbook& book, const Surface& surface);

    CellTile mTile;
    WrappedRows mCells;
    WrappedRows mWithoutLines; // takes memory when the first line is crossed
    Contents mContents;
    RowRange mWindow;
    RowRange mCrossedRows; // what of the window was painted without lines
    bool mMovesDown = true;
    bool mTileIsNew = false; // has the window's cells, and mCells does not
    int32_t mSlowSteps = 0;  // of those ahead, in a row
};

} // namespace lectern::engine
