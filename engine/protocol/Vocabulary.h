// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace lectern::engine {

// Values of the protocol that both sides name. On the wire they are numbers of
// the type "i".

// The surfaces of a view of a sheet.
enum class SheetArea : std::int32_t { Cells = 0, RowHeaders = 1, ColumnHeaders = 2 };
constexpr std::size_t SHEET_AREAS = 3;

// Along which the tracks of a sheet follow one another.
enum class Axis : std::int32_t { Columns = 0, Rows = 1 };

// The kind of thing under a point of a text, as in wtg_click_info.
enum class ClickType : std::int32_t {
    Nothing = 0,
    Footnote = 2,
    Endnote = 3,
    Comment = 4,
    Hyperlink = 6,
    InternalLink = 7,
};

} // namespace lectern::engine
