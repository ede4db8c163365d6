// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/Workbook.h"

#include <cstdint>

namespace lectern::engine {

// Sorts the rows that hold anything by a column. The first of them stays where
// it is when it is a header: all that it holds is text, and below at least one
// of its texts there is something that is not. MODULE_NOTHING_THERE when there
// is nothing in the column, MODULE_REFUSED when the suite does not sort: the
// sheet is protected, or has merged cells; then nothing has changed.
int32_t sortSheet(Workbook& book, int32_t sheet, int32_t column, bool ascending);

} // namespace lectern::engine
