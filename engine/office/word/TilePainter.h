// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/RowMap.h"
#include "engine/layout/Surface.h"
#include "engine/office/OfficePrivate.h"

#include <array>
#include <cstdint>
#include <vector>

namespace lectern::engine {

// Paints rows of the laid-out text. A row looks the same whichever other rows
// are painted with it.
class TilePainter {
public:
    explicit TilePainter(lok::Document& painter) : mPainter(painter) {}

    // Paints rows [first, last) of the stretch that starts at row `top` of the
    // text, with 0 <= first <= last <= surface.height. Rows below the text
    // become white.
    void paint(const RowMap& map, int64_t top, const Surface& surface, int32_t first, int32_t last);

    // Drops the painted bands; call after every layout.
    void forget() { mBands = {}; }

private:
    // A painted band of a page. A stretch that moves by less than a band needs
    // the rest of a band that is already partly visible.
    struct Band {
        int64_t pageTop = -1;
        int64_t firstRow = -1; // in the page
        int64_t width = 0;     // in pixels
        int32_t dpi = 0;
        std::vector<uint32_t> pixels;

        bool isFor(int64_t top, int64_t row, int64_t pixelWidth, int32_t resolution) const {
            return pageTop == top && firstRow == row && width == pixelWidth && dpi == resolution;
        }
    };

    void paintPage(const RowMap& map, const RowMap::Page& page, int64_t from, int64_t to, int32_t width,
                   uint32_t* target);
    const Band& bandAt(const RowMap& map, const RowMap::Page& page, int64_t firstRow, int64_t width,
                       int64_t height);

    lok::Document& mPainter;
    std::array<Band, 2> mBands; // the last used one first
};

} // namespace lectern::engine
