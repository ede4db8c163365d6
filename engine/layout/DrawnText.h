// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/TextTypes.h"

#include <cstdint>
#include <string>
#include <vector>

namespace lectern::engine {

// Characters of one line that are drawn by one action. Positions and lengths
// are in units of the drawing, y grows downwards.
struct TextRun {
    uint32_t start = 0; // in the drawing's text
    uint32_t line = 0;  // number of the line, counted through the text
    double x = 0;       // start of the baseline
    double y = 0;
    double height = 0; // of the font
    double angle = 0;  // of the baseline, in radians, counter-clockwise
    bool rightToLeft = false;
    std::vector<int32_t> ends; // end of each UTF-16 unit, measured from the start of the run

    uint32_t end() const { return start + static_cast<uint32_t>(ends.size()); }
};

// A rectangle in units of the drawing.
struct DrawnBox {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

// Characters that are a link.
struct DrawnLink {
    CharacterRange characters;
    std::u16string address;
};

// A line of the text, without the separator of its paragraph.
struct DrawnLine {
    CharacterRange characters;
    int32_t paragraph = 0; // counted through the text
};

// The text of a drawing and where it is drawn. PARAGRAPH_SEPARATOR separates
// paragraphs; runs are in the order of their text.
struct DrawnText {
    std::u16string text;
    std::vector<TextRun> runs;
    std::vector<DrawnLink> links; // in the order of the text

    // Appends the paragraphs of `other`.
    void append(const DrawnText& other);
    // Where the characters are drawn: one box for each line that contains any.
    std::vector<DrawnBox> boxes(CharacterRange range) const;
    std::vector<DrawnLine> lines() const;
};

} // namespace lectern::engine
