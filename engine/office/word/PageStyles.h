// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

namespace lectern::engine {

// Margin to the left and the right of the text, in 1/100 mm.
constexpr int32_t PAGE_MARGIN = 150;

// The largest page's size, in 1/100 mm.
css::awt::Size paperSize(const css::uno::Reference<css::text::XTextDocument>& model);

// Strips the pages of what belongs to paper: headers, footers, margins, the
// text grid, columns, borders. For a document whose controllers are locked.
void stripPages(const css::uno::Reference<css::text::XTextDocument>& model);

// Gives every page the same size, in 1/100 mm.
void setPageSize(const css::uno::Reference<css::text::XTextDocument>& model, int32_t width, int32_t height);

// No paragraph style starts a page of its own.
void removeStyleBreaks(const css::uno::Reference<css::text::XTextDocument>& model);

// Nor does this paragraph or table.
void removeBreaks(const css::uno::Reference<css::beans::XPropertySet>& block);

// One column instead of several, for a page style or a section.
void removeColumns(const css::uno::Reference<css::beans::XPropertySet>& properties);

} // namespace lectern::engine
