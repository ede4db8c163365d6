// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/TextPositions.h"

#include "engine/layout/Twips.h"
#include "engine/office/word/PageStyles.h"

#include <LibreOfficeKit/LibreOfficeKitEnums.h>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/text/XParagraphCursor.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextRangeCompare.hpp>
#include <com/sun/star/view/XLineCursor.hpp>
#include <com/sun/star/view/XViewCursor.hpp>

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

// The number of characters that UTF-16 units are.
uint32_t characterCount(std::u16string_view units) {
    return static_cast<uint32_t>(std::count_if(units.begin(), units.end(),
                                               [](char16_t unit) { return unit < 0xDC00 || unit > 0xDFFF; }));
}

void goRight(const Reference<css::text::XTextCursor>& cursor, uint32_t characters) {
    constexpr uint32_t MOST = std::numeric_limits<sal_Int16>::max();
    for (; characters > MOST; characters -= MOST) {
        cursor->goRight(static_cast<sal_Int16>(MOST), false);
    }
    cursor->goRight(static_cast<sal_Int16>(characters), false);
}

// Moves a cursor to a boundary inside a piece.
void moveInto(const Reference<css::text::XTextCursor>& cursor, const ShownPiece& piece, uint32_t offset) {
    if (piece.kind == ShownPiece::Kind::Unit) {
        return;
    }
    const uint32_t start = piece.kind == ShownPiece::Kind::Control ? 1 : 0;
    goRight(cursor, start + characterCount(std::u16string_view(piece.string).substr(0, offset)));
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

std::vector<ShownPiece> TextPositions::piecesOf(const BodyParagraph& paragraph) const {
    if (paragraph.kind == BodyParagraph::Kind::Mixed) {
        return shownParagraph(paragraph.range).pieces;
    }
    const auto kind =
        paragraph.kind == BodyParagraph::Kind::Plain ? ShownPiece::Kind::Letters : ShownPiece::Kind::Unit;
    return {{kind, paragraph.range, mBody.string().substr(paragraph.start, paragraph.length), {}}};
}

Reference<css::text::XTextCursor> TextPositions::cursorTo(uint32_t position, Inside inside) const {
    const BodyParagraph& paragraph = mBody.paragraphAt(position);
    const auto text = paragraph.range->getText();
    uint32_t offset = std::min(position - paragraph.start, paragraph.length);
    for (const ShownPiece& piece : piecesOf(paragraph)) {
        const auto length = static_cast<uint32_t>(piece.string.size());
        if (inside == Inside::Before ? offset < length : offset > 0 && offset <= length) {
            const bool behind = inside == Inside::Behind && piece.kind == ShownPiece::Kind::Unit;
            auto cursor =
                text->createTextCursorByRange(behind ? piece.range->getEnd() : piece.range->getStart());
            moveInto(cursor, piece, offset);
            return cursor;
        }
        offset -= length;
    }
    return text->createTextCursorByRange(inside == Inside::Before ? paragraph.range->getEnd()
                                                                  : paragraph.range->getStart());
}

CharacterRange TextPositions::withWholeUnits(CharacterRange range) const {
    CharacterRange whole = range;
    const BodyParagraph& paragraph = mBody.paragraphAt(range.start);
    uint32_t start = paragraph.start;
    for (const ShownPiece& piece : piecesOf(paragraph)) {
        const auto end = start + static_cast<uint32_t>(piece.string.size());
        if (piece.kind == ShownPiece::Kind::Unit && start < range.end && end > range.start) {
            whole = {std::min(whole.start, start), std::max(whole.end, end)};
        }
        start = end;
    }
    return whole;
}

Reference<css::text::XTextCursor> TextPositions::select(CharacterRange range) const {
    const BodyParagraph& paragraph = mBody.paragraphAt(range.start);
    auto cursor = cursorTo(range.start, Inside::Before);
    if (!range.isEmpty()) {
        cursor->gotoRange(cursorTo(range.end, Inside::Behind)->getEnd(), true);
    }
    // A drawing's anchor is a place without an extent; the drawing lies behind it.
    if (paragraph.kind == BodyParagraph::Kind::Attached && cursor->isCollapsed()) {
        cursor->goRight(1, true);
    }
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

// The boundary behind a line's last character belongs to the next line.
TextPositions::PlacedLine TextPositions::lineNear(const RowMap& map, int32_t x, int64_t row) const {
    const uint32_t near = nearest(map, x, row);
    const auto& cursor = mFlow.cursor();
    const Reference<css::view::XLineCursor> line(cursor, UNO_QUERY_THROW);
    line->gotoStartOfLine(false);
    const uint32_t start = cursorPosition();
    line->gotoEndOfLine(false);
    const uint32_t end = std::max(cursorPosition(), start + 1);
    const uint32_t character = std::clamp(near, start, end - 1);
    const int64_t first = lineRow(map, character);
    const Reference<css::view::XViewCursor> below(cursor, UNO_QUERY_THROW);
    cursor->gotoRange(cursorTo(character)->getEnd(), false);
    const int64_t next = below->goDown(1, false) ? map.rowOf(mFlow.cursorPlace()) : map.rows();
    return {character, first, next > first ? next : map.rows()};
}

uint32_t TextPositions::cursorPosition() const {
    return positionOf(Reference<css::text::XTextRange>(mFlow.cursor(), UNO_QUERY));
}

uint32_t TextPositions::positionOf(const Reference<css::text::XTextRange>& range) const {
    return find(range).value_or(mCount);
}

std::optional<uint32_t> TextPositions::find(const Reference<css::text::XTextRange>& range) const {
    const auto text = range->getText();
    const auto cursor = text->createTextCursorByRange(range->getStart());
    const Reference<css::text::XTextRange> place(cursor, UNO_QUERY);
    const BodyParagraph* const paragraph = mBody.paragraphAt(propertiesOf(cursor), place);
    if (paragraph == nullptr) {
        return std::nullopt;
    }
    try {
        return paragraph->start + std::min(offsetIn(*paragraph, cursor), paragraph->length);
    } catch (const css::uno::Exception&) {
        return paragraph->start; // the suite does not compare the range with all parts of the paragraph
    }
}

// The number of shown units between a paragraph's start and a place in it.
uint32_t TextPositions::offsetIn(const BodyParagraph& paragraph,
                                 const Reference<css::text::XTextCursor>& place) const {
    if (paragraph.kind == BodyParagraph::Kind::Plain) {
        const Reference<css::text::XParagraphCursor> start(place, UNO_QUERY_THROW);
        start->gotoStartOfParagraph(true);
        return static_cast<uint32_t>(place->getString().getLength());
    }
    const auto text = place->getText();
    const Reference<css::text::XTextRangeCompare> order(text, UNO_QUERY_THROW);
    const Reference<css::text::XTextRange> at(place, UNO_QUERY_THROW);
    uint32_t before = 0;
    for (const ShownPiece& piece : piecesOf(paragraph)) {
        const auto length = static_cast<uint32_t>(piece.string.size());
        if (order->compareRegionStarts(piece.range->getEnd(), at) < 0) {
            const auto part = text->createTextCursorByRange(piece.range->getStart());
            moveInto(part, piece, 0);
            const Reference<css::text::XTextRange> first(part, UNO_QUERY_THROW);
            const bool isInside = order->compareRegionStarts(first, at) > 0;
            if (!isInside || piece.kind == ShownPiece::Kind::Unit) {
                return before;
            }
            part->gotoRange(at, true);
            return before + std::min(static_cast<uint32_t>(part->getString().getLength()), length);
        }
        before += length;
    }
    return before;
}

} // namespace lectern::engine
