// SPDX-License-Identifier: Apache-2.0
#include "engine/office/PlacedRanges.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace lectern::engine {

namespace {

// A single call does not place ranges for longer. Only thousands in one table
// take as long; those left over stay unplaced until they are asked for again.
constexpr std::chrono::seconds mostTime(3);

std::vector<TextBox> textBoxes(const RowMap& map, const std::vector<ViewBox>& lines) {
    std::vector<TextBox> boxes;
    for (const ViewBox& line : lines) {
        TextBox box{map.rowAt(line.top), map.rowAt(line.top + line.height), 0, 0};
        box.left = map.columnAt(line.left, box.top);
        box.right = std::max(map.columnAt(line.left + line.width, box.top), box.left + 1);
        box.bottom = std::max(box.bottom, box.top + 1);
        boxes.push_back(box);
    }
    return boxes;
}

} // namespace

PlacedRanges::PlacedRanges(std::vector<CharacterRange> ranges)
    : mRanges(std::move(ranges)), mPlaces(mRanges.size()) {}

void PlacedRanges::forgetPlaces() {
    std::fill(mPlaces.begin(), mPlaces.end(), std::nullopt);
}

std::vector<size_t> PlacedRanges::inRows(const LaidOutText& text, int64_t first, int64_t last) {
    std::vector<size_t> found;
    if (mRanges.empty() || first >= last || first >= text.map.rows())
        return found;
    const CharacterRange near = text.positions.around(text.map, first, last);
    std::optional<LineBoxes> lines;
    const auto start = std::chrono::steady_clock::now();
    for (size_t index = 0; index < mRanges.size(); ++index) {
        if (mRanges[index].end <= near.start || mRanges[index].start >= near.end)
            continue;
        auto& place = mPlaces[index];
        if (!place && std::chrono::steady_clock::now() - start < mostTime) {
            if (!lines)
                lines.emplace(text.painter, text.flow, text.positions);
            place = textBoxes(text.map, lines->of(mRanges[index]));
        }
        if (place && std::any_of(place->begin(), place->end(),
                                 [&](const TextBox& box) { return box.top < last && box.bottom > first; }))
            found.push_back(index);
    }
    return found;
}

} // namespace lectern::engine
