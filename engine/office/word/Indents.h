// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/Body.h"

#include <cstdint>
#include <vector>

namespace lectern::engine {

// What a paragraph's indents take of its lines, in 1/100 mm.
struct IndentedParagraph {
    css::uno::Reference<css::beans::XPropertySet> properties;
    int32_t left;
    int32_t right;
    int32_t firstLine;
    bool reduced = false;
};

// The paragraphs outside of tables whose indents are worth a look on a narrow screen.
std::vector<IndentedParagraph> indentedParagraphs(const Body& body);

// Indents made for paper squeeze text into a column on a narrow screen: where
// they take more than half of a line of `width` they are scaled down to that,
// else they are as the document has them. With the controllers locked.
void fitIndents(std::vector<IndentedParagraph>& paragraphs, int32_t width);

} // namespace lectern::engine
