// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/BoxTables.h"

#include <com/sun/star/awt/Gradient.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/drawing/FillStyle.hpp>
#include <com/sun/star/drawing/LineStyle.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/style/ParagraphAdjust.hpp>
#include <com/sun/star/table/BorderLine2.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/XRelativeTextContentInsert.hpp>
#include <com/sun/star/text/XTextCopy.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include <algorithm>
#include <cstdio>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr const char* BORDERS[] = {"LeftBorder", "RightBorder", "TopBorder", "BottomBorder"};
constexpr const char* DISTANCES[] = {"LeftBorderDistance", "RightBorderDistance", "TopBorderDistance",
                                     "BottomBorderDistance"};
constexpr sal_Int32 PADDING = 100;   // between a border and the text, 1/100 mm
constexpr sal_Int32 MOST_LINE = 100; // width of a border, 1/100 mm
constexpr sal_Int32 AUTOMATIC_COLOUR = -1;
constexpr sal_Int32 DARK = 0x404040;

// What is seen around and behind the text of a frame or drawing.
struct Decoration {
    css::table::BorderLine2 border;
    bool filled = false;
    sal_Int32 colour = 0;

    bool isPlain() const { return border.LineWidth == 0 && !filled; }
};

css::table::BorderLine2 borderOf(const Reference<css::beans::XPropertySet>& shape) {
    auto border = property<css::table::BorderLine2>(shape, "TopBorder");
    if (border.LineWidth == 0 &&
        property(shape, "LineStyle", css::drawing::LineStyle_NONE) != css::drawing::LineStyle_NONE) {
        border.Color = property<sal_Int32>(shape, "LineColor");
        border.LineWidth = static_cast<sal_uInt32>(
            std::clamp<sal_Int32>(property<sal_Int32>(shape, "LineWidth"), 20, MOST_LINE));
        border.OuterLineWidth = static_cast<sal_Int16>(border.LineWidth);
    }
    return border;
}

Decoration decorationOf(const Reference<css::beans::XPropertySet>& shape) {
    Decoration decoration{borderOf(shape)};
    const auto fill = property(shape, "FillStyle", css::drawing::FillStyle_NONE);
    if (fill == css::drawing::FillStyle_SOLID) {
        decoration.filled = property<sal_Int16>(shape, "FillTransparence") < 50;
        decoration.colour = property<sal_Int32>(shape, "FillColor");
    } else if (fill == css::drawing::FillStyle_GRADIENT) {
        decoration.filled = true;
        decoration.colour = property<css::awt::Gradient>(shape, "FillGradient").StartColor;
    }
    return decoration;
}

void decorate(const Reference<css::beans::XPropertySet>& cell, const Decoration& decoration) {
    for (const char* border : BORDERS) {
        setProperty(cell, border, decoration.border);
    }
    for (const char* distance : DISTANCES) {
        setProperty(cell, distance, decoration.isPlain() ? 0 : PADDING);
    }
    if (decoration.filled) {
        setProperty(cell, "BackColor", decoration.colour);
    }
}

Reference<css::text::XTextTable> insertBox(const Reference<css::text::XTextDocument>& model,
                                           const Reference<css::text::XTextRange>& place,
                                           const Decoration& decoration) {
    const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
    const Reference<css::text::XTextTable> table(factory->createInstance("com.sun.star.text.TextTable"),
                                                 UNO_QUERY_THROW);
    table->initialize(1, 1);
    place->getText()->insertTextContent(place, Reference<css::text::XTextContent>(table, UNO_QUERY_THROW),
                                        false);
    decorate(propertiesOf(table->getCellByName("A1")), decoration);
    return table;
}

// Light letters stood on something dark that is not behind them any more.
void showLightLetters(const Reference<css::text::XText>& cell, const Decoration& decoration) {
    const auto start = propertiesOf(cell->createTextCursor());
    const auto colour = property<sal_Int32>(start, "CharColor", AUTOMATIC_COLOUR);
    const bool isLight = colour != AUTOMATIC_COLOUR && (colour & 0xC0C0C0) == 0xC0C0C0;
    if (isLight && !decoration.filled) {
        setProperty(propertiesOf(cell), "BackColor", DARK);
    }
}

Reference<css::text::XText> textOfBox(const Reference<css::text::XTextTable>& table) {
    return {table->getCellByName("A1"), UNO_QUERY_THROW};
}

