// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/CellTile.h"

#include "engine/layout/TileStep.h"

#include <algorithm>
#include <limits>

namespace lectern::engine {

namespace {

// Rows at the end of a tile in which the suite leaves out pixels of the grid lines.
// A tile without drawings, which its size could change, is painted longer by them
// where the sheet goes on.
constexpr int32_t LEFT_OUT = 1;

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

    Span(int64_t from, int64_t end, const Tracks& tracks, int32_t dpi, bool withDrawings, int32_t beyond)
        : first(std::clamp<int64_t>(from, 0, tracks.total())),
          last(std::clamp<int64_t>(end, first, tracks.total())),
          tileFirst(withDrawings ? startForDrawings(painted(first), tracks, dpi)
                                 : roundDown(painted(first), tileStep(dpi))),
          tileLast(roundUp(std::max(std::min(last + beyond, tracks.total()) - 1, painted(first) + 1),
                           tileStep(dpi))) {}

    bool isEmpty() const { return first >= last; }
    // The suite's pixel for a document pixel.
    static int64_t painted(int64_t pixel) { return std::max<int64_t>(pixel - 1, 0); }
    int32_t tileSize() const { return static_cast<int32_t>(tileLast - tileFirst); }
    // True when the tile's positions fit into the suite's 32-bit twips.
    bool isWithinReach(int32_t dpi) const {
        return tileTwips(tileLast, dpi) <= std::numeric_limits<int32_t>::max();
    }
};

} // namespace

void CellTile::paint(Workbook& book, int32_t sheet, const TileArea& area, int32_t dpi) {
    const SheetGeometry& geometry = book.geometry(sheet);
    const bool withDrawings = book.hasDrawings(sheet);
    const Span across(area.left, area.right, geometry.columns, dpi, withDrawings, 0);
    const Span down(area.top, area.bottom, geometry.rows, dpi, withDrawings, withDrawings ? 0 : LEFT_OUT);
    mArea = area;
    mOnSheet = {};
    mWhite.assign(static_cast<size_t>(area.width()), WHITE);
    mRow = mWhite;
    if (across.isEmpty() || down.isEmpty() || !across.isWithinReach(dpi) || !down.isWithinReach(dpi)) {
        return;
    }
    book.alignDrawings(sheet, across.tileFirst, down.tileFirst, across.tileLast, down.tileLast);
    book.show(sheet);
    mStride = across.tileSize();
    mPixels.require(static_cast<size_t>(mStride) * static_cast<size_t>(down.tileSize()));
    const auto twips = [&](int64_t length) { return static_cast<int>(tileTwips(length, dpi)); };
    book.painter().paintTile(reinterpret_cast<unsigned char*>(mPixels.pixels()), across.tileSize(),
                             down.tileSize(), twips(across.tileFirst), twips(down.tileFirst),
                             twips(across.tileSize()), twips(down.tileSize()));
    mOnSheet = {across.first, down.first, across.last, down.last};
    mTileLeft = across.tileFirst;
    mTileTop = down.tileFirst;
}

uint32_t CellTile::at(int64_t x, int64_t y) const {
    return mPixels.pixels()[(Span::painted(y) - mTileTop) * mStride + (Span::painted(x) - mTileLeft)];
}

const uint32_t* CellTile::row(int64_t y) {
    if (y < mOnSheet.top || y >= mOnSheet.bottom) {
        return mWhite.data();
    }
    const uint32_t* const pixels = mPixels.pixels() + (Span::painted(y) - mTileTop) * mStride +
                                   (Span::painted(mOnSheet.left) - mTileLeft);
    if (mOnSheet.left > 0 && mOnSheet.left == mArea.left && mOnSheet.right == mArea.right) {
        return pixels;
    }
    const int64_t repeated = mOnSheet.left == 0 ? 1 : 0;
    uint32_t* const onSheet = mRow.data() + (mOnSheet.left - mArea.left);
    *onSheet = *pixels;
    std::copy_n(pixels, mOnSheet.width() - repeated, onSheet + repeated);
    return mRow.data();
}

} // namespace lectern::engine
