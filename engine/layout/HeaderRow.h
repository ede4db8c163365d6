// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace lectern::engine {

// What a cell shows: nothing, a text, or a number, a date or an error.
enum class CellKind { Empty, Text, Value };

// The row of a table's headers among the first rows of a sheet, all of one
// length. It is the row with the most filled cells above the first row of data,
// the first of equal ones, if all its cells are texts; otherwise there is none.
// A row of data has a value below a text.
std::optional<size_t> headerRow(const std::vector<std::vector<CellKind>>& rows);

} // namespace lectern::engine
