// SPDX-License-Identifier: Apache-2.0
#include "engine/office/TilePainter.h"

#include <algorithm>
#include <numeric>

namespace lectern::engine {

namespace {

constexpr uint32_t white = 0xFFFFFFFF;
constexpr int64_t twipsPerInch = 1440;
constexpr int64_t bandRows = 512;

int64_t roundUp(int64_t value, int64_t step) {
    return (value + step - 1) / step * step;
}

} // namespace

void TilePainter::paint(const RowMap& map, int64_t top, const Surface& surface, int32_t first, int32_t last) {
    int32_t next = first;
    for (const RowMap::Page& page : map.pages()) {
        const int64_t from = std::max(top + next, page.firstRow);
        const int64_t to = std::min(top + last, page.firstRow + page.rows);
        if (from >= to)
            continue;
        paintPage(map, page, from - page.firstRow, to - page.firstRow, surface.width,
                  surface.row(from - top));
        next = static_cast<int32_t>(to - top);
    }
    std::fill(surface.row(next), surface.row(last), white);
}

// The suite takes a tile's scale from the ratio of its pixels to its twips, and
// rounds to pixels from the tile's corner. Both come out the same for every tile
// only when tiles begin and end on whole twips: every `step` pixels. Pictures
// are scaled from what of them falls into the tile, so tiles are always the same
// bands of the page, whatever part of a band is wanted.
void TilePainter::paintPage(const RowMap& map, const RowMap::Page& page, int64_t from, int64_t to,
                            int32_t width, uint32_t* target) {
    const int64_t step = map.dpi() / std::gcd(int64_t{map.dpi()}, twipsPerInch);
    const int64_t tileWidth = roundUp(width, step);
    const int64_t tileHeight = roundUp(bandRows, step);
    const auto twips = [&](int64_t pixels) {
        return static_cast<int>(pixels / step * (twipsPerInch * step / map.dpi()));
    };

    for (int64_t band = from / tileHeight * tileHeight; band < to; band += tileHeight) {
        const int64_t first = std::max(from, band);
        const int64_t last = std::min(to, band + tileHeight);
        uint32_t* const rows = target + (first - from) * width;
        const bool direct = tileWidth == width && last - first == tileHeight;
        if (!direct)
            mTile.resize(static_cast<size_t>(tileWidth * tileHeight));
        uint32_t* const tile = direct ? rows : mTile.data();
        mPainter.paintTile(reinterpret_cast<unsigned char*>(tile), static_cast<int>(tileWidth),
                           static_cast<int>(tileHeight), static_cast<int>(page.left),
                           static_cast<int>(page.top) + twips(band), twips(tileWidth), twips(tileHeight));
        for (int64_t row = first; row < last && !direct; ++row)
            std::copy_n(tile + (row - band) * tileWidth, width, rows + (row - first) * width);
    }
}

} // namespace lectern::engine
