// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/RowMap.h"

#include <com/sun/star/view/XSelectionSupplier.hpp>

#include <map>
#include <utility>

namespace lectern::engine {

// Character positions of the body text, and where in the layout they lie.
// Positions are UTF-16 units in the order of the document, one between two
// paragraphs. In a table the lines of its left column stand for their rows.
class TextPositions {
public:
    // All three outlive this.
    TextPositions(const OpenedDocument& document, const PreparedDocument& prepared, const TextFlow& flow);

    // A body of pictures alone counts one, so that its start and end differ.
    uint32_t count() const { return mCount; }

    // The row at which the line of a character begins, 0 for the first line.
    // Positions beyond the end count as the end.
    int64_t lineRow(const RowMap& map, uint32_t position) const;

    // The first character of the first line that begins at or below a row of
    // the text; count() when there is none.
    uint32_t lineAtOrBelow(const RowMap& map, int64_t row) const;

private:
    css::uno::Reference<css::text::XTextRange> rangeAt(uint32_t position) const;
    uint32_t positionOf(const css::uno::Reference<css::text::XTextRange>& range) const;
    const BodyText* textAtCursor() const;

    void leaveObjects() const;

    lok::Document& mPainter;
    css::uno::Reference<css::view::XSelectionSupplier> mSelection;
    const Body& mBody;
    const TextFlow& mFlow;
    uint32_t mCount;
    // Cells by the names of their table and their own.
    std::map<std::pair<OUString, OUString>, const BodyText*> mTexts;
};

} // namespace lectern::engine
