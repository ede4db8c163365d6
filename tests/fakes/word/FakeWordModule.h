// SPDX-License-Identifier: Apache-2.0
// The control side of the fake word module, for tests in the same process.
//
// The fake is a real WordToGoModule.so. It has one uniform continuous text:
// `rows` rows at its first width and 72 dpi. After a new layout the number of
// rows changes so that the text's area grows with the square of the dpi.
// Characters are spread evenly over the lines. Each pixel of the buffer encodes
// its position in the text: see fakeWordPixel().
#pragma once

#include "modules/TouchWordFunctions.h"
#include "modules/WordToGoModule.h"
#include "tests/fakes/module/FakeCalls.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// One hit that wtg_find finds for any text.
struct FakeWordHit {
    uint32_t start;
    uint32_t end;
    int32_t x = 10; // left edge of its rectangles, in buffer pixels
    int32_t width = 30;
    int32_t lines = 1; // each has a rectangle
};

// An entry of the outline.
struct FakeWordHeading {
    std::u16string title;
    int32_t level;
    uint32_t character;
};

// One region that wtg_get_found_regions reports.
struct FakeWordRegion {
    uint32_t position;
    std::vector<module_rect> rectangles;
};

// The layout of the document opened last. Lengths are rows of pixels.
struct FakeWordLayout {
    int64_t rows = 0;     // of the whole text
    int64_t top = 0;      // row of the text at the top of the stretch
    int64_t lineRows = 1; // rows of one line
    int32_t width = 0;    // of the buffer
    int32_t height = 0;
    int32_t dpi = 72;
};

struct FakeWordControl : FakeControl<FakeWordControl> {
    // The document that the next open creates. The open of a file named
    // "code-N..." returns N; a file named "rows-N..." has N rows. Tests of a
    // whole process use these names.
    int64_t rows = 3000;
    uint32_t characters = 100000;
    int32_t lineHeight = 1; // rows of a line at 72 dpi

    std::vector<FakeWordHit> hits;
    // Replaces the regions of `hits` in the stretch.
    std::optional<std::vector<FakeWordRegion>> regions;
    wtg_click_info click{0, 0, 0, 0};
    std::u16string link = u"http://example.com/";

    // What the optional functions return, besides what follows from the text.
    module_rect tapArea{0, 0, 0, 0}; // nothing without a width
    int32_t tapMostDpi = 0;
    std::vector<FakeWordHeading> headings;
    int64_t laidOutRows = -1; // -1: the whole text
    int32_t findOptions = 0;
    uint32_t selectionStart = 0;
    uint32_t selectionEnd = 0;

    int32_t words = 0;
    int32_t loss = 0; // what lectern_module_lost returns

    // The module's state.
    FakeWordLayout layout;
    int64_t repaints = 0;
    int64_t layouts = 0; // number of layouts made
};

// Pixel values: the text row in the low 24 bits and the column modulo 255 in
// the top byte, so that tints can be recognised; white where there is no text.
constexpr uint32_t FAKE_WORD_WHITE = 0xFFFFFFFF;
constexpr uint32_t fakeWordPixel(int64_t row, int32_t column) {
    return (static_cast<uint32_t>(column % 255) << 24) | (static_cast<uint32_t>(row) & 0xFFFFFF);
}
constexpr int64_t fakeWordRow(uint32_t pixel) {
    return pixel & 0xFFFFFF;
}
// The value of a secondary document's row, counted from the top of the buffer.
constexpr uint32_t fakeSecondaryPixel(int32_t row) {
    return 0xFF800000U | static_cast<uint32_t>(row);
}

// The control of the module that the loader finds. The module stays loaded.
inline FakeWordControl& fakeWord() {
    static FakeWordControl& control = fakeControl<FakeWordControl>("WordToGoModule.so", "fake_word_control");
    return control;
}
