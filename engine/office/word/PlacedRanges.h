// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/LineBoxes.h"

#include <optional>
#include <vector>

namespace lectern::engine {

// A document laid out for a resolution, and what finds its way in it.
struct LaidOutText {
    lok::Document& painter;
    const TextFlow& flow;
    const TextPositions& positions;
    const RowMap& map;
};

// Rows [top, bottom) of the whole text, columns [left, right) of pixels.
struct TextBox {
    int64_t top;
    int64_t bottom;
    int32_t left;
    int32_t right;
};

// Ranges of characters and the boxes they lie in, one for each line. To place a
// range costs a fraction of a millisecond: that is done when one near the rows
// asked for is first wanted, and holds until the next layout.
class PlacedRanges {
public:
    PlacedRanges() = default;
    explicit PlacedRanges(std::vector<CharacterRange> ranges);

    const std::vector<CharacterRange>& ranges() const { return mRanges; }
    // To be called when the text was laid out again.
    void forgetPlaces();

    // The ranges with a box that touches rows [first, last) of the text, as
    // indices, ascending.
    std::vector<size_t> inRows(const LaidOutText& text, int64_t first, int64_t last);
    // Places all of them, wherever they are; for a few.
    void placeAll(const LaidOutText& text);
    // Of one that is placed, as those are that inRows told of; from top to bottom.
    const std::vector<TextBox>& boxes(size_t index) const { return *mPlaces[index]; }

private:
    void place(const LaidOutText& text, CharacterRange near);

    std::vector<CharacterRange> mRanges;
    std::vector<std::optional<std::vector<TextBox>>> mPlaces;
};

} // namespace lectern::engine
