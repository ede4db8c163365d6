// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/layout/Tracks.h"
#include "engine/protocol/Vocabulary.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

typedef struct _cairo_scaled_font cairo_scaled_font_t;

namespace lectern::engine {

// The tracks whose headers are highlighted, both ends included.
struct MarkedTracks {
    int32_t first;
    int32_t last;
    Colour colour;
};

// Draws the strips left of and above the cells: a label for every track, and a
// line where the cells have theirs, at the first pixel of a track; no line at
// the sheet's edge.
class HeaderPainter {
public:
    explicit HeaderPainter(int32_t dpi);

    // Thickness of the strips in pixels: the width of the row headers for that
    // number of rows, and the height of the column headers.
    int32_t rowHeaderWidth(int32_t rows) const;
    int32_t columnHeaderHeight() const;

    // Fills a strip with the headers from document pixel `from`.
    void paint(Axis axis, const Tracks& tracks, int64_t from, const std::optional<MarkedTracks>& marked,
               const Surface& strip) const;

private:
    // Kept, because looking a font up takes longer than drawing with it.
    std::unique_ptr<cairo_scaled_font_t, void (*)(cairo_scaled_font_t*)> mFont;
    double mDigit; // width of the widest digit
    double mAscent;
    double mDescent;
    double mPadding;
};

// Returns A, B, ... Z, AA, ... for 0, 1, ...
std::string columnLabel(int32_t column);

} // namespace lectern::engine
