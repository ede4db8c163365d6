// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include <vector>

namespace lectern::engine {

// A picture, frame, embedded object or drawing, anchored like a character.
struct FloatingShape {
    enum class Kind { Drawing, Picture, TextFrame };

    css::uno::Reference<css::drawing::XShape> shape;
    css::uno::Reference<css::beans::XPropertySet> properties;
    css::awt::Size natural; // as the document has it, 1/100 mm
    Kind kind;
    int32_t indent;  // what its paragraph's indents and its own margins take of the line, 1/100 mm
    int32_t columns; // of the table it stands in, 1 outside of tables
};

// Anchors everything that floats like a character, so that it moves with the
// text and nothing overlaps it. Drawings that only frame the page are removed.
std::vector<FloatingShape> anchorInLines(const css::uno::Reference<css::text::XTextDocument>& model);

// Scales down what is wider than a text of `width` 1/100 mm; the rest gets its
// natural size. Before a layout, with the controllers locked.
void fitShapes(const std::vector<FloatingShape>& shapes, int32_t width);

// Pictures in cells were set to their cell's width, which only a layout knows.
// Gives those that this enlarged their natural size back; true when there were
// any, so that another layout is due.
bool undoEnlargement(const std::vector<FloatingShape>& shapes);

} // namespace lectern::engine
