// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/TouchSlideFunctions.h"
#include "raster/CpRect.h"
#include "touch/TouchTypes.h"

#include <span>
#include <string>
#include <vector>

// UTF-16 units [start, end) of a slide's text.
struct UnitRange {
    int start = 0;
    int end = 0;

    bool isEmpty() const { return start >= end; }
};

// The text on a slide: lines in reading order, and the place of each unit in pixels of
// a picture of the slide. Units count through all lines.
class SlideText {
public:
    SlideText() = default;
    // Copies a module's lines. Ignores those that no slide can have.
    explicit SlideText(std::span<const sstg_text_line> lines);

    // The unit at a point; -1 if there is no text within half the height of a line.
    int unitAt(const CpPoint& point) const;
    // The boundary between two units that is nearest to a point; -1 without text.
    int boundaryAt(const CpPoint& point) const;

    UnitRange wordAt(int unit) const; // empty between words
    UnitRange lineAt(int unit) const;
    UnitRange all() const { return {0, static_cast<int>(mText.size())}; }

    // UTF-8, with line feeds between paragraphs.
    std::string textOf(const UnitRange& range) const;
    // One rectangle for each line with drawn units of the range.
    std::vector<CpRect> rectanglesOf(const UnitRange& range) const;
    // The lines with words that are drawn inside an area.
    std::vector<TextLine> linesIn(const CpRect& area) const;

private:
    struct Line {
        UnitRange units;
        CpRect place; // around all its units
        int paragraph = 0;
    };
    struct Nearest {
        int unit = -1;
        long long distance = 0; // the square of that to its line
    };

    void add(const sstg_text_line& line);
    bool isBlank(const UnitRange& range) const;
    CpRect placeOf(const UnitRange& range) const;
    Nearest nearestTo(const CpPoint& point) const;
    const Line* lineOf(int unit) const;

    std::u16string mText;
    std::vector<CpRect> mPlaces; // of each unit; empty for one that is not drawn
    std::vector<Line> mLines;
};
