// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/Preparation.h"

#include "engine/office/word/LineSpacing.h"
#include "engine/office/word/PageStyles.h"
#include "engine/office/word/TrackedChanges.h"

#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/text/ControlCharacter.hpp>
#include <com/sun/star/text/HoriOrientation.hpp>
#include <com/sun/star/text/XFootnotesSupplier.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XRelativeTextContentInsert.hpp>
#include <com/sun/star/text/XTextSectionsSupplier.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>
#include <com/sun/star/view/XViewSettingsSupplier.hpp>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

void lockUndo(const Reference<css::text::XTextDocument>& model) {
    const Reference<css::document::XUndoManagerSupplier> supplier(model, UNO_QUERY);
    if (supplier.is()) {
        supplier->getUndoManager()->lock();
    }
}

// With footnotes at the bottom of one giant page, the layout time would grow
// with the square of their number.
void moveFootnotesBehindText(const Reference<css::text::XTextDocument>& model) {
    const Reference<css::text::XFootnotesSupplier> supplier(model, UNO_QUERY);
    if (supplier.is()) {
        setProperty(supplier->getFootnoteSettings(), "PositionEndOfDoc", true);
    }
}

template<class Use>
void forAll(const Reference<css::container::XNameAccess>& collection, Use use) {
    for (const OUString& name : collection->getElementNames()) {
        use(propertiesOf(Reference<css::uno::XInterface>(collection->getByName(name), UNO_QUERY)));
    }
}

// Makes a table as wide as the text, whatever that width becomes; the columns
// keep their proportions.
void widenTable(const Reference<css::beans::XPropertySet>& table) {
    setProperty(table, "HoriOrient", css::text::HoriOrientation::FULL);
    setProperty(table, "LeftMargin", static_cast<sal_Int32>(0));
    setProperty(table, "RightMargin", static_cast<sal_Int32>(0));
    setProperty(table, "Split", true);
    setProperty(table, "RepeatHeadline", false);
}

void appendParagraphBelow(const Reference<css::text::XTextTable>& table,
                          const Reference<css::text::XTextDocument>& model) {
    const Reference<css::lang::XMultiServiceFactory> factory(model, UNO_QUERY_THROW);
    const Reference<css::text::XTextContent> paragraph(factory->createInstance("com.sun.star.text.Paragraph"),
                                                       UNO_QUERY_THROW);
    const Reference<css::text::XRelativeTextContentInsert> text(model->getText(), UNO_QUERY_THROW);
    text->insertTextContentAfter(paragraph, Reference<css::text::XTextContent>(table, UNO_QUERY_THROW));
}

// Inserting a paragraph splits the last one, and the range known for it then
// denotes the new, empty paragraph. So the body's last paragraph gets a new range.
void appendParagraphTo(Body& body, const Reference<css::text::XText>& text) {
    text->insertControlCharacter(text->getEnd(), css::text::ControlCharacter::PARAGRAPH_BREAK, false);
    const auto last = text->createTextCursorByRange(text->getEnd());
    const Reference<css::text::XParagraphCursor> paragraphs(last, UNO_QUERY_THROW);
    paragraphs->gotoPreviousParagraph(false);
    paragraphs->gotoStartOfParagraph(false);
    paragraphs->gotoEndOfParagraph(true);
    body.moveLastParagraph(Reference<css::text::XTextRange>(last, UNO_QUERY_THROW));
}

// Appends an empty paragraph to the text, which may end in a paragraph or in a table.
Reference<css::text::XTextRange> appendEnd(const Reference<css::text::XTextDocument>& model, Body& body,
                                           const Reference<css::beans::XPropertySet>& lastBlock) {
    const auto text = model->getText();
    if (const Reference<css::text::XTextTable> table(lastBlock, UNO_QUERY); table.is()) {
        appendParagraphBelow(table, model);
    } else {
        appendParagraphTo(body, text);
    }
    const auto end = text->createTextCursorByRange(text->getEnd());
    const auto properties = propertiesOf(end);
    removeBreaks(properties);
    setProperty(properties, "ParaTopMargin", static_cast<sal_Int32>(0));
    setProperty(properties, "NumberingStyleName", OUString());
    return {end, UNO_QUERY_THROW};
}

void hideMarks(const Reference<css::text::XTextDocument>& model) {
    const Reference<css::view::XViewSettingsSupplier> view(model->getCurrentController(), UNO_QUERY);
    if (view.is()) {
        setProperty(view->getViewSettings(), "ShowAnnotations", false);
    }
}

} // namespace

PreparedDocument prepareForReflow(const Reference<css::text::XTextDocument>& model) {
    lockUndo(model);
    acceptTrackedChanges(model);
    moveFootnotesBehindText(model);
    stripPages(model);
    removeStyleBreaks(model);

    std::vector<FloatingShape> shapes = anchorInLines(model);
    Reference<css::beans::XPropertySet> lastBlock;
    Body body(model, shapes, [&](const Reference<css::beans::XPropertySet>& block) {
        removeBreaks(block);
        lastBlock = block;
    });
    if (const Reference<css::text::XTextSectionsSupplier> sections(model, UNO_QUERY); sections.is()) {
        forAll(sections->getTextSections(), removeColumns);
    }
    if (const Reference<css::text::XTextTablesSupplier> tables(model, UNO_QUERY); tables.is()) {
        forAll(tables->getTextTables(), widenTable);
    }
    const auto end = appendEnd(model, body, lastBlock);
    hideMarks(model);
    loosenLines(body);
    std::vector<IndentedParagraph> indents = indentedParagraphs(body);
    return {std::move(body), std::move(shapes), std::move(indents), end};
}

} // namespace lectern::engine
