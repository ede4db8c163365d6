// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <optional>
#include <string>
#include <vector>

namespace lectern::engine {

// The cells with a comment, sorted by row, then by column. A merged area is
// returned as a whole.
std::vector<CellBlock> commentedCells(const Workbook& book, int32_t sheet);

// The comment of a cell, or of the merged area that contains the cell.
std::optional<std::u16string> commentOf(const Workbook& book, int32_t sheet, int32_t column, int32_t row);

} // namespace lectern::engine
