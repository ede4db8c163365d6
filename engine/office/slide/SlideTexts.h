// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/OutlineItem.h"
#include "engine/office/Uno.h"

#include <com/sun/star/drawing/XDrawPage.hpp>

#include <vector>

namespace lectern::engine {

// The slide's title on one line: that of its title placeholder, else its first
// text, a cell's or a footer's aside. Empty when nothing is written on it.
std::u16string slideTitle(const css::uno::Reference<css::drawing::XDrawPage>& slide);

// The speaker's notes; a line feed stands between two paragraphs.
std::u16string slideNote(const css::uno::Reference<css::drawing::XDrawPage>& slide);

// The title, when a placeholder has it, and the paragraphs of the subtitle and
// text placeholders.
std::vector<OutlineItem> slideOutline(const css::uno::Reference<css::drawing::XDrawPage>& slide);

} // namespace lectern::engine
