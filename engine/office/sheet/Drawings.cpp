// SPDX-License-Identifier: Apache-2.0
#include "engine/office/sheet/Drawings.h"

#include "engine/layout/Twips.h"
#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPageSupplier.hpp>

#include <cmath>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr double HUNDREDTH_MM_PER_INCH = 2540;

// Where a drawing must be so that the suite paints it at the pixel of what the
// document has at `place`, a distance from the sheet's edge. Both in 1/100 mm.
int32_t placeFor(const Drawings::Way& way, int32_t place, int32_t dpi) {
    const double pixel = way.tracks.paintedAt(place * TWIPS_PER_INCH / HUNDREDTH_MM_PER_INCH, dpi);
    return static_cast<int32_t>(std::lround((pixel - way.displacement) * HUNDREDTH_MM_PER_INCH / dpi));
}

} // namespace

void Drawings::read() {
    mDrawings.clear();
    mAlignment = {};
    const Reference<css::drawing::XDrawPageSupplier> supplier(mSheet, UNO_QUERY_THROW);
    const auto page = supplier->getDrawPage();
    // A sheet that a file only counts, without having it, has no page.
    if (!page.is()) {
        return;
    }
    for (sal_Int32 i = 0; i < page->getCount(); ++i) {
        const Reference<css::drawing::XShape> shape(page->getByIndex(i), UNO_QUERY);
        // Comments have shapes of this type too; they are not shown.
        if (!shape.is() || shape->getShapeType() == "com.sun.star.drawing.CaptionShape") {
            continue;
        }
        const auto turned = property<sal_Int32>(propertiesOf(shape), "RotateAngle");
        mDrawings.push_back({shape, shape->getPosition(), shape->getSize(), turned == 0});
    }
}

void Drawings::place(const Drawing& drawing, const css::awt::Point& position, const css::awt::Size& size) {
    try {
        if (drawing.scalesWithCells) {
            drawing.shape->setSize(size);
        }
        drawing.shape->setPosition(position);
    } catch (const css::uno::Exception&) {
        // A shape that refuses to move keeps its position.
    }
}

void Drawings::align(const Way& across, const Way& down, int32_t dpi) {
    const Alignment alignment{dpi, across.displacement, down.displacement};
    if (mAlignment == alignment) {
        return;
    }
    mAlignment = alignment;
    for (const Drawing& drawing : mDrawings) {
        const auto& [x, y] = drawing.position;
        const css::awt::Point position(placeFor(across, x, dpi), placeFor(down, y, dpi));
        const int32_t right = placeFor(across, x + drawing.size.Width, dpi);
        const int32_t bottom = placeFor(down, y + drawing.size.Height, dpi);
        place(drawing, position, {right - position.X, bottom - position.Y});
    }
}

void Drawings::restore() {
    if (mAlignment == Alignment()) {
        return;
    }
    mAlignment = {};
    for (const Drawing& drawing : mDrawings) {
        place(drawing, drawing.position, drawing.size);
    }
}

} // namespace lectern::engine
