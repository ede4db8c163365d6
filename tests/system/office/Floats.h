// SPDX-License-Identifier: Apache-2.0
// Parts of .docx bodies that stand beside or behind the text. Lengths in inches.
#pragma once

#include <string>

namespace lectern::engine::test {

// A place on the page, or relative to the paragraph that contains the anchor.
struct Place {
    double left = 0;
    double top = 0;
    bool onPage = false;
};

struct Look {
    std::string fill;     // colour as "CCDDFF"; none when empty
    bool outlined = true; // with a thin black border
    bool behindText = false;
    std::string wrap = "<wp:wrapNone/>";
};

std::string paragraphOf(const std::string& text, const std::string& properties = "");

// A run with a rectangle, which contains paragraphs or nothing.
std::string box(const Place& place, double width, double height, const std::string& paragraphs,
                const Look& look = {});

// A run with a group of rectangles of 1.5 x 0.5, one for each text, side by side from right to left.
std::string groupOfBoxes(const Place& place, const std::initializer_list<std::string>& texts);

// A run with a group of two filled rectangles of 1 x 1 that is a character of its line.
std::string groupInLine();

// A run with a text box in the older drawing language.
std::string oldBox(double top, const std::string& paragraphs);

// Properties of paragraphs that stand in a frame at the page's upper left corner.
std::string frameProperties();

// A table of one row, at the side of the text when it floats, without borders.
std::string plainTable(const std::initializer_list<std::string>& cells, bool floats);

// A run with a floating picture that the file links to but does not contain.
std::string linkedPicture(double width, double height);

} // namespace lectern::engine::test
