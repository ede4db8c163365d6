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
    // An empty paragraph behind the body's last: it starts where the text ends.
    css::uno::Reference<css::text::XTextRange> end;
};

// Turns a paged document into one that flows, in memory: no headers, footers,
// columns and breaks; notes behind the text; tables as wide as the text;
// floating pictures inside the lines. Needs the controllers locked, lays
// nothing out, and is done once.
PreparedDocument prepareForReflow(const css::uno::Reference<css::text::XTextDocument>& model);

} // namespace lectern::engine
