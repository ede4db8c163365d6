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
// The suite paints drawings at the exact sums of the column widths and row
// heights, but cells at the sums of the sizes cut off to whole pixels. By the
// hundredth row the two differ by whole rows. Drawings are therefore moved and
// scaled to their cells before a painting, and moved back before any other
// operation on the sheet, because the suite itself moves drawings with their
// cells.
class Drawings {
public:
    explicit Drawings(const css::uno::Reference<css::sheet::XSpreadsheet>& sheet);

    bool empty() const { return mDrawings.empty(); }
    // Moves the drawings to their cells' pixels at `dpi`.
    void align(const Tracks& columns, const Tracks& rows, int32_t dpi);
    // Moves the drawings back to their positions in the document.
    void restore();
    // Reads the drawings and their positions from the document.
    void read();

private:
    struct Drawing {
        css::uno::Reference<css::drawing::XShape> shape;
        css::awt::Point position; // in the document, in 1/100 mm
        css::awt::Size size;
        bool stretches; // false for a rotated drawing, which is only moved
    };
    static void place(const Drawing& drawing, const css::awt::Point& position, const css::awt::Size& size);

    css::uno::Reference<css::sheet::XSpreadsheet> mSheet;
    std::vector<Drawing> mDrawings;
    int32_t mAlignedTo = 0; // the resolution; 0 when the drawings are at their positions in the document
};

} // namespace lectern::engine
