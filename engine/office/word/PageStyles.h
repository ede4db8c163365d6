// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/awt/Size.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

namespace lectern::engine {

// Margin left and right of the text, in 1/100 mm.
constexpr int32_t PAGE_MARGIN = 150;

// Size of the largest page, in 1/100 mm.
css::awt::Size paperSize(const css::uno::Reference<css::text::XTextDocument>& model);

// Removes from all page styles what belongs to paper: headers, footers,
// margins, text grid, columns, borders. The controllers must be locked.
void stripPages(const css::uno::Reference<css::text::XTextDocument>& model);

// Gives every page the same size, in 1/100 mm.
void setPageSize(const css::uno::Reference<css::text::XTextDocument>& model, int32_t width, int32_t height);

// Removes page breaks from all paragraph styles.
void removeStyleBreaks(const css::uno::Reference<css::text::XTextDocument>& model);

// Removes page breaks from a paragraph or table.
void removeBreaks(const css::uno::Reference<css::beans::XPropertySet>& block);

// Sets a page style or section to one column.
void removeColumns(const css::uno::Reference<css::beans::XPropertySet>& properties);

} // namespace lectern::engine
