// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/Body.h"
#include "engine/office/word/FloatingShapes.h"
#include "engine/office/word/Indents.h"

namespace lectern::engine {

struct PreparedDocument {
    Body body;
    std::vector<FloatingShape> shapes;
    std::vector<IndentedParagraph> indents;
    // An empty paragraph after the last one of the body; the text ends where it starts.
    css::uno::Reference<css::text::XTextRange> end;
};

// Turns a paged document into one that flows, in memory only: no headers,
// footers, columns and page breaks; notes after the text; tables as wide as the
// text; floating shapes inside the lines. Call once, with the controllers
// locked; does not lay out.
PreparedDocument prepareForReflow(const css::uno::Reference<css::text::XTextDocument>& model);

} // namespace lectern::engine
