// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/PixelMemory.h"
#include "engine/office/sheet/Workbook.h"

#include <cstdint>
#include <vector>

namespace lectern::engine {

// Columns [left, right) of rows [top, bottom) of a sheet, in document pixels.
struct TileArea {
    int64_t left = 0;
    int64_t top = 0;
    int64_t right = 0;
    int64_t bottom = 0;

    int64_t width() const { return right - left; }
};

// An area of a sheet, painted by the suite in one tile. Cells are at exactly the
// same pixels whatever area they are painted with.
class CellTile {
public:
    // Paints document pixels. Pixels beyond the sheet's extent become white.
    void paint(Workbook& book, int32_t sheet, const TileArea& area, int32_t dpi);
    // A pixel of the area that lies on the sheet.
    uint32_t at(int64_t x, int64_t y) const;
    // The pixels of a row of the area; valid until the next call.
    const uint32_t* row(int64_t y);
    // Gives the memory back to the system; the rows are lost.
    void discard() { mPixels.discard(); }

private:
    PixelMemory mPixels; // reused, because a view paints tiles of one size
    int64_t mStride = 0;
    std::vector<uint32_t> mRow; // white outside of the sheet
    std::vector<uint32_t> mWhite;
    TileArea mArea;
    TileArea mOnSheet;     // what of the area lies on the sheet
    int64_t mTileLeft = 0; // the suite's first pixels in the tile
    int64_t mTileTop = 0;
};

} // namespace lectern::engine
