// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/TextPositions.h"

#include "engine/layout/Twips.h"
#include "engine/office/word/PageStyles.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/view/XLineCursor.hpp>

#include <algorithm>
#include <limits>

namespace lectern::engine {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// The most lines searched for the next one below a row: in a table the lines of
// the row's other cells come first.
constexpr int MOST_LINES = 256;

// Makes the cursor select `characters` from the start of its paragraph; returns
// the number of UTF-16 units that the selected text shows.
uint32_t extendTo(const Reference<css::text::XTextCursor>& cursor, uint32_t characters) {
    constexpr uint32_t MOST = std::numeric_limits<sal_Int16>::max();
    cursor->gotoRange(cursor->getStart(), false);
    for (; characters > MOST; characters -= MOST) {
        cursor->goRight(static_cast<sal_Int16>(MOST), true);
    }
    cursor->goRight(static_cast<sal_Int16>(characters), true);
    return static_cast<uint32_t>(cursor->getString().getLength());
}

} // namespace

TextPositions::TextPositions(const OpenedDocument& document, const PreparedDocument& prepared,
                             const TextFlow& flow)
    : mPainter(*document.painter), mSelection(document.model->getCurrentController(), UNO_QUERY_THROW),
      mBody(prepared.body), mFlow(flow), mCount(std::max(mBody.length(), prepared.shapes.empty() ? 0U : 1U)) {
}

int64_t TextPositions::lineRow(const RowMap& map, uint32_t position) const {
    const auto rowOfLine = [&](uint32_t character) {
        mFlow.cursor()->gotoRange(cursorTo(character)->getEnd(), false);
        return map.rowOf(mFlow.cursorPlace());
    };
    const int64_t row = rowOfLine(position);
    return row <= rowOfLine(0) ? 0 : row;
}

uint32_t TextPositions::lineAtOrBelow(const RowMap& map, int64_t row) const {
    if (row >= map.rows()) {
        return mCount;
    }
    setCursor(map, 0, row);
    leaveObject();
    leaveFrames();
    const auto& cursor = mFlow.cursor();
    const Reference<css::view::XLineCursor> line(cursor, UNO_QUERY_THROW);
    line->gotoStartOfLine(false);
    for (int i = 0; i < MOST_LINES && map.rowOf(mFlow.cursorPlace()) < row; ++i) {
        line->gotoEndOfLine(false);
        if (!cursor->goRight(1, false)) {
            return mCount;
        }
        line->gotoStartOfLine(false);
    }
    return cursorPosition();
}

// Lines follow each other in text order except inside a unit, so units are
// included whole.
CharacterRange TextPositions::around(const RowMap& map, int64_t first, int64_t last) const {
    CharacterRange range{0, lineAtOrBelow(map, last)};
    if (const uint32_t below = lineAtOrBelow(map, first); below > 0) {
        const BodyParagraph& paragraph = mBody.paragraphAt(below - 1);
        range.start = mBody.isAlone(paragraph) ? lineOf(below - 1).start : mBody.unitOf(paragraph).start;
    }
    if (const BodyParagraph& paragraph = mBody.paragraphAt(range.end); !mBody.isAlone(paragraph)) {
        range.end = mBody.unitOf(paragraph).end;
    }
    return range;
}

uint32_t TextPositions::nearest(const RowMap& map, int32_t x, int64_t row) const {
    return pointedAt(map, x, row).position;
}

TextPositions::PointedAt TextPositions::pointedAt(const RowMap& map, int32_t x, int64_t row) const {
    setCursor(map, x, row);
    const auto object = propertiesOf(selectedObject());
    leaveObject();
    return {cursorPosition(), object};
}

void TextPositions::setCursor(const RowMap& map, int64_t x, int64_t row) const {
    const int64_t leftEdge = map.pageOf(row).left;
    const int64_t column = std::max(x * TWIPS_PER_INCH / map.dpi(), twipsFromHundredthMm(PAGE_MARGIN) + 1);
    mPainter.setTextSelection(LOK_SETTEXTSELECTION_RESET, static_cast<int>(leftEdge + column),
                              static_cast<int>(map.viewY(row)));
}

