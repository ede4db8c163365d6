// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/BoxedTexts.h"

#include <com/sun/star/text/XTextDocument.hpp>

namespace lectern::engine {

// The text of a frame or drawing as part of the text around it: a table of one
// cell, with the frame's border and background.
//
// A table has the width of the text whatever that becomes, is as high as its
// content, and its cell can hold what a frame can: paragraphs, tables, pictures.

// Inserts a copy of a text before the paragraph that starts at `place`. Returns
// false, and inserts nothing, when the suite cannot copy the text.
bool insertAsTable(const css::uno::Reference<css::text::XTextDocument>& model,
                   const css::uno::Reference<css::text::XTextRange>& place, const BoxedText& text);

// Inserts an empty table without a border; returns the text of its cell.
css::uno::Reference<css::text::XText> insertTable(const css::uno::Reference<css::text::XTextDocument>& model,
                                                  const css::uno::Reference<css::text::XTextRange>& place);

} // namespace lectern::engine
