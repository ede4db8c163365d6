// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/CellPainter.h"

#include "engine/office/TileStep.h"

#include <algorithm>
#include <limits>

namespace lectern::engine {

namespace {

constexpr uint32_t white = 0xFFFFFFFF;

// Pixels [first, last) of a sheet along an axis, and the tile's that cover them.
struct Span {
    int64_t first;
    int64_t last;
    int64_t tileFirst;
    int64_t tileLast;

    Span(int64_t from, int32_t size, int64_t total, int64_t step)
        : first(std::clamp<int64_t>(from, 0, total)), last(std::clamp<int64_t>(from + size, first, total)),
          tileFirst(first / step * step), tileLast(roundUp(last, step)) {}

    bool isEmpty() const { return first >= last; }
    bool fitsTile() const { return first == tileFirst && last == tileLast; }
    int32_t tileSize() const { return static_cast<int32_t>(tileLast - tileFirst); }
    // Positions reach the suite as 32-bit twips.
    bool isWithinReach(int32_t dpi) const {
        return tileTwips(tileLast, dpi) <= std::numeric_limits<int32_t>::max();
    }
};

void fill(const Surface& surface, int64_t left, int64_t top, int64_t right, int64_t bottom) {
    for (int64_t y = top; y < bottom; ++y)
        std::fill(surface.row(y) + left, surface.row(y) + right, white);
}

// All but the part that lies on the sheet.
void clearOutside(const Surface& surface, int64_t x, int64_t y, const Span& across, const Span& down) {
    const int64_t top = down.first - y;
    const int64_t bottom = down.last - y;
    fill(surface, 0, 0, surface.width, top);
    fill(surface, 0, top, across.first - x, bottom);
    fill(surface, across.last - x, top, surface.width, bottom);
    fill(surface, 0, bottom, surface.width, surface.height);
}

void paintTile(lok::Document& painter, const Span& across, const Span& down, int32_t dpi, uint32_t* pixels) {
    const auto twips = [&](int64_t length) { return static_cast<int>(tileTwips(length, dpi)); };
    painter.paintTile(reinterpret_cast<unsigned char*>(pixels), across.tileSize(), down.tileSize(),
                      twips(across.tileFirst), twips(down.tileFirst), twips(across.tileSize()),
                      twips(down.tileSize()));
}

} // namespace

void CellPainter::paint(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi,
                        const Surface& surface) {
    const SheetGeometry& geometry = book.geometry(sheet);
    const int64_t step = tileStep(dpi);
    const Span across(x, surface.width, geometry.columns.total(), step);
    const Span down(y, surface.height, geometry.rows.total(), step);
    if (across.isEmpty() || down.isEmpty() || !across.isWithinReach(dpi) || !down.isWithinReach(dpi)) {
        fill(surface, 0, 0, surface.width, surface.height);
        return;
    }
    book.show(sheet);
    if (across.fitsTile() && down.fitsTile() && across.tileSize() == surface.width) {
        paintTile(book.painter(), across, down, dpi, surface.row(down.first - y));
    } else {
        mTile.resize(static_cast<size_t>(across.tileSize()) * static_cast<size_t>(down.tileSize()));
        paintTile(book.painter(), across, down, dpi, mTile.data());
        for (int64_t row = down.first; row < down.last; ++row)
            std::copy_n(mTile.data() + (row - down.tileFirst) * across.tileSize() +
                            (across.first - across.tileFirst),
                        across.last - across.first, surface.row(row - y) + (across.first - x));
    }
    clearOutside(surface, x, y, across, down);
}

} // namespace lectern::engine
