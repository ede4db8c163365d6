// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/layout/Tracks.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace lectern::engine {

// A column of pixels of a surface, rows [top, bottom).
struct LinePart {
    int64_t x;
    int64_t top;
    int64_t bottom;

    friend bool operator==(const LinePart&, const LinePart&) = default;
};

// The painted window of a sheet whose top left is the document pixel (x, y).
struct SheetWindow {
    const Surface& surface;
    int64_t x;
    int64_t y;
    const Tracks& columns;
    const Tracks& rows;
};

// The parts of the lines between cells that a text crosses which runs over from
// one cell into an empty one. A line is the first column of pixels of its cell.
// It is crossed when there is ink on both of its sides, no farther off than a
// space between words, and one of the two cells is empty: ink in an empty cell
// belongs to a text from elsewhere.
std::vector<LinePart> crossedLines(const SheetWindow& window, int32_t dpi,
                                   const std::function<bool(int32_t column, int32_t row)>& isEmpty);

} // namespace lectern::engine
