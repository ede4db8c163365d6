// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/TilePainter.h"

#include "engine/layout/TileStep.h"

#include <algorithm>

namespace lectern::engine {

namespace {

constexpr int64_t BAND_ROWS = 512;

} // namespace

void TilePainter::paint(const RowMap& map, int64_t top, const Surface& surface, int32_t first, int32_t last) {
    int32_t next = first;
    for (const RowMap::Page& page : map.pages()) {
        const int64_t from = std::max(top + next, page.firstRow);
        const int64_t to = std::min(top + last, page.firstRow + page.rows);
        if (from >= to) {
            continue;
        }
        paintPage(map, page, from - page.firstRow, to - page.firstRow, surface.width,
                  surface.row(from - top));
        next = static_cast<int32_t>(to - top);
    }
    fill(surface, 0, next, surface.width, last, WHITE);
}

// Pictures are scaled from the part of them inside the tile. So the tiles are
// always the same bands of the page, whichever rows are painted.
void TilePainter::paintPage(const RowMap& map, const RowMap::Page& page, int64_t from, int64_t to,
                            int32_t width, uint32_t* target) {
    const int64_t step = tileStep(map.dpi());
    const int64_t tileWidth = roundUp(width, step);
    const int64_t tileHeight = roundUp(BAND_ROWS, step);
    for (int64_t firstRow = roundDown(from, tileHeight); firstRow < to; firstRow += tileHeight) {
        const Band& band = bandAt(map, page, firstRow, tileWidth, tileHeight);
        const int64_t first = std::max(from, firstRow);
        const int64_t last = std::min(to, firstRow + tileHeight);
        for (int64_t row = first; row < last; ++row) {
            std::copy_n(band.pixels.data() + (row - firstRow) * tileWidth, width,
                        target + (row - from) * width);
        }
    }
}

const TilePainter::Band& TilePainter::bandAt(const RowMap& map, const RowMap::Page& page, int64_t firstRow,
                                             int64_t width, int64_t height) {
    Band& latest = mBands.front();
    if (latest.isFor(page.top, firstRow, width, map.dpi())) {
        return latest;
    }
    std::swap(latest, mBands.back());
    if (latest.isFor(page.top, firstRow, width, map.dpi())) {
        return latest;
    }
    const auto twips = [&](int64_t pixels) { return static_cast<int>(tileTwips(pixels, map.dpi())); };
    latest.pixels.resize(static_cast<size_t>(width * height));
    mPainter.paintTile(reinterpret_cast<unsigned char*>(latest.pixels.data()), static_cast<int>(width),
                       static_cast<int>(height), static_cast<int>(page.left),
                       static_cast<int>(page.top) + twips(firstRow), twips(width), twips(height));
    latest.pageTop = page.top;
    latest.firstRow = firstRow;
    latest.width = width;
    latest.dpi = map.dpi();
    return latest;
}

} // namespace lectern::engine
