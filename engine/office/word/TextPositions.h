// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/RowMap.h"
#include "engine/office/word/TextFlow.h"

#include <com/sun/star/view/XSelectionSupplier.hpp>

namespace lectern::engine {

// Character positions of the whole text, and where in the layout they lie.
// Positions are UTF-16 units of the text as it is shown, fields and note marks
// included. In a table the lines of its left column stand for their rows.
class TextPositions {
public:
    // All three outlive this.
    TextPositions(const OpenedDocument& document, const PreparedDocument& prepared, const TextFlow& flow);

    // A body of pictures alone counts one, so that its start and end differ.
    uint32_t count() const { return mCount; }
    const Body& body() const { return mBody; }

    // The row at which the line of a character begins, 0 for the first line.
    // Positions beyond the end count as the end.
    int64_t lineRow(const RowMap& map, uint32_t position) const;

    // The first character of the first line that begins at or below a row of
    // the text; count() when there is none.
    uint32_t lineAtOrBelow(const RowMap& map, int64_t row) const;

    // Characters that hold all those with a part in rows [first, last) of the
    // text, and some more.
    CharacterRange around(const RowMap& map, int64_t first, int64_t last) const;

    // The character boundary nearest to a point of the text; x in pixels.
    uint32_t nearest(const RowMap& map, int32_t x, int64_t row) const;

    // What a cursor between two characters is at; the object behind it when the
    // point is on a picture or drawing.
    struct PointedAt {
        uint32_t position = 0;
        css::uno::Reference<css::beans::XPropertySet> object;
    };
    PointedAt pointedAt(const RowMap& map, int32_t x, int64_t row) const;

    // A cursor that holds these characters of one text, and the whole of what
    // shows as several units but is one, such as a field.
    css::uno::Reference<css::text::XTextCursor> select(CharacterRange range) const;

    // The position of a place in the text; count() outside of the body.
    uint32_t positionOf(const css::uno::Reference<css::text::XTextRange>& range) const;

    // The line around a position.
    CharacterRange lineOf(uint32_t position) const;

private:
    // Whether a position inside of what is one in the document means its end.
    enum class Inside { Before, Behind };
    css::uno::Reference<css::text::XTextCursor> cursorTo(uint32_t position,
                                                         Inside inside = Inside::Before) const;
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
