// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/TilePainter.h"

#include "engine/layout/TileStep.h"

#include <algorithm>
#include <iterator>
#include <utility>

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

bool TilePainter::prepare(const RowMap& map, int32_t width, int64_t first, int64_t last) {
    const int64_t height = bandRows(map.dpi());
    for (const RowMap::Page& page : map.pages()) {
        const int64_t from = std::max(first, page.firstRow) - page.firstRow;
        const int64_t to = std::min(last, page.firstRow + page.rows) - page.firstRow;
        for (int64_t row = roundDown(from, height); from < to && row < to; row += height) {
            const Band place = placeOf(map, page, row, width);
            const bool isNew = !has(place);
            bandAt(page, place); // stays for longer
            if (isNew) {
                return true;
            }
        }
    }
    return false;
}

void TilePainter::forgetBelow(const RowMap& map, int64_t row) {
    for (Band& band : mBands) {
        const bool isAbove =
            std::any_of(map.pages().begin(), map.pages().end(), [&](const RowMap::Page& page) {
                return page.top == band.pageTop && page.firstRow + band.firstRow + bandRows(band.dpi) <= row;
            });
        if (!isAbove) {
            band = {};
        }
    }
}

int64_t TilePainter::bandRows(int32_t dpi) {
    return roundUp(BAND_ROWS, tileStep(dpi));
}

size_t TilePainter::bandsFor(int64_t rows, int32_t dpi) {
    return static_cast<size_t>(rows / bandRows(dpi)) + 2;
}

TilePainter::Band TilePainter::placeOf(const RowMap& map, const RowMap::Page& page, int64_t firstRow,
                                       int32_t width) {
    return {page.top, firstRow, roundUp(width, tileStep(map.dpi())), map.dpi(), {}};
}

// Pictures are scaled from the part of them inside the tile. So the tiles are
// always the same bands of the page, whichever rows are painted.
void TilePainter::paintPage(const RowMap& map, const RowMap::Page& page, int64_t from, int64_t to,
                            int32_t width, uint32_t* target) {
    const int64_t height = bandRows(map.dpi());
    for (int64_t firstRow = roundDown(from, height); firstRow < to; firstRow += height) {
        const Band& band = bandAt(page, placeOf(map, page, firstRow, width));
        const int64_t first = std::max(from, firstRow);
        const int64_t last = std::min(to, firstRow + height);
        for (int64_t row = first; row < last; ++row) {
            std::copy_n(band.pixels.data() + (row - firstRow) * band.width, width,
                        target + (row - from) * width);
        }
    }
}

bool TilePainter::has(const Band& place) const {
    return std::any_of(mBands.begin(), mBands.end(), [&](const Band& band) { return band.isAt(place); });
}

const TilePainter::Band& TilePainter::bandAt(const RowMap::Page& page, const Band& place) {
    const auto known =
        std::find_if(mBands.begin(), mBands.end(), [&](const Band& band) { return band.isAt(place); });
    const bool isKnown = known != mBands.end();
    // The one used longest ago makes room.
    std::rotate(mBands.begin(), isKnown ? known : std::prev(mBands.end()),
                isKnown ? std::next(known) : mBands.end());
    Band& latest = mBands.front();
    if (isKnown) {
        return latest;
    }
    const int64_t height = bandRows(place.dpi);
    const auto twips = [&](int64_t pixels) { return static_cast<int>(tileTwips(pixels, place.dpi)); };
    std::vector<uint32_t> pixels = std::move(latest.pixels);
    pixels.resize(static_cast<size_t>(place.width * height));
    latest = {}; // until it is painted
    mPainter.paintTile(reinterpret_cast<unsigned char*>(pixels.data()), static_cast<int>(place.width),
                       static_cast<int>(height), static_cast<int>(page.left),
                       static_cast<int>(page.top) + twips(place.firstRow), twips(place.width), twips(height));
    latest = place;
    latest.pixels = std::move(pixels);
    return latest;
}

} // namespace lectern::engine