// The suite copies no text that has only tables, so it gets a paragraph.
void appendParagraphToTables(const Reference<css::text::XTextDocument>& model,
                             const Reference<css::text::XText>& text) {
    const Reference<css::container::XEnumerationAccess> access(text, UNO_QUERY_THROW);
    const auto blocks = access->createEnumeration();
    Reference<css::text::XTextContent> last;
    while (blocks->hasMoreElements()) {
        last.set(blocks->nextElement(), UNO_QUERY);
        if (!Reference<css::text::XTextTable>(last, UNO_QUERY).is()) {
            return;
        }
    }
    const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
    const Reference<css::text::XTextContent> paragraph(factory->createInstance("com.sun.star.text.Paragraph"),
                                                       UNO_QUERY_THROW);
    const Reference<css::text::XRelativeTextContentInsert> content(text, UNO_QUERY_THROW);
    content->insertTextContentAfter(paragraph, last);
}

// Properties that text in drawings and text in lines have both.
constexpr const char* OF_PARAGRAPH[] = {"ParaAdjust", "ParaTopMargin", "ParaBottomMargin"};
constexpr const char* OF_CHARACTERS[] = {
    "CharHeight",        "CharHeightAsian",     "CharHeightComplex", "CharWeight",         "CharWeightAsian",
    "CharWeightComplex", "CharPosture",         "CharPostureAsian",  "CharPostureComplex", "CharFontName",
    "CharFontNameAsian", "CharFontNameComplex", "CharColor",         "CharUnderline",      "CharStrikeout",
    "CharEscapement",    "CharEscapementHeight"};

template<size_t COUNT>
void copyProperties(const Reference<css::beans::XPropertySet>& from,
                    const Reference<css::beans::XPropertySet>& to, const char* const (&names)[COUNT]) {
    for (const char* name : names) {
        if (const css::uno::Any value = anyProperty(from, name); value.hasValue()) {
            setAnyProperty(to, name, value);
        }
    }
}

void copyParagraph(const Reference<css::uno::XInterface>& paragraph,
                   const Reference<css::text::XTextCursor>& end) {
    const Reference<css::container::XEnumerationAccess> access(paragraph, UNO_QUERY_THROW);
    const auto portions = access->createEnumeration();
    while (portions->hasMoreElements()) {
        const Reference<css::text::XTextRange> portion(portions->nextElement(), UNO_QUERY_THROW);
        end->setString(portion->getString());
        copyProperties(propertiesOf(portion), propertiesOf(end), OF_CHARACTERS);
        end->collapseToEnd();
    }
    copyProperties(propertiesOf(paragraph), propertiesOf(end), OF_PARAGRAPH);
}

void copyDrawnText(const Reference<css::text::XText>& drawn, const Reference<css::text::XText>& cell) {
    const auto end = cell->createTextCursor();
    const Reference<css::container::XEnumerationAccess> access(drawn, UNO_QUERY_THROW);
    const auto paragraphs = access->createEnumeration();
    for (bool first = true; paragraphs->hasMoreElements(); first = false) {
        if (!first) {
            cell->insertControlCharacter(end->getEnd(), css::text::ControlCharacter::PARAGRAPH_BREAK, false);
            end->gotoEnd(false);
        }
        copyParagraph(Reference<css::uno::XInterface>(paragraphs->nextElement(), UNO_QUERY), end);
    }
}

} // namespace

Reference<css::text::XText> insertTable(const Reference<css::text::XTextDocument>& model,
                                        const Reference<css::text::XTextRange>& place) {
    return textOfBox(insertBox(model, place, {}));
}

bool insertAsTable(const Reference<css::text::XTextDocument>& model,
                   const Reference<css::text::XTextRange>& place, const BoxedText& text) {
    const Decoration decoration = decorationOf(text.shape);
    const auto table = insertBox(model, place, decoration);
    const auto cell = textOfBox(table);
    try {
        if (text.frame.is()) {
            appendParagraphToTables(model, text.frame->getText());
            Reference<css::text::XTextCopy>(cell, UNO_QUERY_THROW)
                ->copyText(Reference<css::text::XTextCopy>(text.frame->getText(), UNO_QUERY_THROW));
        } else {
            copyDrawnText(text.drawn, cell);
        }
        showLightLetters(cell, decoration);
        return true;
    } catch (const css::uno::Exception&) {
        std::fprintf(stderr, "office: the text of a frame stays in it\n");
        Reference<css::lang::XComponent>(table, UNO_QUERY_THROW)->dispose();
        return false;
    }
}

} // namespace lectern::engine
