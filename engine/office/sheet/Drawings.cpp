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

// Whether a length of the sheet lies in a tile or so near that a border or a
// shadow could reach into it. Both in 1/100 mm.
bool isNear(const Drawings::Way& way, int32_t place, int32_t length, int32_t dpi) {
    constexpr double REACH = HUNDREDTH_MM_PER_INCH;
    const auto edge = [&](int64_t pixel) { return static_cast<double>(pixel) * HUNDREDTH_MM_PER_INCH / dpi; };
    return place + length > edge(way.first) - REACH && place < edge(way.last) + REACH;
}

} // namespace

void Drawings::read() {
    mDrawings.clear();
    const Reference<css::drawing::XDrawPageSupplier> supplier(mSheet, UNO_QUERY_THROW);
    const auto page = supplier->getDrawPage();
    // A sheet that a file only counts, without having it, has no page.
    if (!page.is()) {
        return;
    }
    for (sal_Int32 i = 0; i < page->getCount(); ++i) {
        const Reference<css::drawing::XShape> shape(page->getByIndex(i), UNO_QUERY);
        if (!shape.is()) {
            continue;
        }
        const OUString type = shape->getShapeType();
        // Comments have shapes of this type too; they are not shown.
        if (type == "com.sun.star.drawing.CaptionShape") {
            continue;
        }
        const auto turned = property<sal_Int32>(propertiesOf(shape), "RotateAngle");
        const Place place{shape->getPosition(), shape->getSize()};
        mDrawings.push_back({shape, place, place, type == "com.sun.star.drawing.OLE2Shape", turned == 0});
    }
}

void Drawings::move(Drawing& drawing, const Place& place) {
    if (place == drawing.now) {
        return;
    }
    drawing.now = place;
    try {
        if (drawing.scalesWithCells) {
            drawing.shape->setSize(place.size);
        }
        drawing.shape->setPosition(place.position);
    } catch (const css::uno::Exception&) {
        // A shape that refuses to move keeps its position.
    }
}

void Drawings::align(const Way& across, const Way& down, int32_t dpi) {
    const auto isNearTile = [&](const Place& place) {
        return isNear(across, place.position.X, place.size.Width, dpi) &&
               isNear(down, place.position.Y, place.size.Height, dpi);
    };
    for (Drawing& drawing : mDrawings) {
        const auto& [position, size] = drawing.inDocument;
        const css::awt::Point corner(placeFor(across, position.X, dpi), placeFor(down, position.Y, dpi));
        const int32_t right = placeFor(across, position.X + size.Width, dpi);
        const int32_t bottom = placeFor(down, position.Y + size.Height, dpi);
        const Place place{corner, {right - corner.X, bottom - corner.Y}};
        if (!drawing.isChart || isNearTile(place) || isNearTile(drawing.now)) {
            move(drawing, place);
        }
    }
}

std::optional<PixelRect> Drawings::at(const Tracks& columns, const Tracks& rows, int32_t dpi, int32_t x,
                                      int32_t y) const {
    const auto pixel = [dpi](const Tracks& tracks, int32_t place) {
        return static_cast<int32_t>(
            std::lround(tracks.paintedAt(place * TWIPS_PER_INCH / HUNDREDTH_MM_PER_INCH, dpi)));
    };
    for (auto drawing = mDrawings.rbegin(); drawing != mDrawings.rend(); ++drawing) {
        const auto& [position, size] = drawing->inDocument;
        const int32_t left = pixel(columns, position.X);
        const int32_t top = pixel(rows, position.Y);
        const int32_t right = pixel(columns, position.X + size.Width);
        const int32_t bottom = pixel(rows, position.Y + size.Height);
        if (left <= x && x < right && top <= y && y < bottom) {
            return PixelRect{left, top, right - left, bottom - top};
        }
    }
    return std::nullopt;
}

void Drawings::restore() {
    for (Drawing& drawing : mDrawings) {
        move(drawing, drawing.inDocument);
    }
}

} // namespace lectern::engine
