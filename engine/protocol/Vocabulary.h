// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace lectern::engine {

// What both sides of the protocol name. Enumerators travel as numbers of the
// type "i".

// The kinds of documents.
enum class DocumentKind : std::int32_t { Text = 0, Sheet = 1, Slides = 2 };

// What an export writes, as lectern_export_format in modules/TouchFunctions.h.
enum class ExportFormat : std::int32_t { Pdf = 0, Text = 1 };

// The surfaces of a view of a sheet.
enum class SheetArea : std::int32_t { Cells = 0, RowHeaders = 1, ColumnHeaders = 2 };
constexpr std::size_t SHEET_AREAS = 3;

// The colour of hits and selections until another is set: red, green, blue.
using HighlightColour = std::array<std::uint8_t, 3>;
constexpr HighlightColour DEFAULT_HIGHLIGHT{128, 192, 255};

// Along which the tracks of a sheet follow one another.
enum class Axis : std::int32_t { Columns = 0, Rows = 1 };

// How later finds in a sheet compare, as in stg_set_find_options.
constexpr std::int32_t FIND_MATCH_CASE = 1;
constexpr std::int32_t FIND_WHOLE_WORDS = 2;

// The kind of thing under a point of a text, as in wtg_click_info.
enum class ClickType : std::int32_t {
    Nothing = 0,
    Footnote = 2,
    Endnote = 3,
    Comment = 4,
    Hyperlink = 6,
    InternalLink = 7,
};

// Where the stretch of a text lies.
struct StretchPlace {
    std::uint32_t topLeft = 0;     // the character at its top, as in wtg_get_top_left_character
    std::uint32_t bottomRight = 0; // ... and at its bottom
    std::int32_t usedRows = -1;    // rows of pixels that show text; negative when the place is not known
    std::int64_t row = 0;          // its first row among those of the whole text
};

} // namespace lectern::engine
