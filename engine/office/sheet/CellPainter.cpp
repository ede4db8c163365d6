// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/CellPainter.h"

#include "engine/layout/GridLines.h"
#include "engine/layout/TileStep.h"

#include <algorithm>
#include <limits>

namespace lectern::engine {

namespace {

// The pixel at which a tile starts so that it shows `pixel` and its drawings
// need not be moved: the start of a cell, or as close behind one as is possible
// within MOST_BEFORE pixels. See Tracks::displacementAt.
int64_t startForDrawings(int64_t pixel, const Tracks& tracks, int32_t dpi) {
    constexpr int64_t MOST_BEFORE = 512; // pixels painted outside of the window at most
    const int64_t step = tileStep(dpi);
    int64_t best = roundDown(pixel, step);
    int64_t least = std::numeric_limits<int64_t>::max();
    for (int64_t start = best; start >= 0 && start + MOST_BEFORE >= pixel && least > 0; start -= step) {
        const int64_t into = start - tracks.position(tracks.trackAt(start));
        if (into < least) {
            least = into;
            best = start;
        }
    }
    return best;
}

// Along one axis: the document pixels [first, last) that a window shows of the
// sheet, and the suite's pixels that the tile for them covers.
//
// The suite draws a cell one pixel before the cell's first pixel: both the fill
// and the line at its left and top. Here a line belongs to the cell that it
// begins, so the picture is moved by one pixel. The pixel at the sheet's edge,
// which the suite does not paint, repeats its neighbour.
struct Span {
    int64_t first;
    int64_t last;
    int64_t tileFirst;
    int64_t tileLast;

    Span(int64_t from, int32_t size, const Tracks& tracks, int32_t dpi, bool withDrawings)
        : first(std::clamp<int64_t>(from, 0, tracks.total())),
          last(std::clamp<int64_t>(from + size, first, tracks.total())),
          tileFirst(withDrawings ? startForDrawings(painted(first), tracks, dpi)
                                 : roundDown(painted(first), tileStep(dpi))),
          tileLast(roundUp(std::max(last - 1, painted(first) + 1), tileStep(dpi))) {}

    bool isEmpty() const { return first >= last; }
    // The suite's pixel for a document pixel.
    static int64_t painted(int64_t pixel) { return std::max<int64_t>(pixel - 1, 0); }
    bool fitsTile() const { return first - 1 == tileFirst && last - 1 == tileLast; }
    int32_t tileSize() const { return static_cast<int32_t>(tileLast - tileFirst); }
    // True when the tile's positions fit into the suite's 32-bit twips.
    bool isWithinReach(int32_t dpi) const {
        return tileTwips(tileLast, dpi) <= std::numeric_limits<int32_t>::max();
    }
};

// Clears the part of the surface that lies outside of the sheet.
void clearOutside(const Surface& surface, int64_t x, int64_t y, const Span& across, const Span& down) {
    const int64_t top = down.first - y;
    const int64_t bottom = down.last - y;
    fill(surface, 0, 0, surface.width, top, WHITE);
    fill(surface, 0, top, across.first - x, bottom, WHITE);
    fill(surface, across.last - x, top, surface.width, bottom, WHITE);
    fill(surface, 0, bottom, surface.width, surface.height, WHITE);
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
    paintCells(book, sheet, x, y, dpi, surface);
    leaveOutCrossedLines(book, sheet, x, y, dpi, surface);
}

void CellPainter::leaveOutCrossedLines(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi,
                                       const Surface& surface) {
    book.show(sheet);
    if (!book.showsGrid()) {
        return;
    }
    const SheetGeometry& geometry = book.geometry(sheet);
    const CellBlock shown{geometry.columns.trackAt(x), geometry.rows.trackAt(y),
                          geometry.columns.trackAt(x + surface.width - 1),
                          geometry.rows.trackAt(y + surface.height - 1)};
    const CellSet empty = book.emptyCells(sheet, shown);
    const std::vector<LinePart> parts =
        crossedLines({surface, x, y, geometry.columns, geometry.rows}, dpi,
                     [&](int32_t column, int32_t row) { return empty.has(column, row); });
    if (parts.empty()) {
        return;
    }
    mWithoutLines.resize(static_cast<size_t>(surface.width) * static_cast<size_t>(surface.height));
    const Surface without{mWithoutLines.data(), surface.width, surface.height};
    book.showGrid(false);
    paintCells(book, sheet, x, y, dpi, without);
    book.showGrid(true);
    for (const LinePart& part : parts) {
        for (int64_t row = part.top; row < part.bottom; ++row) {
            surface.row(row)[part.x] = without.row(row)[part.x];
        }
    }
}

void CellPainter::paintCells(Workbook& book, int32_t sheet, int64_t x, int64_t y, int32_t dpi,
                             const Surface& surface) {
    const SheetGeometry& geometry = book.geometry(sheet);
    const bool withDrawings = book.hasDrawings(sheet);
    const Span across(x, surface.width, geometry.columns, dpi, withDrawings);
    const Span down(y, surface.height, geometry.rows, dpi, withDrawings);
    if (across.isEmpty() || down.isEmpty() || !across.isWithinReach(dpi) || !down.isWithinReach(dpi)) {
        fill(surface, 0, 0, surface.width, surface.height, WHITE);
        return;
    }
    book.alignDrawings(sheet, across.tileFirst, down.tileFirst, across.tileLast, down.tileLast);
    book.show(sheet);
    if (across.fitsTile() && down.fitsTile() && across.tileSize() == surface.width) {
        paintTile(book.painter(), across, down, dpi, surface.row(down.first - y));
    } else {
        mTile.resize(static_cast<size_t>(across.tileSize()) * static_cast<size_t>(down.tileSize()));
        paintTile(book.painter(), across, down, dpi, mTile.data());
        const int64_t repeated = across.first == 0 ? 1 : 0;
        for (int64_t row = down.first; row < down.last; ++row) {
            const uint32_t* from = mTile.data() + (Span::painted(row) - down.tileFirst) * across.tileSize() +
                                   (Span::painted(across.first) - across.tileFirst);
            uint32_t* to = surface.row(row - y) + (across.first - x);
            *to = *from;
            std::copy_n(from, across.last - across.first - repeated, to + repeated);
        }
    }
    clearOutside(surface, x, y, across, down);
}

} // namespace lectern::engine
