// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <cstdint>

namespace lectern::engine {

// Sorts the used rows of a sheet by a column. The header and the rows above it
// stay in place. The header is that of a list with filter buttons around the
// column, whose last row is then the last one to be sorted, or else the row that
// headerRow tells for the sheet as it is at the first sort. Returns
// MODULE_NOTHING_THERE when the column is empty, and MODULE_REFUSED, with the
// sheet unchanged, when the suite does not sort because the sheet is protected
// or has merged cells.
int32_t sortSheet(Workbook& book, int32_t sheet, int32_t column, bool ascending);

} // namespace lectern::engine
