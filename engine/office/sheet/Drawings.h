// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Tracks.h"

#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>

#include <cstdint>
#include <vector>

namespace lectern::engine {

// The charts, pictures and shapes of a sheet.
//
// The suite paints them where the lengths of columns and rows add up to, but
// cells where their whole pixels do: by the hundredth row the two are rows
// apart. So before a painting drawings are moved and scaled to where their
// cells are painted, and back before anything else is done with the sheet: the
// suite itself moves them with their cells. There are none before read().
class Drawings {
public:
    explicit Drawings(const css::uno::Reference<css::sheet::XSpreadsheet>& sheet) : mSheet(sheet) {}

    bool empty() const { return mDrawings.empty(); }
    // Moves the drawings to their cells' pixels at `dpi`, in a tile that displaces
    // them along both axes.
    struct Way {
        const Tracks& tracks;
        double displacement; // in pixels; see Tracks::displacementAt
    };
    void align(const Way& across, const Way& down, int32_t dpi);
    // Moves the drawings back to their positions in the document.
    void restore();
    // Reads the drawings and their positions from the document.
    void read();

private:
    struct Drawing {
        css::uno::Reference<css::drawing::XShape> shape;
        css::awt::Point position; // in the document, in 1/100 mm
        css::awt::Size size;
        bool scalesWithCells; // a turned one is only moved
    };
    static void place(const Drawing& drawing, const css::awt::Point& position, const css::awt::Size& size);

    css::uno::Reference<css::sheet::XSpreadsheet> mSheet;
    std::vector<Drawing> mDrawings;
    // What the drawings were aligned to; a resolution of 0 when they are at their
    // positions in the document.
    struct Alignment {
        int32_t dpi = 0;
        double across = 0;
        double down = 0;
        friend bool operator==(const Alignment&, const Alignment&) = default;
    };
    Alignment mAlignment;
};

} // namespace lectern::engine
