// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/RowMap.h"
#include "engine/layout/Surface.h"
#include "engine/office/OfficePrivate.h"

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

    // Paints one band that rows [first, last) of the text need and that is not
    // painted yet, with 0 <= first <= last <= map.rows(). Returns false when there
    // is none; the next paint of these rows then only copies.
    bool prepare(const RowMap& map, int32_t width, int64_t first, int64_t last);
    static int64_t bandRows(int32_t dpi);
    // The most bands that this number of rows may need.
    static size_t bandsFor(int64_t rows, int32_t dpi);
    // Sets how many bands are kept, at least 1; those used last stay.
    void keep(size_t bands) { mBands.resize(bands); }

    // Drops the painted bands; call after every layout.
    void forget() { mBands.assign(mBands.size(), {}); }
    // Drops those that reach below a row; call when more of the text was laid out.
    void forgetBelow(const RowMap& map, int64_t row);

private:
    // A painted band of a page, at a multiple of bandRows(). A stretch that moves
    // by less than a band needs the rest of a band that is already partly visible.
    struct Band {
        int64_t pageTop = -1;
        int64_t firstRow = -1; // in the page
        int64_t width = 0;     // in pixels
        int32_t dpi = 0;
        std::vector<uint32_t> pixels;

        bool isAt(const Band& place) const {
            return pageTop == place.pageTop && firstRow == place.firstRow && width == place.width &&
                   dpi == place.dpi;
        }
    };

    void paintPage(const RowMap& map, const RowMap::Page& page, int64_t from, int64_t to, int32_t width,
                   uint32_t* target);
    // A band without pixels.
    static Band placeOf(const RowMap& map, const RowMap::Page& page, int64_t firstRow, int32_t width);
    bool has(const Band& place) const;
    // Returns the painted band at a place.
    const Band& bandAt(const RowMap::Page& page, const Band& place);

    lok::Document& mPainter;
    std::vector<Band> mBands{3}; // the last used one first
};

} // namespace lectern::engine
