// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/PlacedRanges.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace lectern::engine {

namespace {

// The longest time that one call places ranges. It is reached only with thousands
// of ranges in one table; the remaining ones are placed by later calls.
constexpr std::chrono::milliseconds MOST_TIME(3'000);
// ... and that a call may have to wait while ranges are prepared.
constexpr std::chrono::milliseconds IDLE_TIME(3);

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

// The rows' characters; all when the suite cannot tell.
CharacterRange around(const LaidOutText& text, int64_t first, int64_t last) {
    try {
        return text.positions.around(text.map, first, last);
    } catch (const css::uno::Exception&) {
        return {0, text.positions.count()};
    }
}

// No boxes where the suite fails: that part of the text stays unmarked.
std::vector<ViewBox> linesOf(LineBoxes& lines, CharacterRange range) {
    try {
        return lines.of(range);
    } catch (const css::uno::Exception& error) {
        std::fprintf(stderr, "office: characters %u to %u cannot be marked: %s\n", range.start, range.end,
                     OUStringToOString(error.Message, RTL_TEXTENCODING_UTF8).getStr());
        return {};
    }
}

} // namespace

PlacedRanges::PlacedRanges(std::vector<CharacterRange> ranges)
    : mRanges(std::move(ranges)), mPlaces(mRanges.size()) {}

void PlacedRanges::forgetPlaces() {
    std::fill(mPlaces.begin(), mPlaces.end(), std::nullopt);
    mFirst = mLast = 0;
}

std::vector<size_t> PlacedRanges::inRows(const LaidOutText& text, int64_t first, int64_t last) {
    std::vector<size_t> found;
    if (mRanges.empty() || first >= last || first >= text.map.rows()) {
        return found;
    }
    placeInRows(text, first, last, MOST_TIME);
    for (size_t index = 0; index < mRanges.size(); ++index) {
        if (mPlaces[index] &&
            std::any_of(mPlaces[index]->begin(), mPlaces[index]->end(),
                        [&](const TextBox& box) { return box.top < last && box.bottom > first; })) {
            found.push_back(index);
        }
    }
    return found;
}

bool PlacedRanges::prepare(const LaidOutText& text, int64_t first, int64_t last) {
    return !mRanges.empty() && first < last && !placeInRows(text, first, last, IDLE_TIME);
}

// Asking the suite for the characters near the rows takes longer than all else, so
// rows are looked at once.
bool PlacedRanges::placeInRows(const LaidOutText& text, int64_t first, int64_t last,
                               std::chrono::milliseconds most) {
    if (first >= mFirst && last <= mLast) {
        return true;
    }
    if (!place(text, around(text, first, last), most)) {
        return false;
    }
    const bool adjoins = first <= mLast && last >= mFirst;
    mFirst = adjoins ? std::min(first, mFirst) : first;
    mLast = adjoins ? std::max(last, mLast) : last;
    return true;
}

void PlacedRanges::placeAll(const LaidOutText& text) {
    place(text, {0, text.positions.count()}, MOST_TIME);
    for (auto& boxes : mPlaces) {
        if (!boxes) {
            boxes.emplace();
        }
    }
}

bool PlacedRanges::place(const LaidOutText& text, CharacterRange near, std::chrono::milliseconds most) {
    std::optional<LineBoxes> lines;
    const auto start = std::chrono::steady_clock::now();
    for (size_t index = 0; index < mRanges.size(); ++index) {
        const CharacterRange& range = mRanges[index];
        const bool isNear = range.end > near.start && range.start < near.end;
        if (mPlaces[index] || range.end > text.flow.end() ||
            (!isNear && !text.positions.body().paragraphAt(range.start).isInFrame)) {
            continue;
        }
        if (lines && std::chrono::steady_clock::now() - start > most) {
            return false;
        }
        if (!lines) {
            lines.emplace(text.painter, text.flow, text.positions);
        }
        mPlaces[index] = textBoxes(text.map, linesOf(*lines, range));
    }
    return true;
}

} // namespace lectern::engine
