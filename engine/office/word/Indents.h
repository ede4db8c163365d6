// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/Body.h"

#include <cstdint>
#include <vector>

namespace lectern::engine {

// The indents of a paragraph, in 1/100 mm.
struct IndentedParagraph {
    css::uno::Reference<css::beans::XPropertySet> properties;
    int32_t left;
    int32_t right;
    int32_t firstLine;
    bool reduced = false;
};

// The paragraphs outside of tables whose indents may be too wide for a narrow
// screen. Indents that would put words left or right of the page become 0.
std::vector<IndentedParagraph> indentedParagraphs(const Body& body);

// Limits indents to half of a line of `width` 1/100 mm: wider ones, made for
// paper, are scaled down, all others are as in the document. Call with the
// controllers locked.
void fitIndents(std::vector<IndentedParagraph>& paragraphs, int32_t width);

} // namespace lectern::engine
