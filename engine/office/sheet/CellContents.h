// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// A cell or a merged area.
struct CellContents {
    CellBlock block;
    std::u16string text;    // as it is shown
    std::u16string formula; // in English; empty without one
};

// Of the cell or of the merged area around it.
CellContents contentsOf(const Workbook& book, int32_t sheet, int32_t column, int32_t row);

// The cells and merged areas with a text that overlap a block, row by row: at most the
// first MOST_TEXTS of them. Without the formulas.
constexpr size_t MOST_TEXTS = 4096;
std::vector<CellContents> textsIn(const Workbook& book, int32_t sheet, const CellBlock& block);

} // namespace lectern::engine
