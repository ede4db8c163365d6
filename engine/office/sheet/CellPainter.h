// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/office/sheet/Workbook.h"

#include <cstdint>
#include <vector>

namespace lectern::engine {

// Paints cells at exactly the same pixels whatever part of the sheet is painted.
class CellPainter {
public:
    // Fills the surface with the sheet, from document pixel (x, y). Pixels
    // beyond the sheet's extent become white.
    void paint(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi, const Surface& surface);

private:
    void paintCells(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi, const Surface& surface);
    // Takes the grid lines away where text runs over them into empty cells. The
    // suite does so only when it prints.
    void leaveOutCrossedLines(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi,
                              const Surface& surface);

    // Reused, because a view paints tiles of one size.
    std::vector<uint32_t> mTile;
    std::vector<uint32_t> mWithoutLines;
};

} // namespace lectern::engine
