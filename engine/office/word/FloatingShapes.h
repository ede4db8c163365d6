// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include <vector>

namespace lectern::engine {

// A picture, embedded object or drawing that is anchored as a character.
struct FloatingShape {
    enum class Kind { Drawing, Picture };

    css::uno::Reference<css::drawing::XShape> shape;
    css::uno::Reference<css::beans::XPropertySet> properties;
    css::awt::Size natural; // size in the document, 1/100 mm
    Kind kind;
    int32_t indent;  // width of the line taken by its paragraph's indents and its own margins, 1/100 mm
    int32_t columns; // of the table that contains it; 1 outside of tables
};

// Makes everything that stands beside the text part of it, so that nothing
// overlaps: texts of frames and drawings become tables, all else characters.
// Removes drawings around and behind the text, and pictures that are not there.
// Returns the characters. Call once, when headers and footers are off.
std::vector<FloatingShape> anchorInLines(const css::uno::Reference<css::text::XTextDocument>& model);

// Scales shapes down to a text of `width` 1/100 mm; those that fit get their
// natural size. Call before a layout, with the controllers locked.
void fitShapes(const std::vector<FloatingShape>& shapes, int32_t width);

// fitShapes sets pictures in table cells to the width of their cell, which only
// a layout knows. This gives pictures that were enlarged their natural size
// back. Returns whether there were any; then another layout is needed.
bool undoEnlargement(const std::vector<FloatingShape>& shapes);

} // namespace lectern::engine
