// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// Found cells, sorted by row, then by column. A merged area counts as one cell.
class CellHits {
public:
    CellHits() = default;
    CellHits(int32_t sheet, std::vector<CellBlock> cells);

    int32_t sheet() const { return mSheet; }
    const std::vector<CellBlock>& cells() const { return mCells; }
    // Calls use(block) for the hits that overlap rows `first` to `last`.
    template<class Use>
    void forRows(int32_t first, int32_t last, Use use) const {
        for (size_t i = firstFrom(first); i < mCells.size() && mCells[i].top <= last; ++i) {
            use(mCells[i]);
        }
    }

private:
    size_t firstFrom(int32_t row) const;

    int32_t mSheet = -1;
    int32_t mTallest = 1; // height of the tallest hit in rows
    std::vector<CellBlock> mCells;
};

// Finds the cells that show `text`, ignoring case unless the options, FIND_MATCH_CASE
// and FIND_WHOLE_WORDS, say otherwise; formulas are searched by their results. Returns
// at most the first million hits.
CellHits findInSheet(const Workbook& book, int32_t sheet, const std::u16string& text, int32_t options);

} // namespace lectern::engine
