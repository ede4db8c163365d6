// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/FloatingShapes.h"

#include "engine/office/word/PageStyles.h"

#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/text/SizeType.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextFrame.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include <algorithm>

namespace lectern::engine {

using css::text::TextContentAnchorType_AS_CHARACTER;
using css::uno::Reference;
using css::uno::UNO_QUERY;

namespace {

constexpr int32_t LEAST_WIDTH = 300; // 1/100 mm; shapes are not scaled below it

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

// A drawing may contain a text frame.
bool hasTextBox(const Reference<css::drawing::XShape>& shape) {
    const Reference<css::text::XTextRange> text(shape, UNO_QUERY);
    return text.is() && property<bool>(propertiesOf(shape), "TextBox") && !text->getString().isEmpty();
}

FloatingShape::Kind kindOf(const Reference<css::drawing::XShape>& shape) {
    if (shape->getShapeType() != "FrameShape") {
        return hasTextBox(shape) ? FloatingShape::Kind::TextFrame : FloatingShape::Kind::Drawing;
    }
    const Reference<css::text::XTextFrame> frame(shape, UNO_QUERY);
    return frame.is() ? FloatingShape::Kind::TextFrame : FloatingShape::Kind::Picture;
}

// A drawing without text that is about as large as a page is the page's border
// or background.
bool isPageDecoration(const FloatingShape& shape, const css::awt::Size& page) {
    const Reference<css::text::XTextRange> text(shape.shape, UNO_QUERY);
    return shape.kind == FloatingShape::Kind::Drawing && text.is() && text->getString().isEmpty() &&
           shape.natural.Width > page.Width / 5 * 4 && shape.natural.Height > page.Height / 5 * 4;
}

int32_t indentAt(const Reference<css::text::XTextRange>& anchor) {
    const auto paragraph = propertiesOf(anchor->getText()->createTextCursorByRange(anchor));
    return std::max(property<sal_Int32>(paragraph, "ParaLeftMargin"), 0) +
           std::max(property<sal_Int32>(paragraph, "ParaRightMargin"), 0) +
           std::max(property<sal_Int32>(paragraph, "ParaFirstLineIndent"), 0);
}

int32_t columnsAt(const Reference<css::text::XTextRange>& anchor) {
    const auto cursor = propertiesOf(anchor->getText()->createTextCursorByRange(anchor));
    const auto table = property<Reference<css::text::XTextTable>>(cursor, "TextTable");
    return table.is() ? std::max(table->getColumns()->getCount(), 1) : 1;
}

FloatingShape describe(const Reference<css::drawing::XShape>& shape,
                       const Reference<css::text::XTextRange>& anchor) {
    const auto properties = propertiesOf(shape);
    const int32_t margins = std::max(property<sal_Int32>(properties, "LeftMargin"), 0) +
                            std::max(property<sal_Int32>(properties, "RightMargin"), 0);
    return {
        shape, properties, shape->getSize(), kindOf(shape), indentAt(anchor) + margins, columnsAt(anchor)};
}

void anchorAsCharacter(const FloatingShape& shape) {
    setProperty(shape.properties, "RelativeWidth", static_cast<sal_Int16>(0));
    setProperty(shape.properties, "RelativeHeight", static_cast<sal_Int16>(0));
    if (property(shape.properties, "AnchorType", TextContentAnchorType_AS_CHARACTER) !=
        TextContentAnchorType_AS_CHARACTER) {
        setProperty(shape.properties, "AnchorType", TextContentAnchorType_AS_CHARACTER);
    }
    // A frame that becomes narrower must grow in height for its text.
    if (shape.kind == FloatingShape::Kind::TextFrame) {
        setProperty(shape.properties, "SizeType", css::text::SizeType::MIN);
        setProperty(shape.properties, "TextAutoGrowHeight", true);
    }
}

void setShapeSize(const FloatingShape& shape, const css::awt::Size& size) {
    const css::awt::Size now = shape.shape->getSize();
    if (now.Width != size.Width || now.Height != size.Height) {
        shape.shape->setSize(size);
    }
}

void fitInLine(const FloatingShape& shape, int32_t width) {
    const int32_t available = std::max(width - shape.indent, LEAST_WIDTH);
    css::awt::Size size = shape.natural;
    if (size.Width > available) {
        const int64_t height = int64_t{size.Height} * available / size.Width;
        const bool growsWithText = shape.kind == FloatingShape::Kind::TextFrame;
        size = {available, growsWithText ? size.Height : std::max(static_cast<int32_t>(height), 1)};
    }
    setShapeSize(shape, size);
}

// A relative width makes the picture follow the width of its cell.
void setRelativeWidth(const FloatingShape& shape, bool relative) {
    setProperty(shape.properties, "RelativeWidth", static_cast<sal_Int16>(relative ? 100 : 0));
    setProperty(shape.properties, "IsSyncHeightToWidth", relative);
}

void fit(const FloatingShape& shape, int32_t width) {
    const int32_t share = width / shape.columns;
    if (shape.columns > 1 && shape.kind == FloatingShape::Kind::Picture) {
        setRelativeWidth(shape, shape.natural.Width > share / 2);
        setShapeSize(shape, shape.natural);
    } else {
        fitInLine(shape, share);
    }
}

} // namespace

std::vector<FloatingShape> anchorInLines(const Reference<css::text::XTextDocument>& model) {
    const Reference<css::drawing::XDrawPageSupplier> supplier(model, UNO_QUERY);
    const Reference<css::drawing::XDrawPage> page = supplier->getDrawPage();
    const css::awt::Size paper = paperSize(model);
    std::vector<FloatingShape> shapes;
    std::vector<Reference<css::drawing::XShape>> decorations;
    for (sal_Int32 i = 0; i < page->getCount(); ++i) {
        const Reference<css::drawing::XShape> shape(page->getByIndex(i), UNO_QUERY);
        const auto anchor = shape.is() ? anchorOf(shape) : Reference<css::text::XTextRange>();
        if (!isInText(anchor)) {
            continue;
        }
        const FloatingShape described = describe(shape, anchor);
        if (isPageDecoration(described, paper)) {
            decorations.push_back(shape);
        } else {
            shapes.push_back(described);
        }
    }
    for (const auto& decoration : decorations) {
        page->remove(decoration);
    }
    for (const FloatingShape& shape : shapes) {
        anchorAsCharacter(shape);
    }
    return shapes;
}

void fitShapes(const std::vector<FloatingShape>& shapes, int32_t width) {
    for (const FloatingShape& shape : shapes) {
        fit(shape, width);
    }
}

bool undoEnlargement(const std::vector<FloatingShape>& shapes) {
    bool any = false;
    for (const FloatingShape& shape : shapes) {
        if (property<sal_Int16>(shape.properties, "RelativeWidth") == 0) {
            continue;
        }
        const auto laidOut = property<css::awt::Size>(shape.properties, "LayoutSize");
        if (laidOut.Width > shape.natural.Width) {
            setRelativeWidth(shape, false);
            any = true;
        }
    }
    return any;
}

} // namespace lectern::engine
