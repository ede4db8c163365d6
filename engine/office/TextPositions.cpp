// SPDX-License-Identifier: Apache-2.0
#include "engine/office/TextPositions.h"

#include "engine/office/PageStyles.h"

#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>
#include <com/sun/star/view/XLineCursor.hpp>

#include <LibreOfficeKit/LibreOfficeKitEnums.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// Lines looked at for the next one below a row: in a table the lines of a row's
// other cells come first.
constexpr int mostLines = 256;

void goRight(const Reference<css::text::XTextCursor>& cursor, uint32_t units) {
    constexpr uint32_t most = std::numeric_limits<sal_Int16>::max();
    for (; units > most; units -= most)
        cursor->goRight(static_cast<sal_Int16>(most), false);
    cursor->goRight(static_cast<sal_Int16>(units), false);
}

} // namespace

TextPositions::TextPositions(const OpenedDocument& document, const PreparedDocument& prepared,
                             const TextFlow& flow)
    : mPainter(*document.painter), mSelection(document.model->getCurrentController(), UNO_QUERY_THROW),
      mBody(prepared.body), mFlow(flow), mCount(std::max(mBody.length, prepared.shapes.empty() ? 0U : 1U)) {
    for (const BodyText& text : mBody.texts)
        mTexts.emplace(std::make_pair(text.table, text.cell), &text);
}

int64_t TextPositions::lineRow(const RowMap& map, uint32_t position) const {
    const auto rowOfLine = [&](uint32_t character) {
        mFlow.cursor()->gotoRange(rangeAt(character), false);
        return map.rowOf(mFlow.cursorPlace());
    };
    const int64_t row = rowOfLine(position);
    return row <= rowOfLine(0) ? 0 : row;
}

uint32_t TextPositions::lineAtOrBelow(const RowMap& map, int64_t row) const {
    if (row >= map.rows())
        return mCount;
    const auto leftEdge = map.pageOf(row).left + twipsFromHundredthMm(pageMargin);
    mPainter.setTextSelection(LOK_SETTEXTSELECTION_RESET, static_cast<int>(leftEdge) + 1,
                              static_cast<int>(map.viewY(row)));
    leaveObjects();
    const auto& cursor = mFlow.cursor();
    const Reference<css::view::XLineCursor> line(cursor, UNO_QUERY_THROW);
    line->gotoStartOfLine(false);
    for (int i = 0; i < mostLines && map.rowOf(mFlow.cursorPlace()) < row; ++i) {
        line->gotoEndOfLine(false);
        if (!cursor->goRight(1, false))
            return mCount;
        line->gotoStartOfLine(false);
    }
    return positionOf(cursor->getStart());
}

// A point on a picture selects it, one in a frame sets the cursor into it. Both
// stand for the place in the line where the object is anchored.
void TextPositions::leaveObjects() const {
    const auto selection = mSelection->getSelection();
    Reference<css::text::XTextContent> object(selection, UNO_QUERY);
    if (const Reference<css::drawing::XShapes> shapes(selection, UNO_QUERY);
        shapes.is() && shapes->hasElements())
        object.set(shapes->getByIndex(0), UNO_QUERY);
    if (object.is())
        mSelection->select(css::uno::Any(object->getAnchor()));

    const auto& cursor = mFlow.cursor();
    const auto frameAtCursor = [&] {
        return property<Reference<css::text::XTextContent>>(propertiesOf(cursor), "TextFrame");
    };
    for (auto frame = frameAtCursor(); frame.is(); frame = frameAtCursor())
        cursor->gotoRange(frame->getAnchor(), false);
}

Reference<css::text::XTextRange> TextPositions::rangeAt(uint32_t position) const {
    const auto& paragraphs = mBody.paragraphs;
    const auto next = std::upper_bound(
        paragraphs.begin(), paragraphs.end(), position,
        [](uint32_t character, const BodyParagraph& paragraph) { return character < paragraph.start; });
    const BodyParagraph& paragraph = *std::prev(next);
    const auto cursor = paragraph.range->getText()->createTextCursorByRange(paragraph.range->getStart());
    goRight(cursor, std::min(position - paragraph.start, paragraph.length));
    return Reference<css::text::XTextRange>(cursor, UNO_QUERY);
}

const BodyText* TextPositions::textAtCursor() const {
    const auto properties = propertiesOf(mFlow.cursor());
    const auto table = property<Reference<css::container::XNamed>>(properties, "TextTable");
    const auto cell = property<Reference<css::beans::XPropertySet>>(properties, "Cell");
    const OUString tableName = table.is() ? table->getName() : OUString();
    const auto text =
        mTexts.find({tableName, table.is() ? property<OUString>(cell, "CellName") : OUString()});
    return text != mTexts.end() ? text->second : nullptr;
}

uint32_t TextPositions::positionOf(const Reference<css::text::XTextRange>& range) const {
    const BodyText* const text = textAtCursor();
    if (text == nullptr || text->paragraphs.empty())
        return mCount;
    const Reference<css::text::XTextRangeCompare> order(text->text, UNO_QUERY_THROW);
    const auto next =
        std::partition_point(text->paragraphs.begin(), text->paragraphs.end(), [&](size_t index) {
            return order->compareRegionStarts(mBody.paragraphs[index].range, range) >= 0;
        });
    if (next == text->paragraphs.begin())
        return mBody.paragraphs[*next].start;
    const BodyParagraph& paragraph = mBody.paragraphs[*std::prev(next)];
    const auto cursor = text->text->createTextCursorByRange(range);
    const Reference<css::text::XParagraphCursor> start(cursor, UNO_QUERY_THROW);
    start->gotoStartOfParagraph(true);
    const auto offset = static_cast<uint32_t>(cursor->getString().getLength());
    return paragraph.start + std::min(offset, paragraph.length);
}

} // namespace lectern::engine
