// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// Found cells, by row, then column; merged areas count as one cell.
class CellHits {
public:
    CellHits() = default;
    CellHits(int32_t sheet, std::vector<CellBlock> cells);

    int32_t sheet() const { return mSheet; }
    const std::vector<CellBlock>& cells() const { return mCells; }
    // Calls use(block) for those that reach into rows first to last.
    template<class Use>
    void forRows(int32_t first, int32_t last, Use use) const {
        for (size_t i = firstFrom(first); i < mCells.size() && mCells[i].top <= last; ++i)
            use(mCells[i]);
    }

private:
    size_t firstFrom(int32_t row) const;

    int32_t mSheet = -1;
    int32_t mTallest = 1; // in rows
    std::vector<CellBlock> mCells;
};

// Finds the cells that show a text, in whatever case; formulas by what they
// come to. Of very many, the first million.
CellHits findInSheet(const Workbook& book, int32_t sheet, const std::u16string& text);

} // namespace lectern::engine
