// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/TouchSheetFunctions.h"
#include "raster/Saturate.h"
#include "tests/fakes/sheet/FakeSheetModule.h"

// A workbook described by the control, with its own dpi and buffers.
class FakeSheetDocument {
public:
    struct Buffer {
        uint32_t* pixels = nullptr;
        int32_t width = 0;
        int32_t height = 0;
    };
    // A cell, 0-based.
    struct Cell {
        int32_t column;
        int32_t row;
    };

    void setDpi(int32_t dpi);
    void render(int32_t sheet, int32_t x, int32_t y);

    static bool has(int32_t sheet);
    int32_t scaled(int32_t pixels) const { return saturateToInt(static_cast<long long>(pixels) * mDpi / 72); }
    int32_t sheetWidth(int32_t sheet) const;
    int32_t sheetHeight(int32_t sheet) const;
    // The cell nearest to a point.
    Cell cellAt(int32_t sheet, int32_t x, int32_t y) const;
    module_rect bounds(const Cell& cell) const;
    // Of the merged area that a cell belongs to, or else of the cell.
    stg_cell contents(const Cell& cell) const;
    void fetchMarks();
    void fetchFound();

    Buffer cells;
    Buffer rowHeaders;
    Buffer columnHeaders;
    // Returned arrays, kept as long as the module's rules require.
    std::vector<stg_region> marks;
    std::vector<stg_region> found;
    bool searched = false;
    int32_t searchedSheet = 0;
    std::vector<stg_cell> cellsFound;

private:
    int32_t mDpi = 72;
};
