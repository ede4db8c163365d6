// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/RowMap.h"
#include "engine/office/word/ShownPieces.h"
#include "engine/office/word/TextFlow.h"

#include <com/sun/star/view/XSelectionSupplier.hpp>

#include <optional>

namespace lectern::engine {

// Character positions in the whole text, and their places in the layout.
// Positions are UTF-16 units of the text as shown, including fields and note
// marks. In a table the lines of the left column stand for their rows.
class TextPositions {
public:
    // All three must outlive this.
    TextPositions(const OpenedDocument& document, const PreparedDocument& prepared, const TextFlow& flow);

    // Number of positions. A body of pictures only counts as one character, so
    // that its start and end differ.
    uint32_t count() const { return mCount; }
    const Body& body() const { return mBody; }

    // The row at which the line of a character begins, 0 for the first line.
    // Positions beyond the end count as the end.
    int64_t lineRow(const RowMap& map, uint32_t position) const;

    // The first character of the first line that begins at or below a row of
    // the text; count() when there is none.
    uint32_t lineAtOrBelow(const RowMap& map, int64_t row) const;

    // A range that includes all characters with a part in rows [first, last) of
    // the text, and possibly some more.
    CharacterRange around(const RowMap& map, int64_t first, int64_t last) const;

    // The character boundary nearest to a point of the text; x in pixels.
    uint32_t nearest(const RowMap& map, int32_t x, int64_t row) const;

    // The character boundary at a point, and the properties of the picture or
    // drawing there, null without one.
    struct PointedAt {
        uint32_t position = 0;
        css::uno::Reference<css::beans::XPropertySet> object;
    };
    PointedAt pointedAt(const RowMap& map, int32_t x, int64_t row) const;

    // The range with the whole of each field or similar unit that it lies in.
    CharacterRange withWholeUnits(CharacterRange range) const;

    // Returns a cursor that selects these characters, which lie in one text, with
    // whole units.
    css::uno::Reference<css::text::XTextCursor> select(CharacterRange range) const;

    // The position of a range's start in the text; nothing outside of the body.
    std::optional<uint32_t> find(const css::uno::Reference<css::text::XTextRange>& range) const;
    // The same; count() outside of the body.
    uint32_t positionOf(const css::uno::Reference<css::text::XTextRange>& range) const;

    // The line that contains a position.
    CharacterRange lineOf(uint32_t position) const;

    // The character nearest to a point on the line there, its lineRow(), and the row at
    // which the next line begins.
    struct PlacedLine {
        uint32_t character = 0;
        int64_t first = 0;
        int64_t last = 0;
    };
    PlacedLine lineNear(const RowMap& map, int32_t x, int64_t row) const;

private:
    // Whether a position inside a field or similar unit means its start or its end.
    enum class Inside { Before, Behind };
    css::uno::Reference<css::text::XTextCursor> cursorTo(uint32_t position,
                                                         Inside inside = Inside::Before) const;
    std::vector<ShownPiece> piecesOf(const BodyParagraph& paragraph) const;
    uint32_t offsetIn(const BodyParagraph& paragraph,
                      const css::uno::Reference<css::text::XTextCursor>& place) const;
    void setCursor(const RowMap& map, int64_t x, int64_t row) const;
    css::uno::Reference<css::uno::XInterface> selectedObject() const;
    void leaveObject() const;
    void leaveFrames() const;
    uint32_t cursorPosition() const;

    lok::Document& mPainter;
    css::uno::Reference<css::view::XSelectionSupplier> mSelection;
    const Body& mBody;
    const TextFlow& mFlow;
    uint32_t mCount;
};

} // namespace lectern::engine
