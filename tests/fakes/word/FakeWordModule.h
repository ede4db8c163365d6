// SPDX-License-Identifier: Apache-2.0
// The control side of the fake word module, for tests in the same process.
//
// The fake is a real WordToGoModule.so. It plays one continuous text that is
// uniform all the way: `rows` rows at the first width it is given and 72 dpi,
// more or fewer after a re-layout so that the text's area grows with the square
// of the dpi. Characters are spread evenly over its lines. Each pixel of the
// buffer tells where in the text it is from: see fakeWordPixel().
#pragma once

#include "modules/WordToGoModule.h"
#include "tests/fakes/module/FakeCalls.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// One hit that wtg_find will find, whatever the text it is asked for.
struct FakeWordHit {
    uint32_t start;
    uint32_t end;
    int32_t x = 10; // of its rectangles, in buffer pixels
    int32_t width = 30;
    int32_t lines = 1; // a rectangle for each
};

// One region as wtg_get_found_regions is to report it.
struct FakeWordRegion {
    uint32_t position;
    std::vector<module_rect> rectangles;
};

// The laid-out text of the document opened last. All in rows of pixels.
struct FakeWordLayout {
    int64_t rows = 0;     // of the whole text
    int64_t top = 0;      // the text row at the stretch's top
    int64_t lineRows = 1; // rows of one line
    int32_t width = 0;    // of the buffer
    int32_t height = 0;
    int32_t dpi = 72;
};

struct FakeWordControl : FakeControl<FakeWordControl> {
    // The document that the next open makes. A file named "code-N..." gives the
    // open code N, and one named "rows-N..." N rows, so that tests of a whole
    // process can choose them too.
    int64_t rows = 3000;
    uint32_t characters = 100000;
    int32_t lineHeight = 1; // rows of a line at 72 dpi

    std::vector<FakeWordHit> hits;
    // In place of the regions of `hits` in the stretch.
    std::optional<std::vector<FakeWordRegion>> regions;
    wtg_click_info click{0, 0, 0, 0};
    std::u16string link = u"http://example.com/";

    int32_t words = 0;

    // What the module knows.
    FakeWordLayout layout;
    int64_t repaints = 0;
    int64_t layouts = 0; // how often the text was laid out
};

// Pixels: text row in the low 24 bits, column modulo 255 in the top byte, so
// that fills over them can be told; white where there is no text.
constexpr uint32_t FAKE_WORD_WHITE = 0xFFFFFFFF;
constexpr uint32_t fakeWordPixel(int64_t row, int32_t column) {
    return (static_cast<uint32_t>(column % 255) << 24) | (static_cast<uint32_t>(row) & 0xFFFFFF);
}
constexpr int64_t fakeWordRow(uint32_t pixel) {
    return pixel & 0xFFFFFF;
}
// Row of a secondary document, counted from the top of the buffer.
constexpr uint32_t fakeSecondaryPixel(int32_t row) {
    return 0xFF800000U | static_cast<uint32_t>(row);
}

// The control of the module that the loader finds, which stays loaded.
inline FakeWordControl& fakeWord() {
    static FakeWordControl& control = fakeControl<FakeWordControl>("WordToGoModule.so", "fake_word_control");
    return control;
}
