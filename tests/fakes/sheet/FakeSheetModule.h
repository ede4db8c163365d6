// SPDX-License-Identifier: Apache-2.0
// The control side of the fake sheet module, for tests in the same process.
//
// The fake is a real SheetToGoModule.so. All cells of its sheets have one size,
// which grows with the dpi, and each pixel encodes its surface, sheet and
// position: see fakeCellPixel() and similar functions. Commands are recorded
// and change nothing.
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
    // The open of a file named "code-N..." returns N.
    std::vector<FakeSheet> sheets = {FakeSheet()};

    // In pixels at 72 dpi.
    int32_t cellWidth = 40;
    int32_t cellHeight = 20;
    int32_t rowHeaderWidth = 30;
    int32_t columnHeaderHeight = 15;
    std::vector<stg_region> hits; // found by every search
    // Found instead by searches of a sheet, unless there are none at all.
    std::map<int32_t, std::vector<stg_region>> hitsOfSheets;

    // Comments by column and row, the same on every sheet.
    std::map<std::pair<int32_t, int32_t>, std::u16string> comments;
    // Replaces the marks of `comments`; in pixels, reported unchanged.
    std::optional<std::vector<stg_region>> marks;
    // Falsify the count or the address of the next arrays.
    std::optional<int32_t> arrayCount;
    bool nullArrays = false;

    std::u16string selection; // text of any selection

    // What cells show, and their formulas, by column and row; the same on every sheet.
    std::map<std::pair<int32_t, int32_t>, std::u16string> texts;
    std::map<std::pair<int32_t, int32_t>, std::u16string> formulas;
    // Merged areas: the first column and row, and how many of each.
    std::vector<module_rect> merged;
    std::optional<module_rect> drawing; // document pixels, instead of any cell

    // The module's state.
    int32_t dpi = 72; // of the document used last
    int64_t renders = 0;
};

// Pixel values: the surface in the highest four bits and the sheet in the next
// four, both unchanged by tints, then x and y modulo 4096. They are document
// pixels along the sheet and strip pixels across it.
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
