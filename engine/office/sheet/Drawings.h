// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/layout/Tracks.h"

#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>

#include <cstdint>
#include <optional>
#include <vector>

namespace lectern::engine {

// The charts, pictures and shapes of a sheet.
//
// The suite paints them where the lengths of columns and rows add up to, but
// cells where their whole pixels do: by the hundredth row the two are rows
// apart. So before a painting drawings are moved and scaled to where their
// cells are painted, and back before anything else is done with the sheet: the
// suite itself moves them with their cells. There are none before read().
//
// A chart takes the suite 10 ms to move, so charts far from the tile stay where
// they are until a tile shows their place.
class Drawings {
public:
    explicit Drawings(const css::uno::Reference<css::sheet::XSpreadsheet>& sheet) : mSheet(sheet) {}

    bool empty() const { return mDrawings.empty(); }
    // Moves the drawings of a tile to their cells' pixels at `dpi`.
    struct Way {
        const Tracks& tracks;
        double displacement; // by the tile, in pixels; see Tracks::displacementAt
        int64_t first;       // the tile's pixels [first, last)
        int64_t last;
    };
    void align(const Way& across, const Way& down, int32_t dpi);
    // The rectangle, in document pixels at `dpi`, of the topmost drawing at a pixel.
    std::optional<PixelRect> at(const Tracks& columns, const Tracks& rows, int32_t dpi, int32_t x,
                                int32_t y) const;
    // Moves the drawings back to their positions in the document.
    void restore();
    // Reads the drawings and their positions from the document.
    void read();

private:
    // A rectangle of the sheet, in 1/100 mm.
    struct Place {
        css::awt::Point position;
        css::awt::Size size;
        bool operator==(const Place& other) const { return position == other.position && size == other.size; }
    };
    struct Drawing {
        css::uno::Reference<css::drawing::XShape> shape;
        Place inDocument;
        Place now;
        bool isChart;         // or another object of its own; stays in its rectangle
        bool scalesWithCells; // a turned one is only moved
    };
    static void move(Drawing& drawing, const Place& place);

    css::uno::Reference<css::sheet::XSpreadsheet> mSheet;
    std::vector<Drawing> mDrawings;
};

} // namespace lectern::engine
