// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/layout/Tracks.h"
#include "engine/office/DocumentLoading.h"
#include "engine/office/sheet/Drawings.h"
#include "engine/protocol/Vocabulary.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>

#include <cstdint>
#include <optional>
#include <vector>

namespace lectern::engine {

// Columns and rows of a block of cells, both ends included.
struct CellBlock {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;
};

inline CellBlock blockOf(const css::table::CellRangeAddress& range) {
    return {range.StartColumn, range.StartRow, range.EndColumn, range.EndRow};
}

// Cells of a block, one bit for each.
class CellSet {
public:
    explicit CellSet(const CellBlock& within);

    // REQUIRES, as for has: the cells lie in the block.
    void insert(const CellBlock& cells);
    bool has(int32_t column, int32_t row) const { return mBits[index(column, row)]; }

private:
    size_t index(int32_t column, int32_t row) const {
        const size_t width = static_cast<size_t>(mWithin.right) - static_cast<size_t>(mWithin.left) + 1;
        return static_cast<size_t>(row - mWithin.top) * width + static_cast<size_t>(column - mWithin.left);
    }

    CellBlock mWithin;
    std::vector<bool> mBits;
};

// The columns and rows of a sheet, up to its extent.
struct SheetGeometry {
    Tracks columns;
    Tracks rows;

    const Tracks& along(Axis axis) const { return axis == Axis::Columns ? columns : rows; }
};

// An opened workbook and its visible sheets. A sheet is prepared for viewing at
// the first use of its geometry, because that takes longer with every comment
// and drawing: the sheet then runs from left to right, and no comment is drawn.
class Workbook {
public:
    explicit Workbook(LoadedModel loaded);

    lok::Document& painter() { return *mLoaded.painter; }
    const css::uno::Reference<css::frame::XModel>& model() const { return mLoaded.model; }
    bool has(int32_t sheet) const { return sheet >= 0 && sheet < count(); }
    int32_t count() const { return static_cast<int32_t>(mSheets.size()); }
    const css::uno::Reference<css::sheet::XSpreadsheet>& sheet(int32_t sheet) const {
        return mSheets[static_cast<size_t>(sheet)].cells;
    }

    // Makes the painter show and report on this sheet.
    void show(int32_t sheet);
    void setDpi(int32_t dpi);
    // Read on first use, and again after a change.
    const SheetGeometry& geometry(int32_t sheet);
    // Call aboutToChange before and changed after every change of a sheet.
    void aboutToChange(int32_t sheet) { mSheets[static_cast<size_t>(sheet)].drawings.restore(); }
    void changed(int32_t sheet);
    // Another number after every change.
    int64_t revision() const { return mRevision; }

    // Whether charts, pictures or shapes lie on the sheet.
    bool hasDrawings(int32_t sheet) const { return !mSheets[static_cast<size_t>(sheet)].drawings.empty(); }
    // Moves drawings to where their cells are painted in a tile of the suite's pixels
    // [left, right) and [top, bottom); call before painting it.
    void alignDrawings(int32_t sheet, int64_t left, int64_t top, int64_t right, int64_t bottom);
    std::optional<PixelRect> drawingAt(int32_t sheet, int32_t x, int32_t y);
    // Whether the sheet that is shown has grid lines, and the switch for them.
    bool showsGrid() const;
    void showGrid(bool shown);
    // The cells of a block without any contents.
    CellSet emptyCells(int32_t sheet, const CellBlock& block) const;
    // The block of used cells; nothing on an empty sheet.
    std::optional<CellBlock> usedBlock(int32_t sheet) const;
    // The block from the first cell to the end of the last merged area; nothing
    // without merged areas.
    std::optional<CellBlock> mergedExtent(int32_t sheet) const;
    // The first row that a sort moves; nothing until a sort has decided it.
    std::optional<int32_t>& firstSortedRow(int32_t sheet) {
        return mSheets[static_cast<size_t>(sheet)].firstSortedRow;
    }
    // The merged area that contains a cell, or the cell itself.
    CellBlock mergedBlock(int32_t sheet, int32_t column, int32_t row) const;
    // A block with all of the merged areas that it overlaps.
    CellBlock mergedAround(int32_t sheet, const CellBlock& block) const;

private:
    struct Sheet {
        int part; // its number among all sheets, hidden ones included
        css::uno::Reference<css::sheet::XSpreadsheet> cells;
        Drawings drawings;
        bool prepared = false;
        std::optional<SheetGeometry> geometry = std::nullopt;
        std::optional<int32_t> firstSortedRow = std::nullopt;
    };

    static void prepare(Sheet& sheet);

    LoadedModel mLoaded;
    std::vector<Sheet> mSheets;
    int32_t mDpi = DEFAULT_DPI;
    int64_t mRevision = 0;
};

} // namespace lectern::engine
