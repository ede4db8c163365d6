// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include <vector>

namespace lectern::engine {

// A shape and the position in the text that it is bound to.
struct AnchoredShape {
    css::uno::Reference<css::drawing::XShape> shape;
    css::uno::Reference<css::beans::XPropertySet> properties;
    css::uno::Reference<css::text::XTextRange> anchor;
};

// All shapes of the body, its tables and frames, in the order in which those of
// one paragraph are read: from top to bottom and from left to right. Shapes
// inside of groups are not listed.
std::vector<AnchoredShape> shapesInText(const css::uno::Reference<css::text::XTextDocument>& model);

bool isCharacter(const AnchoredShape& shape);

// The start of the paragraph before which a shape is read: its anchor's, or a
// later one when the shape stands below that. A paragraph is appended when there
// is no later one.
css::uno::Reference<css::text::XTextRange> flowPlace(const AnchoredShape& shape, int32_t lineWidth);

} // namespace lectern::engine
