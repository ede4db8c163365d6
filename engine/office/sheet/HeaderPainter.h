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

// The tracks whose headers are marked, both ends included.
struct MarkedTracks {
    int32_t first;
    int32_t last;
    Colour colour;
};

// Draws the strips beside and above the cells: a label for every track, and a
// line where the cells have theirs, at a track's first pixel, but none at the
// sheet's edge.
class HeaderPainter {
public:
    explicit HeaderPainter(int32_t dpi);

    // The strips' thickness: the row headers' width, for so many rows, and the
    // column headers' height.
    int32_t rowHeaderWidth(int32_t rows) const;
    int32_t columnHeaderHeight() const;

    // Fills a strip of the tracks from document pixel `from` on.
    void paint(Axis axis, const Tracks& tracks, int64_t from, const std::optional<MarkedTracks>& marked,
               const Surface& strip) const;

private:
    // Kept: to look a font up takes longer than to draw with it.
    std::unique_ptr<cairo_scaled_font_t, void (*)(cairo_scaled_font_t*)> mFont;
    double mDigit; // the widest digit's
    double mAscent;
    double mDescent;
    double mPadding;
};

// A, B, ... Z, AA, ... for 0, 1, ...
std::string columnLabel(int32_t column);

} // namespace lectern::engine
