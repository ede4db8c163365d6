// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextFrame.hpp>

#include <vector>

namespace lectern::engine {

// A text that stands in a frame or drawing beside the text of the document.
struct BoxedText {
    css::uno::Reference<css::beans::XPropertySet> shape;
    css::uno::Reference<css::text::XTextFrame> frame; // contains the text; null when it is
    css::uno::Reference<css::text::XText> drawn;      // written into the drawing itself
};

// The texts of a frame, a drawing or a group of drawings, from top to bottom and
// from left to right.
std::vector<BoxedText> boxedTexts(const css::uno::Reference<css::drawing::XShape>& shape);

// Removes texts from their drawings.
void clear(const std::vector<BoxedText>& texts);

// Whether a drawing or group contains a picture or letters drawn as outlines.
bool hasPictures(const css::uno::Reference<css::drawing::XShape>& shape);

// Whether the letters of the text are drawn as outlines, which are scaled with the drawing.
bool isWordArt(const css::uno::Reference<css::beans::XPropertySet>& shape);

} // namespace lectern::engine
