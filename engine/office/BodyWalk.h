// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Uno.h"

#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextDocument.hpp>

#include <cstdint>
#include <functional>
#include <vector>

namespace lectern::engine {

// A paragraph of the body: characters [start, start + length), UTF-16 units in
// the order of the document.
struct BodyParagraph {
    css::uno::Reference<css::text::XTextRange> range;
    uint32_t start;
    uint32_t length;
};

// The body itself, without names, or a cell: the paragraphs that stand in it,
// not those of tables inside it.
struct BodyText {
    OUString table;
    OUString cell;
    css::uno::Reference<css::text::XText> text;
    std::vector<size_t> paragraphs;
};

struct Body {
    std::vector<BodyParagraph> paragraphs;
    std::vector<BodyText> texts; // the body itself first
    uint32_t length = 0;         // all characters, one between two paragraphs

    const css::uno::Reference<css::text::XText>& text() const { return texts.front().text; }
    bool hasTables() const { return texts.size() > 1; }
};

// Walks the body text, tables included, in the order of the document. Reading a
// paragraph is what costs, so whatever else each paragraph or table outside of
// tables needs done to it is done on the way, by onBlock.
Body walkBody(const css::uno::Reference<css::text::XTextDocument>& model,
              const std::function<void(const css::uno::Reference<css::beans::XPropertySet>&)>& onBlock);

} // namespace lectern::engine
