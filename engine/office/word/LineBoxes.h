// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/ViewBoxes.h"
#include "engine/office/word/TextPositions.h"

#include <string>

namespace lectern::engine {

// Asks the suite for the boxes of characters, one for each line. The suite
// reports only selections, and later, so this registers a callback for its lifetime,
// selects with the view's cursor, and lets the suite handle events until it reports.
class LineBoxes {
public:
    // All three must outlive this.
    LineBoxes(lok::Document& painter, const TextFlow& flow, const TextPositions& positions);
    ~LineBoxes();
    LineBoxes(const LineBoxes&) = delete;
    LineBoxes& operator=(const LineBoxes&) = delete;

    // The boxes of a range, from top to bottom, then from left to right. Those of
    // a part of a field are estimated from its share of the field's characters;
    // the text of a drawing has the box of the drawing. Empty for an empty range,
    // for text that is not shown, and when the suite does not answer in time.
    std::vector<ViewBox> of(CharacterRange range);

private:
    static void onEvent(int type, const char* payload, void* self);
    std::vector<ViewBox> selected(CharacterRange range);
    std::string takeSelection();

    // The last selection of other than plain letters. Several ranges may share
    // it, and the suite does not report the same selection twice in a row.
    struct Selection {
        CharacterRange whole;
        css::uno::Reference<css::text::XTextRange> attachedTo;
        std::vector<ViewBox> boxes;
    };

    lok::Document& mPainter;
    const TextFlow& mFlow;
    const TextPositions& mPositions;
    Selection mLast;
    CharacterRange mSelected; // what the cursor selected last
    std::string mPayload;     // the suite's last report
};

} // namespace lectern::engine
