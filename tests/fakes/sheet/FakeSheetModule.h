// SPDX-License-Identifier: Apache-2.0
// The control side of the fake sheet module, for tests in the same process.
//
// The fake is a real SheetToGoModule.so. Its sheets have cells of one size, which
// grows with the dpi, and each pixel tells of which surface and sheet it is and
// where: see fakeCellPixel() and its like. Commands are noted and change nothing.
#pragma once

#include "modules/SheetToGoModule.h"
#include "tests/fakes/module/FakeCalls.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

struct FakeSheet {
    std::u16string title = u"Sheet";
    int32_t columns = 50;
    int32_t rows = 200;
};

struct FakeSheetControl : FakeControl<FakeSheetControl> {
    // A file named "code-N..." gives the open code N.
    std::vector<FakeSheet> sheets = {FakeSheet()};

    // In pixels at 72 dpi.
    int32_t cellWidth = 40;
    int32_t cellHeight = 20;
    int32_t rowHeaderWidth = 30;
    int32_t columnHeaderHeight = 15;
    std::vector<stg_region> hits; // that every search finds

    // On every sheet, by column and row.
    std::map<std::pair<int32_t, int32_t>, std::u16string> comments;
    // In place of the marks of `comments`, in pixels as they are to be reported.
    std::optional<std::vector<stg_region>> marks;
    // Spoils the next arrays: their count, or their address.
    std::optional<int32_t> arrayCount;
    bool nullArrays = false;

    std::u16string selection; // the text of whatever is selected

    // What the module knows.
    int32_t dpi = 72; // of the document that was asked last
    int64_t renders = 0;
};

// Pixels: the surface in the topmost four bits and the sheet below them, which
// fills over them leave as they are; then x and y modulo 4096. They are document
// pixels along the sheet, and those of the strip across it.
constexpr uint32_t fakeSheetPixel(uint32_t surface, int32_t sheet, int32_t x, int32_t y) {
    return surface << 28 | (static_cast<uint32_t>(sheet) & 0xF) << 24 |
           (static_cast<uint32_t>(x) & 0xFFF) << 12 | (static_cast<uint32_t>(y) & 0xFFF);
}
constexpr uint32_t fakeCellPixel(int32_t x, int32_t y, int32_t sheet = 0) {
    return fakeSheetPixel(1, sheet, x, y);
}
constexpr uint32_t fakeColumnHeaderPixel(int32_t x, int32_t y, int32_t sheet = 0) {
    return fakeSheetPixel(2, sheet, x, y);
}
constexpr uint32_t fakeRowHeaderPixel(int32_t x, int32_t y, int32_t sheet = 0) {
    return fakeSheetPixel(3, sheet, x, y);
}
constexpr uint32_t FAKE_BESIDE_SHEET = 0x4FFFFFFF;

inline FakeSheetControl& fakeSheet() {
    static FakeSheetControl& control =
        fakeControl<FakeSheetControl>("SheetToGoModule.so", "fake_sheet_control");
    return control;
}
