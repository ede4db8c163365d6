// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/FloatingShapes.h"

#include "engine/office/word/BoxTables.h"
#include "engine/office/word/BoxedTexts.h"
#include "engine/office/word/FlowPlaces.h"
#include "engine/office/word/LineSpacing.h"
#include "engine/office/word/PageStyles.h"

#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/graphic/GraphicType.hpp>
#include <com/sun/star/graphic/XGraphic.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/style/ParagraphAdjust.hpp>
#include <com/sun/star/text/HoriOrientation.hpp>
#include <com/sun/star/text/TextContentAnchorType.hpp>
#include <com/sun/star/text/VertOrientation.hpp>
#include <com/sun/star/text/WrapTextMode.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include <algorithm>
#include <cstdio>

namespace lectern::engine {

using css::text::TextContentAnchorType_AS_CHARACTER;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr int32_t LEAST_WIDTH = 300; // 1/100 mm; shapes are not scaled below it
constexpr int MOST_NESTING = 10;     // of frames in frames

bool isOfSuite(const AnchoredShape& shape) {
    return shape.shape->getShapeType() == "FrameShape";
}

bool isGroup(const AnchoredShape& shape) {
    return Reference<css::drawing::XShapes>(shape.shape, UNO_QUERY).is();
}

bool isPicture(const AnchoredShape& shape) {
    return isOfSuite(shape) || shape.shape->getShapeType() == "com.sun.star.drawing.GraphicObjectShape";
}

bool isControl(const AnchoredShape& shape) {
    return shape.shape->getShapeType() == "com.sun.star.drawing.ControlShape";
}

bool isInNote(const AnchoredShape& shape) {
    const OUString name = implementationName(shape.anchor->getText());
    return name == "SwXFootnote";
}

bool hasFill(const AnchoredShape& shape) {
    const OUString type = shape.shape->getShapeType();
    const bool isLine = type.endsWith("LineShape") || type.endsWith("ConnectorShape");
    return !isLine && property(shape.properties, "FillStyle", css::drawing::FillStyle_NONE) !=
                          css::drawing::FillStyle_NONE;
}

bool isBehindText(const AnchoredShape& shape) {
    return !property(shape.properties, "Opaque", true);
}

bool isThroughText(const AnchoredShape& shape) {
    return !isCharacter(shape) && property(shape.properties, "TextWrap", css::text::WrapTextMode_NONE) ==
                                      css::text::WrapTextMode_THROUGH;
}

bool isAsLargeAs(const AnchoredShape& shape, const css::awt::Size& page) {
    const css::awt::Size size = shape.shape->getSize();
    return size.Width > page.Width / 5 * 4 && size.Height > page.Height / 5 * 4;
}

// A drawing around or behind the text, such as a box around a heading, lines
// between words, or the border of a page. Where the text flows, it would stand alone.
bool decoratesText(const AnchoredShape& shape, const css::awt::Size& page) {
    if (isGroup(shape) || isControl(shape) || isWordArt(shape.properties)) {
        return false;
    }
    if (isPicture(shape)) {
        return isThroughText(shape) && isBehindText(shape) && isAsLargeAs(shape, page);
    }
    return (isThroughText(shape) && (isBehindText(shape) || !hasFill(shape))) || isAsLargeAs(shape, page);
}

bool isGraphic(const AnchoredShape& shape) {
    const Reference<css::lang::XServiceInfo> info(shape.shape, UNO_QUERY);
    return info.is() && info->supportsService("com.sun.star.text.TextGraphicObject");
}

// A picture outside of the file, or one that cannot be read. The suite paints a placeholder.
bool isMissingPicture(const AnchoredShape& shape) {
    if (!isGraphic(shape)) {
        return false;
    }
    const auto graphic =
        propertiesOf(property<Reference<css::graphic::XGraphic>>(shape.properties, "Graphic"));
    return !graphic.is() || property<sal_Int8>(graphic, "GraphicType") == css::graphic::GraphicType::EMPTY;
}

bool isInFrame(const AnchoredShape& shape) {
    const auto cursor = shape.anchor->getText()->createTextCursorByRange(shape.anchor->getStart());
    return property<Reference<css::text::XTextContent>>(propertiesOf(cursor), "TextFrame").is();
}

void remove(const Reference<css::text::XTextDocument>& model, const AnchoredShape& shape) {
    if (isOfSuite(shape)) {
        Reference<css::lang::XComponent>(shape.shape, UNO_QUERY_THROW)->dispose();
    } else {
        const Reference<css::drawing::XDrawPageSupplier> supplier(model, UNO_QUERY_THROW);
        supplier->getDrawPage()->remove(shape.shape);
    }
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

FloatingShape describe(const AnchoredShape& shape) {
    const auto anchor = shape.anchor;
    const int32_t margins = std::max(property<sal_Int32>(shape.properties, "LeftMargin"), 0) +
                            std::max(property<sal_Int32>(shape.properties, "RightMargin"), 0);
    const auto kind = isOfSuite(shape) ? FloatingShape::Kind::Picture : FloatingShape::Kind::Drawing;
    return {shape.shape, shape.properties,           shape.shape->getSize(),
            kind,        indentAt(anchor) + margins, columnsAt(anchor)};
}

// Properties of a picture besides its size.
constexpr const char* OF_PICTURE[] = {"Graphic",
                                      "GraphicCrop",
                                      "GraphicRotation",
                                      "GraphicColorMode",
                                      "Transparency",
                                      "AdjustLuminance",
                                      "AdjustContrast",
                                      "AdjustRed",
                                      "AdjustGreen",
                                      "AdjustBlue",
                                      "Gamma",
                                      "GraphicIsInverted",
                                      "VertMirrored",
                                      "HoriMirroredOnEvenPages",
                                      "HoriMirroredOnOddPages",
                                      "HyperLinkURL",
                                      "Title",
                                      "Description"};

Reference<css::drawing::XShape> insertCopy(const Reference<css::text::XTextDocument>& model,
                                           const AnchoredShape& picture,
                                           const Reference<css::text::XTextRange>& place) {
    const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
    const Reference<css::text::XTextContent> copy(
        factory->createInstance("com.sun.star.text.TextGraphicObject"), UNO_QUERY_THROW);
    const auto properties = propertiesOf(copy);
    setProperty(properties, "AnchorType", TextContentAnchorType_AS_CHARACTER);
    for (const char* name : OF_PICTURE) {
        setAnyProperty(properties, name, anyProperty(picture.properties, name));
    }
    place->getText()->insertTextContent(place, copy, false);
    const Reference<css::drawing::XShape> shape(copy, UNO_QUERY_THROW);
    shape->setSize(picture.shape->getSize());
    return shape;
}

// The end of a paragraph without words where a shape is read: the one there, or
// that of a new table.
Reference<css::text::XTextCursor> ownParagraph(const Reference<css::text::XTextDocument>& model,
                                               const AnchoredShape& shape, int32_t lineWidth) {
    const auto place = flowPlace(shape, lineWidth);
    const auto cursor = place->getText()->createTextCursorByRange(place);
    const Reference<css::text::XParagraphCursor> paragraph(cursor, UNO_QUERY_THROW);
    paragraph->gotoEndOfParagraph(true);
    if (!cursor->getString().isEmpty()) {
        return insertTable(model, place)->createTextCursor();
    }
    cursor->collapseToEnd();
    return cursor;
}

// Makes a shape a character of a paragraph of its own.
//
// The suite makes a shape a character at the place where it was drawn, which the
// text has left. A drawing can be moved afterwards, a picture cannot.
void moveToOwnParagraph(const Reference<css::text::XTextDocument>& model, AnchoredShape& shape,
                        int32_t lineWidth) {
    const auto end = ownParagraph(model, shape, lineWidth);
    if (property<sal_Int16>(shape.properties, "HoriOrient") == css::text::HoriOrientation::CENTER) {
        setProperty(propertiesOf(end), "ParaAdjust", css::style::ParagraphAdjust_CENTER);
    }
    if (isGraphic(shape)) {
        const auto copy = insertCopy(model, shape, end->getEnd());
        remove(model, shape);
        shape.shape = copy;
        shape.properties = propertiesOf(copy);
    } else {
        setProperty(shape.properties, "AnchorType", TextContentAnchorType_AS_CHARACTER);
        Reference<css::text::XTextContent>(shape.shape, UNO_QUERY_THROW)->attach(end->getEnd());
    }
}

// Returns false if the suite has no place for the shape.
bool anchorAsCharacter(const Reference<css::text::XTextDocument>& model, AnchoredShape& shape,
                       int32_t lineWidth) {
    if (!isCharacter(shape)) {
        if (!isInNote(shape) && (isGraphic(shape) || !isOfSuite(shape))) {
            moveToOwnParagraph(model, shape, lineWidth);
        } else {
            setProperty(shape.properties, "AnchorType", TextContentAnchorType_AS_CHARACTER);
        }
        shape.anchor = Reference<css::text::XTextContent>(shape.shape, UNO_QUERY_THROW)->getAnchor();
    }
    if (!shape.anchor.is() || !shape.anchor->getText().is()) {
        return false;
    }
    loosenLines(propertiesOf(shape.anchor->getText()->createTextCursorByRange(shape.anchor)));
    setProperty(shape.properties, "RelativeWidth", static_cast<sal_Int16>(0));
    setProperty(shape.properties, "RelativeHeight", static_cast<sal_Int16>(0));
    setProperty(shape.properties, "VertOrient", css::text::VertOrientation::TOP);
    return true;
}

// Moves the texts of a shape into tables.
bool moveTexts(const Reference<css::text::XTextDocument>& model, const AnchoredShape& shape,
               const std::vector<BoxedText>& texts, int32_t lineWidth) {
    const auto place = flowPlace(shape, lineWidth);
    const auto insert = [&](const BoxedText& text) { return insertAsTable(model, place, text); };
    if (!std::all_of(texts.begin(), texts.end(), insert)) {
        return false;
    }
    if (hasPictures(shape.shape)) {
        clear(texts);
    } else {
        remove(model, shape);
    }
    return true;
}

// Moves the texts of all frames and drawings that are not inside of frames.
// Returns whether there were any.
bool moveTextOfBoxes(const Reference<css::text::XTextDocument>& model, int32_t lineWidth) {
    std::vector<AnchoredShape> shapes = shapesInText(model);
    // Removing a frame removes the shapes in it, so they are sorted out first.
    std::erase_if(shapes, [](const AnchoredShape& shape) {
        return isInNote(shape) || isInFrame(shape) || boxedTexts(shape.shape).empty();
    });
    return std::count_if(shapes.begin(), shapes.end(), [&](const AnchoredShape& shape) {
               return moveTexts(model, shape, boxedTexts(shape.shape), lineWidth);
           }) > 0;
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
        size = {available, std::max(static_cast<int32_t>(height), 1)};
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
    const css::awt::Size paper = paperSize(model);
    const int32_t lineWidth = paper.Width / 5 * 4;
    // A frame may contain others, which are in the text when their frame's content is.
    for (int depth = 0; depth < MOST_NESTING && moveTextOfBoxes(model, lineWidth); ++depth) {
    }
    std::vector<FloatingShape> shapes;
    for (AnchoredShape& shape : shapesInText(model)) {
        try {
            if (decoratesText(shape, paper) || isMissingPicture(shape)) {
                remove(model, shape);
            } else if (anchorAsCharacter(model, shape, lineWidth)) {
                shapes.push_back(describe(shape));
            }
        } catch (const css::uno::Exception&) {
            std::fprintf(stderr, "office: a shape cannot be made part of the text\n");
        }
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
