// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <cstdint>
#include <string>

namespace lectern::engine {

// The texts that the cells of a block show, up to the last column and row with a
// text. Tabs separate columns, line feeds rows; none follows the last one. Within a
// text both become spaces. Empty cells before the first text and hidden columns
// and rows count; rows that a filter hides do not. A block of more than 2^20 UTF-16
// units, or one that takes longer than 3 seconds, is read in part: its first rows.
std::u16string textOfBlock(Workbook& book, int32_t sheet, const CellBlock& block);

} // namespace lectern::engine
