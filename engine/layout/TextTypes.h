// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/protocol/Vocabulary.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// Separates the paragraphs of a text.
constexpr char16_t PARAGRAPH_SEPARATOR = u'\u2029';

// Characters [start, end) of the body text.
struct CharacterRange {
    uint32_t start = 0;
    uint32_t end = 0;

    bool isEmpty() const { return start >= end; }
    friend bool operator==(const CharacterRange&, const CharacterRange&) = default;
};

// A hit inside the stretch: its start, and a rectangle for each of its lines.
struct FoundRegion {
    uint32_t position = 0;
    std::vector<PixelRect> rectangles;
};

// What lies under a point.
struct ClickTarget {
    ClickType type = ClickType::Nothing;
    std::u16string address; // of a hyperlink
    uint32_t value = 0;     // a note's number in the document, or an internal link's position
};

} // namespace lectern::engine
