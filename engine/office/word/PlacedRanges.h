// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/LineBoxes.h"

#include <chrono>
#include <optional>
#include <vector>

namespace lectern::engine {

// A document's layout at a resolution, and the objects needed to find positions in it.
struct LaidOutText {
    lok::Document& painter;
    const TextFlow& flow;
    const TextPositions& positions;
    const RowMap& map;
};

// Rows [top, bottom) of the whole text, pixel columns [left, right).
struct TextBox {
    int64_t top;
    int64_t bottom;
    int32_t left;
    int32_t right;
};

// Ranges of characters and their boxes, one box for each line. Placing a range
// takes a fraction of a millisecond, so a range is placed when rows near it are
// first asked for, and stays placed until the next layout.
class PlacedRanges {
public:
    PlacedRanges() = default;
    explicit PlacedRanges(std::vector<CharacterRange> ranges);

    const std::vector<CharacterRange>& ranges() const { return mRanges; }
    // Call after every layout.
    void forgetPlaces();

    // Indices, ascending, of the ranges with a box that touches rows [first,
    // last) of the text.
    std::vector<size_t> inRows(const LaidOutText& text, int64_t first, int64_t last);
    // Places some of the ranges near rows [first, last), for some milliseconds.
    // Returns false when all are placed.
    bool prepare(const LaidOutText& text, int64_t first, int64_t last);
    // Places all ranges; use for a small number of them only.
    void placeAll(const LaidOutText& text);
    // The boxes of a placed range, from top to bottom. The ranges returned by
    // inRows are placed; after placeAll all are.
    const std::vector<TextBox>& boxes(size_t index) const { return *mPlaces[index]; }

private:
    // Both return false when the time was too short.
    bool place(const LaidOutText& text, CharacterRange near, std::chrono::milliseconds most);
    bool placeInRows(const LaidOutText& text, int64_t first, int64_t last, std::chrono::milliseconds most);

    std::vector<CharacterRange> mRanges;
    std::vector<std::optional<std::vector<TextBox>>> mPlaces;
    // All ranges in rows [mFirst, mLast) are placed.
    int64_t mFirst = 0;
    int64_t mLast = 0;
};

} // namespace lectern::engine
