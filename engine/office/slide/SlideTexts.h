// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/OutlineItem.h"
#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPage.hpp>

#include <vector>

namespace lectern::engine {

// The slide's title on one line: the text of the title placeholder, or else the first
// text that is neither in a table cell nor a footer. Empty when the slide has no text.
std::u16string slideTitle(const css::uno::Reference<css::drawing::XDrawPage>& slide);

// The speaker's notes, with line feeds between the paragraphs.
std::u16string slideNote(const css::uno::Reference<css::drawing::XDrawPage>& slide);

// The title, if a placeholder contains it, and the paragraphs of the subtitle
// and text placeholders.
std::vector<OutlineItem> slideOutline(const css::uno::Reference<css::drawing::XDrawPage>& slide);

} // namespace lectern::engine