// The picture or drawing at the last point, which setCursor selects; null without one.
Reference<css::uno::XInterface> TextPositions::selectedObject() const {
    const auto selection = mSelection->getSelection();
    Reference<css::text::XTextContent> object(selection, UNO_QUERY);
    if (const Reference<css::drawing::XShapes> shapes(selection, UNO_QUERY);
        shapes.is() && shapes->hasElements()) {
        object.set(shapes->getByIndex(0), UNO_QUERY);
    }
    return object;
}

// Moves from a selected object to the position in the text where it is anchored.
void TextPositions::leaveObject() const {
    if (const Reference<css::text::XTextContent> object(selectedObject(), UNO_QUERY); object.is()) {
        mSelection->select(css::uno::Any(object->getAnchor()));
    }
}

void TextPositions::leaveFrames() const {
    const auto& cursor = mFlow.cursor();
    const auto frameAtCursor = [&] {
        return property<Reference<css::text::XTextContent>>(propertiesOf(cursor), "TextFrame");
    };
    for (auto frame = frameAtCursor(); frame.is(); frame = frameAtCursor()) {
        cursor->gotoRange(frame->getAnchor(), false);
    }
}

// Returns a cursor that selects its paragraph's text up to the position.
//
// Shown text has more units than characters where there are fields, and fewer
// where shapes are anchored; the selected text tells the number of units.
Reference<css::text::XTextCursor> TextPositions::cursorTo(uint32_t position, Inside inside) const {
    const bool whole = inside == Inside::Behind;
    const BodyParagraph& paragraph = mBody.paragraphAt(position);
    const uint32_t wanted = std::min(position - paragraph.start, paragraph.length);
    const auto cursor = paragraph.range->getText()->createTextCursorByRange(paragraph.range->getStart());
    if (extendTo(cursor, wanted) == wanted) {
        return cursor;
    }
    const Reference<css::text::XParagraphCursor> ends(cursor, UNO_QUERY_THROW);
    const auto reaches = [&](uint32_t characters) {
        const uint32_t shown = extendTo(cursor, characters);
        return whole ? shown >= wanted : shown > wanted;
    };
    // Search the least number of characters that reaches the position.
    uint32_t least = 0;
    uint32_t most = 1;
    while (!reaches(most) && most <= paragraph.length + MOST_LINES) {
        most *= 2;
    }
    while (least < most) {
        const uint32_t middle = least + (most - least) / 2;
        if (reaches(middle)) {
            most = middle;
        } else {
            least = middle + 1;
        }
    }
    extendTo(cursor, whole || least == 0 ? least : least - 1);
    return cursor;
}

Reference<css::text::XTextCursor> TextPositions::select(CharacterRange range) const {
    const auto cursor = cursorTo(range.start);
    const auto length = static_cast<sal_Int32>(range.end - range.start);
    cursor->collapseToEnd();
    if (length <= std::numeric_limits<sal_Int16>::max()) {
        cursor->goRight(static_cast<sal_Int16>(length), true);
    }
    if (cursor->getString().getLength() == length) {
        return cursor;
    }
    const auto end = cursorTo(range.end, Inside::Behind);
    cursor->collapseToStart();
    cursor->gotoRange(end->getEnd(), true);
    return cursor;
}

CharacterRange TextPositions::lineOf(uint32_t position) const {
    const auto& cursor = mFlow.cursor();
    const Reference<css::view::XLineCursor> line(cursor, UNO_QUERY_THROW);
    cursor->gotoRange(cursorTo(position)->getEnd(), false);
    line->gotoStartOfLine(false);
    const uint32_t start = cursorPosition();
    line->gotoEndOfLine(false);
    return {start, cursorPosition()};
}

uint32_t TextPositions::cursorPosition() const {
    return positionOf(Reference<css::text::XTextRange>(mFlow.cursor(), UNO_QUERY));
}

uint32_t TextPositions::positionOf(const Reference<css::text::XTextRange>& range) const {
    const auto text = range->getText();
    const auto cursor = text->createTextCursorByRange(range->getStart());
    const Reference<css::text::XTextRange> place(cursor, UNO_QUERY);
    const BodyParagraph* const paragraph = mBody.paragraphAt(propertiesOf(cursor), place);
    if (paragraph == nullptr) {
        return mCount;
    }
    const Reference<css::text::XParagraphCursor> start(cursor, UNO_QUERY_THROW);
    start->gotoStartOfParagraph(true);
    const auto offset = static_cast<uint32_t>(cursor->getString().getLength());
    return paragraph->start + std::min(offset, paragraph->length);
}

} // namespace lectern::engine
