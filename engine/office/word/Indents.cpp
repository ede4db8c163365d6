// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/Indents.h"

#include <algorithm>

namespace lectern::engine {

namespace {

// 1/100 mm. Less than half of a line on every screen.
constexpr int32_t HARMLESS = 500;

int64_t taken(const IndentedParagraph& paragraph) {
    return int64_t{std::max(paragraph.left, 0)} + std::max(paragraph.right, 0) +
           std::max(paragraph.firstLine, 0);
}

IndentedParagraph read(const BodyParagraph& paragraph) {
    const auto properties = propertiesOf(paragraph.range);
    return {properties, property<sal_Int32>(properties, "ParaLeftMargin"),
            property<sal_Int32>(properties, "ParaRightMargin"),
            property<sal_Int32>(properties, "ParaFirstLineIndent")};
}

// On paper there is a margin beside the text; on a screen there is nothing.
void keepInside(IndentedParagraph& paragraph) {
    const IndentedParagraph was = paragraph;
    paragraph.left = std::max(paragraph.left, 0);
    paragraph.right = std::max(paragraph.right, 0);
    paragraph.firstLine = std::max(paragraph.firstLine, -paragraph.left);
    if (paragraph.left != was.left) {
        setProperty(paragraph.properties, "ParaLeftMargin", paragraph.left);
    }
    if (paragraph.right != was.right) {
        setProperty(paragraph.properties, "ParaRightMargin", paragraph.right);
    }
    if (paragraph.firstLine != was.firstLine) {
        setProperty(paragraph.properties, "ParaFirstLineIndent", paragraph.firstLine);
    }
}

} // namespace

std::vector<IndentedParagraph> indentedParagraphs(const Body& body) {
    std::vector<IndentedParagraph> paragraphs;
    for (const size_t index : body.texts().front().paragraphs) {
        IndentedParagraph indented = read(body.paragraphs()[index]);
        keepInside(indented);
        if (taken(indented) > HARMLESS) {
            paragraphs.push_back(indented);
        }
    }
    return paragraphs;
}

void fitIndents(std::vector<IndentedParagraph>& paragraphs, int32_t width) {
    for (IndentedParagraph& paragraph : paragraphs) {
        const int64_t all = taken(paragraph);
        const int64_t most = std::min<int64_t>(all, width / 2);
        const bool reduce = most < all;
        if (!reduce && !paragraph.reduced) {
            continue;
        }
        const auto share = [&](int32_t indent) { return static_cast<sal_Int32>(indent * most / all); };
        setProperty(paragraph.properties, "ParaLeftMargin", share(paragraph.left));
        setProperty(paragraph.properties, "ParaRightMargin", share(paragraph.right));
        setProperty(paragraph.properties, "ParaFirstLineIndent", share(paragraph.firstLine));
        paragraph.reduced = reduce;
    }
}

} // namespace lectern::engine
