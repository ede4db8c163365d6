// SPDX-License-Identifier: Apache-2.0
// What the fake texts answer to views with touch manners. It follows from their other
// answers.
#include "engine/office/word/WordDocument.h"
#include "modules/ModuleResults.h"

#include <algorithm>

namespace lectern::engine {

namespace {
constexpr int32_t TAP_DPI = 48;
} // namespace

int32_t WordDocument::characterAt(int32_t /*x*/, int32_t y, uint32_t& character,
                                  std::vector<PixelRect>& line) {
    int32_t width = 0;
    int32_t rows = 0;
    uint32_t count = 0;
    StretchPlace place;
    const int32_t result = std::max({characterCount(count), layoutSize(width, rows), stretchPlace(place)});
    if (rows < 1) {
        return std::max<int32_t>(result, MODULE_NOTHING_THERE); // a text without rows
    }
    character = place.topLeft + static_cast<uint32_t>(y) * (count / static_cast<uint32_t>(rows));
    line = {{0, y, width, 1}};
    return result;
}

int32_t WordDocument::textSize(int64_t& top, int64_t& rows, uint32_t& characters) {
    int32_t width = 0;
    int32_t height = 0;
    StretchPlace place;
    const int32_t result = std::max(layoutSize(width, height), stretchPlace(place));
    top = place.row;
    rows = height;
    return std::max(result, characterCount(characters));
}

int32_t WordDocument::tapArea(int32_t x, int32_t y, std::vector<PixelRect>& area, int32_t& mostDpi) {
    area = {{x, y, 10, 20}};
    mostDpi = TAP_DPI;
    return MODULE_OK;
}

int32_t WordDocument::setFindOptions(int32_t /*flags*/) {
    return MODULE_OK;
}

int32_t WordDocument::moveSelectionEnd(int32_t end, int32_t x, int32_t /*y*/) {
    CharacterRange range = selection();
    (end == 0 ? range.start : range.end) = static_cast<uint32_t>(x);
    return selectRange(range);
}

int32_t WordDocument::selectionRegions(std::vector<PixelRect>& rectangles) {
    const CharacterRange range = selection();
    rectangles = {{static_cast<int32_t>(range.start), 0, static_cast<int32_t>(range.end - range.start), 1}};
    return MODULE_OK;
}

int32_t WordDocument::textLines(int32_t top, int32_t bottom, std::u16string& text,
                                std::vector<uint32_t>& ends, std::vector<PixelRect>& places) {
    text = u"firstlast";
    ends = {5, 9};
    places = {{0, top, 10, 1}, {0, bottom - 1, 10, 1}};
    return MODULE_OK;
}

int32_t WordDocument::outline(std::u16string& text, std::vector<uint32_t>& ends, std::vector<int32_t>& levels,
                              std::vector<uint32_t>& positions) {
    text = u"OneTwo";
    ends = {3, 6};
    levels = {0, 1};
    positions = {0, 20};
    return MODULE_OK;
}

} // namespace lectern::engine
