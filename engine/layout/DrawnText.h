// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/TextTypes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// Characters of one line that are drawn in one go. Positions and lengths are
// those of the drawing, y grows downwards.
struct TextRun {
    uint32_t start = 0; // of its text
    uint32_t line = 0;  // numbered through the text
    double x = 0;       // where its baseline begins
    double y = 0;
    double height = 0; // of the font
    double angle = 0;  // of the baseline, in radians, counter-clockwise
    bool rightToLeft = false;
    std::vector<int32_t> ends; // of each unit, from where the run's text begins

    uint32_t end() const { return start + static_cast<uint32_t>(ends.size()); }
};

// An area of the drawing.
struct DrawnBox {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

// What is written on a drawing, and where. Paragraphs are separated by
// paragraphSeparator; runs are in the order of their text.
struct DrawnText {
    std::u16string text;
    std::vector<TextRun> runs;

    // Adds the paragraphs of another behind the own ones.
    void append(const DrawnText& other);
    // Where the characters are drawn, one box for each line that has any.
    std::vector<DrawnBox> boxes(CharacterRange range) const;
};

} // namespace lectern::engine
