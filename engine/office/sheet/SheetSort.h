// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <cstdint>

namespace lectern::engine {

// Sorts the used rows of a sheet by a column. The first row stays in place when
// it is a header: all its cells are text, and there is a value other than text
// below at least one of them. Returns MODULE_NOTHING_THERE when the column is
// empty, and MODULE_REFUSED, with the sheet unchanged, when the suite does not
// sort because the sheet is protected or has merged cells.
int32_t sortSheet(Workbook& book, int32_t sheet, int32_t column, bool ascending);

} // namespace lectern::engine
