// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/FlowPlaces.h"

#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/HoriOrientation.hpp>
#include <com/sun/star/text/RelOrientation.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include <algorithm>
#include <tuple>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// 1/100 mm. Shapes whose tops differ by less stand side by side.
constexpr int32_t SAME_ROW = 500;
// Height of a line and mean width of a character in a font of one point, 1/100 mm.
constexpr double LINE_HEIGHT = 42;
constexpr double CHARACTER_WIDTH = 17;
// The most paragraphs that a shape is moved down by.
constexpr int MOST_PARAGRAPHS = 40;

Reference<css::text::XTextRange> anchorOf(const Reference<css::drawing::XShape>& shape) {
    const Reference<css::text::XTextContent> content(shape, UNO_QUERY);
    return content.is() ? content->getAnchor() : Reference<css::text::XTextRange>();
}

// The list of shapes also has copies of those in headers and footers, which are
// off. They must not be changed.
bool isInText(const Reference<css::text::XTextRange>& anchor) {
    return anchor.is() && anchor->getText().is() &&
           implementationName(anchor->getText()) != "SwXHeadFootText";
}

// Distance of a shape's top from its paragraph's, or from that of the page.
int32_t topOf(const AnchoredShape& shape) {
    return property<sal_Int32>(shape.properties, "VertOrientPosition");
}

int32_t leftOf(const AnchoredShape& shape) {
    switch (property<sal_Int16>(shape.properties, "HoriOrient")) {
    case css::text::HoriOrientation::RIGHT:
        return 20'000;
    case css::text::HoriOrientation::CENTER:
        return 10'000;
    default:
        return property<sal_Int32>(shape.properties, "HoriOrientPosition");
    }
}

bool isPlacedOnPage(const AnchoredShape& shape) {
    const auto relation = property<sal_Int16>(shape.properties, "VertOrientRelation");
    return relation >= css::text::RelOrientation::PAGE_LEFT &&
           relation <= css::text::RelOrientation::PAGE_PRINT_AREA;
}

// The height of a paragraph on paper. An estimate does: it decides between
// before and after a paragraph.
int32_t heightOf(const Reference<css::text::XTextCursor>& paragraph, int32_t lineWidth) {
    const auto properties = propertiesOf(paragraph);
    const double size = property<float>(properties, "CharHeight", 12);
    const double lines = paragraph->getString().getLength() * size * CHARACTER_WIDTH / lineWidth;
    return static_cast<int32_t>((static_cast<int32_t>(lines) + 1) * size * LINE_HEIGHT) +
           property<sal_Int32>(properties, "ParaTopMargin") +
           property<sal_Int32>(properties, "ParaBottomMargin");
}

bool isInTable(const Reference<css::text::XTextCursor>& cursor) {
    return property<Reference<css::text::XTextTable>>(propertiesOf(cursor), "TextTable").is();
}

} // namespace

std::vector<AnchoredShape> shapesInText(const Reference<css::text::XTextDocument>& model) {
    const Reference<css::drawing::XDrawPageSupplier> supplier(model, UNO_QUERY_THROW);
    const auto page = supplier->getDrawPage();
    std::vector<AnchoredShape> shapes;
    for (sal_Int32 i = 0; i < page->getCount(); ++i) {
        const Reference<css::drawing::XShape> shape(page->getByIndex(i), UNO_QUERY);
        const auto anchor = shape.is() ? anchorOf(shape) : Reference<css::text::XTextRange>();
        if (isInText(anchor)) {
            shapes.push_back({shape, propertiesOf(shape), anchor});
        }
    }
    std::stable_sort(shapes.begin(), shapes.end(), [](const AnchoredShape& a, const AnchoredShape& b) {
        return std::tuple(topOf(a) / SAME_ROW, leftOf(a)) < std::tuple(topOf(b) / SAME_ROW, leftOf(b));
    });
    return shapes;
}

bool isCharacter(const AnchoredShape& shape) {
    using namespace css::text;
    return property(shape.properties, "AnchorType", TextContentAnchorType_AS_CHARACTER) ==
           TextContentAnchorType_AS_CHARACTER;
}

Reference<css::text::XTextRange> flowPlace(const AnchoredShape& shape, int32_t lineWidth) {
    const auto text = shape.anchor->getText();
    const auto cursor = text->createTextCursorByRange(shape.anchor->getStart());
    const Reference<css::text::XParagraphCursor> paragraph(cursor, UNO_QUERY_THROW);
    paragraph->gotoStartOfParagraph(true);
    const bool isBehindWords = isCharacter(shape) && !cursor->getString().isEmpty();
    const bool startsInTable = isInTable(cursor);
    int32_t below = isCharacter(shape) || isPlacedOnPage(shape) ? 0 : topOf(shape);
    for (int i = 0; i < MOST_PARAGRAPHS; ++i) {
        paragraph->gotoStartOfParagraph(false);
        paragraph->gotoEndOfParagraph(true);
        const int32_t height = heightOf(cursor, lineWidth);
        cursor->collapseToStart();
        if (below < height && (i > 0 || !isBehindWords)) {
            break;
        }
        below -= height;
        const auto last = cursor->getStart();
        if (!paragraph->gotoNextParagraph(false) || isInTable(cursor) != startsInTable) {
            cursor->gotoRange(last, false);
            paragraph->gotoEndOfParagraph(false);
            text->insertControlCharacter(last, css::text::ControlCharacter::APPEND_PARAGRAPH, false);
            paragraph->gotoNextParagraph(false);
            break;
        }
    }
    return cursor->getStart();
}

} // namespace lectern::engine
