// SPDX-License-Identifier: Apache-2.0
// The spreadsheet module's checks of arguments, and engines that misbehave.

#include "tests/process/engine/EngineTest.h"
#include "tests/process/engine/SheetHost.h"

#include <cstring>

namespace lectern::test {
namespace {

constexpr std::int32_t UNTOUCHED = 0x5A5A5A5A;

class SheetTest : public EngineTest {
protected:
    void openSheets(WorkbookHandle& workbook, const std::string& contents) const {
        static int count = 0;
        const std::string path = write("book" + std::to_string(count++) + ".xlsx", contents);
        ASSERT_EQ(workbook.open(path, temporary()), MODULE_OK);
    }
    // Calls every function that takes only numbers: all must return the same code.
    void expectAllAnswer(void* doc, std::int32_t code);

    const STGFunc& stg = sheetModule();
    std::int32_t a = UNTOUCHED;
    std::int32_t b = UNTOUCHED;
    std::int32_t c = UNTOUCHED;
    std::int32_t d = UNTOUCHED;
    std::uint32_t pixels[64 * 64] = {};
    std::vector<std::uint16_t> text = std::vector<std::uint16_t>(16, 0x5A5A);
};

void SheetTest::expectAllAnswer(void* doc, std::int32_t code) {
    const std::uint8_t colour[] = {1, 2, 3};
    EXPECT_EQ(stg.stg_autofit_column(doc, 0, 0), code);
    EXPECT_EQ(stg.stg_cell_bounds(doc, 0, 0, 0, &a, &b, &c, &d), code);
    EXPECT_EQ(stg.stg_clear_selection(doc), code);
    EXPECT_EQ(stg.stg_copy_selection(doc, text.data(), 16, 0, &a), code);
    EXPECT_EQ(stg.stg_find(doc, wide("x").data(), 0, 0, 0, 100), code);
    EXPECT_EQ(stg.stg_get_column_count(doc, 0, &a), code);
    EXPECT_EQ(stg.stg_get_document_author(doc, text.data(), 32, &a), code);
    EXPECT_EQ(stg.stg_get_sheet_count(doc, &a), code);
    EXPECT_EQ(stg.stg_get_sheet_dimensions(doc, 0, &a, &b), code);
    EXPECT_EQ(stg.stg_get_sheet_title(doc, 0, text.data(), 16, &a), code);
    EXPECT_EQ(stg.stg_hide_columns(doc, 0, 0, 0), code);
    EXPECT_EQ(stg.stg_hide_rows(doc, 0, 0, 0), code);
    EXPECT_EQ(stg.stg_release_memory(doc), code);
    EXPECT_EQ(stg.stg_render_sheet(doc, 0, 0, 0), code);
    EXPECT_EQ(stg.stg_resize_column(doc, 0, 0, 1), code);
    EXPECT_EQ(stg.stg_resize_row(doc, 0, 0, 1), code);
    EXPECT_EQ(stg.stg_select_area(doc, 0, 0, 0, 9, 9), code);
    EXPECT_EQ(stg.stg_select_cell(doc, 0, 0, 0), code);
    EXPECT_EQ(stg.stg_select_column(doc, 0, 0, 0, &a), code);
    EXPECT_EQ(stg.stg_select_row(doc, 0, 0, 0, &a), code);
    EXPECT_EQ(stg.stg_set_column_offscreen_buffer(doc, 0, pixels, 4, 4), code);
    EXPECT_EQ(stg.stg_set_dpi(doc, 72), code);
    EXPECT_EQ(stg.stg_set_highlight_color(doc, colour), code);
    EXPECT_EQ(stg.stg_set_offscreen_buffer(doc, 0, pixels, 4, 4), code);
    EXPECT_EQ(stg.stg_set_row_offscreen_buffer(doc, 0, pixels, 4, 4), code);
    EXPECT_EQ(stg.stg_sort_ascending(doc, 0, 0), code);
    EXPECT_EQ(stg.stg_sort_descending(doc, 0, 0), code);
    EXPECT_EQ(stg.stg_stop_find(doc), code);
    EXPECT_EQ(stg.stg_unhide_all_columns(doc, 0), code);
    EXPECT_EQ(stg.stg_unhide_all_rows(doc, 0), code);
    EXPECT_EQ(stg.stg_unhide_columns(doc, 0, 0, 0), code);
    EXPECT_EQ(stg.stg_unhide_rows(doc, 0, 0, 0), code);
    EXPECT_EQ(stg.stg_get_cell_reference_at_location(doc, 0, 0, 0, &a, &b), code);
    EXPECT_EQ(std::vector({a, b, c, d}), std::vector(4, UNTOUCHED));
    EXPECT_EQ(text, std::vector<std::uint16_t>(16, 0x5A5A));
    const stg_region* regions = reinterpret_cast<const stg_region*>(pixels);
    EXPECT_EQ(stg.stg_get_found_regions(doc, &a, &regions), code);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(regions, nullptr);
}

TEST_F(SheetTest, EveryFunctionSurvivesANullDocument) {
    a = UNTOUCHED;
    const stg_region* regions = nullptr;
    EXPECT_EQ(stg.stg_close_file(nullptr), MODULE_BAD_ARGUMENT);
    expectAllAnswer(nullptr, MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_get_comment(nullptr, 0, 0, 0, text.data(), 16, 0, &b), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_get_comment_marks_rects(nullptr, 0, &regions, &a), MODULE_BAD_ARGUMENT);
}

TEST_F(SheetTest, PlacesThatCannotBeAreRefused) {
    WorkbookHandle workbook;
    openSheets(workbook, "name=x\n");
    EXPECT_EQ(stg.stg_set_offscreen_buffer(workbook.get(), 0, nullptr, 4, 4), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_set_offscreen_buffer(workbook.get(), 1, pixels, 4, 4), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_set_row_offscreen_buffer(workbook.get(), 0, pixels, 0, 4), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_set_column_offscreen_buffer(workbook.get(), 0, pixels, 4, -1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_set_offscreen_buffer(workbook.get(), 0, pixels, 1 << 20, 1 << 20), MODULE_TOO_LARGE);
    EXPECT_EQ(stg.stg_set_dpi(workbook.get(), 0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_set_dpi(workbook.get(), 1 << 20), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_find(workbook.get(), nullptr, 0, 0, 0, 9), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_find(workbook.get(), wide("x").data(), 0, 0, 1, 9), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_get_sheet_count(workbook.get(), nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_get_sheet_title(workbook.get(), 0, nullptr, 4, &a), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_copy_selection(workbook.get(), text.data(), 16, -1, &a), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(stg.stg_get_sheet_dimensions(workbook.get(), 2, &a, &b), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(a, UNTOUCHED);
}

TEST_F(SheetTest, ASheetIsMeasuredOnceUntilItChanges) {
    WorkbookHandle workbook;
    openSheets(workbook, "counted=yes\n");
    void* const doc = workbook.get();
    const auto times = [&](std::int32_t sheet = 0) {
        const stg_region* marks = nullptr;
        EXPECT_EQ(stg.stg_get_comment_marks_rects(doc, sheet, &marks, &c), MODULE_OK);
        EXPECT_EQ(stg.stg_get_column_count(doc, sheet, &c), MODULE_OK);
        EXPECT_EQ(stg.stg_cell_bounds(doc, sheet, -1, -1, &a, &b, &c, &d), MODULE_OK);
        EXPECT_EQ(stg.stg_get_sheet_dimensions(doc, sheet, &a, &b), MODULE_OK);
        return a - 500;
    };
    EXPECT_EQ(stg.stg_set_dpi(doc, 144), MODULE_OK);
    EXPECT_EQ(times(), 1);
    EXPECT_EQ(stg.stg_set_dpi(doc, 144), MODULE_OK);
    EXPECT_EQ(stg.stg_render_sheet(doc, 0, 0, 0), MODULE_OK);
    EXPECT_EQ(times(), 1) << "a new window of the same sheet";
    EXPECT_EQ(stg.stg_set_dpi(doc, 216), MODULE_OK);
    EXPECT_EQ(times(), 2);
    EXPECT_EQ(stg.stg_hide_rows(doc, 0, 0, 0), MODULE_OK);
    EXPECT_EQ(times(), 3);
    EXPECT_EQ(stg.stg_sort_ascending(doc, 0, 0), MODULE_OK);
    EXPECT_EQ(times(), 4);
    EXPECT_EQ(times(1), 5);
    EXPECT_EQ(times(0), 6);
}

TEST_F(SheetTest, RenderingFillsAllThreeBuffersAndNothingBeforeIt) {
    WorkbookHandle workbook;
    openSheets(workbook, "name=x\n");
    std::uint32_t rows[8] = {}, columns[8] = {};
    EXPECT_EQ(stg.stg_set_offscreen_buffer(workbook.get(), 0, pixels, 64, 64), MODULE_OK);
    EXPECT_EQ(stg.stg_set_row_offscreen_buffer(workbook.get(), 0, rows, 2, 4), MODULE_OK);
    EXPECT_EQ(stg.stg_set_column_offscreen_buffer(workbook.get(), 0, columns, 4, 2), MODULE_OK);
    EXPECT_EQ(pixels[0], 0U);
    EXPECT_EQ(stg.stg_render_sheet(workbook.get(), 1, 0, 7), MODULE_OK);
    EXPECT_EQ(pixels[0], 0xFF001007);
    EXPECT_EQ(pixels[64 * 64 - 1], 0xFF001007 + 63);
    EXPECT_EQ(rows[7], 0xFF011007 + 3);
    EXPECT_EQ(columns[7], 0xFF021007 + 1);
    // Another buffer of the same size is filled by the next rendering.
    std::uint32_t other[8] = {};
    EXPECT_EQ(stg.stg_set_row_offscreen_buffer(workbook.get(), 0, other, 2, 4), MODULE_OK);
    EXPECT_EQ(stg.stg_render_sheet(workbook.get(), 0, 0, 0), MODULE_OK);
    EXPECT_EQ(other[0], 0xFF010000);
    EXPECT_EQ(rows[0], 0xFF011007);
}

TEST_F(SheetTest, ABufferFreedBeforeTheNextOneIsRefusedIsNotWrittenTo) {
    WorkbookHandle workbook;
    openSheets(workbook, "surface=second:15\n");
    std::vector<std::uint32_t> cells;
    for (std::int32_t side = 4; side < 10; side++) {
        cells = std::vector<std::uint32_t>(static_cast<std::size_t>(side) * side, 7);
        const bool refused = side % 2 != 0;
        EXPECT_EQ(stg.stg_set_offscreen_buffer(workbook.get(), 0, cells.data(), side, side),
                  refused ? MODULE_TOO_LARGE : MODULE_OK);
        EXPECT_EQ(stg.stg_render_sheet(workbook.get(), 0, 0, 0), MODULE_OK);
        EXPECT_EQ(cells[0] == 7, refused);
    }
}

TEST_F(SheetTest, ArraysHoldUntilTheNextCallAndTheEndOfTheSearch) {
    WorkbookHandle workbook;
    openSheets(workbook, "name=x\n");
    const stg_region* regions = nullptr;
    EXPECT_EQ(stg.stg_find(workbook.get(), wide("abc").data(), 0, 0, 0, 9), MODULE_OK);
    EXPECT_EQ(stg.stg_get_found_regions(workbook.get(), &a, &regions), MODULE_OK);
    ASSERT_EQ(a, 3);
    EXPECT_EQ(regions[2].y, 40);
    const stg_region* marks = nullptr;
    EXPECT_EQ(stg.stg_get_comment_marks_rects(workbook.get(), 0, &marks, &b), MODULE_OK);
    EXPECT_EQ(b, 5);
    EXPECT_EQ(regions[1].y, 20);
    EXPECT_EQ(stg.stg_stop_find(workbook.get()), MODULE_OK);
    EXPECT_EQ(stg.stg_get_found_regions(workbook.get(), &a, &regions), MODULE_OK);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(regions, nullptr);
}

TEST_F(SheetTest, TextsAreMeasuredCutAndReadFromTheMiddle) {
    WorkbookHandle workbook;
    openSheets(workbook, "name=x\n");
    EXPECT_EQ(stg.stg_get_comment(workbook.get(), 0, 0, 25, text.data(), 3, 0, &a), MODULE_OK);
    EXPECT_EQ(a, 4);
    EXPECT_EQ(textOf(text), u"To");
    EXPECT_EQ(stg.stg_get_comment(workbook.get(), 0, 0, 25, text.data(), 16, 2, &a), MODULE_OK);
    EXPECT_EQ(a, 4);
    EXPECT_EQ(textOf(text), u"ld");
    EXPECT_EQ(stg.stg_get_comment(workbook.get(), 0, 0, 25, text.data(), 16, 99, &a), MODULE_OK);
    EXPECT_EQ(a, 4);
    EXPECT_EQ(textOf(text), u"");
    EXPECT_EQ(stg.stg_get_comment(workbook.get(), 0, 60, 25, text.data(), 16, 0, &a), MODULE_NOTHING_THERE);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(stg.stg_get_sheet_title(workbook.get(), 1, text.data(), 16, &a), MODULE_OK);
    EXPECT_EQ(textOf(text), u"Two");
    // The capacity of this function is in bytes.
    EXPECT_EQ(stg.stg_get_document_author(workbook.get(), text.data(), 10, &a), MODULE_OK);
    EXPECT_EQ(a, 8);
    EXPECT_EQ(textOf(text), u"Some");
}

TEST_F(SheetTest, WhatTheDocumentRefusesIsTold) {
    WorkbookHandle workbook;
    openSheets(workbook, "name=x\n");
    EXPECT_EQ(stg.stg_sort_ascending(workbook.get(), 1, 0), MODULE_REFUSED);
    EXPECT_EQ(stg.stg_sort_ascending(workbook.get(), 0, 0), MODULE_OK);
}

TEST_F(SheetTest, AHeaderCornerThatCannotBeIsNotBelieved) {
    WorkbookHandle workbook;
    openSheets(workbook, "lie=yes\n");
    EXPECT_EQ(stg.stg_cell_bounds(workbook.get(), 0, -1, -1, &a, &b, &c, &d), MODULE_FAILED);
    EXPECT_EQ(a, UNTOUCHED);
}

TEST_F(SheetTest, ANumberOfSheetsThatCannotBeIsNotBelieved) {
    WorkbookHandle workbook;
    openSheets(workbook, "lie=yes\n");
    EXPECT_EQ(stg.stg_get_sheet_count(workbook.get(), &a), MODULE_FAILED);
    EXPECT_EQ(a, UNTOUCHED);
}

TEST_F(SheetTest, CodesThatOnlyTheConnectionCanTellAreNotBelieved) {
    for (const char* code : {"9", "10", "11", "17", "-1", "2147483647"}) {
        WorkbookHandle workbook;
        openSheets(workbook, std::string("sort=code:") + code + "\n");
        EXPECT_EQ(stg.stg_sort_ascending(workbook.get(), 0, 0), MODULE_FAILED) << code;
    }
}

TEST_F(SheetTest, AnEngineThatHangsCostsItsWorkbookAlone) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "300");
    WorkbookHandle lost;
    WorkbookHandle other;
    openSheets(lost, "render=hang\n");
    openSheets(other, "name=x\n");
    EXPECT_EQ(stg.stg_set_offscreen_buffer(lost.get(), 0, pixels, 4, 4), MODULE_OK);
    EXPECT_EQ(stg.stg_render_sheet(lost.get(), 0, 0, 0), MODULE_TIMED_OUT);
    EXPECT_EQ(stg.stg_get_sheet_count(lost.get(), &a), MODULE_OK) << "in another engine";
    EXPECT_EQ(stg.stg_render_sheet(lost.get(), 0, 0, 0), MODULE_TIMED_OUT);
    a = UNTOUCHED;
    expectAllAnswer(lost.get(), MODULE_ENGINE_LOST);
    EXPECT_EQ(stg.stg_get_sheet_count(other.get(), &a), MODULE_OK);
    EXPECT_EQ(lost.close(), MODULE_OK);
}

TEST_F(SheetTest, AnEngineThatCrashesWhileItSortsLeavesTheFileAlone) {
    WorkbookHandle workbook;
    openSheets(workbook, "sort=crash\n");
    EXPECT_EQ(stg.stg_sort_ascending(workbook.get(), 0, 0), MODULE_ENGINE_LOST);
    EXPECT_EQ(stg.stg_render_sheet(workbook.get(), 0, 0, 0), MODULE_ENGINE_LOST);
}

TEST_F(SheetTest, PasswordsReachTheEngine) {
    const std::string path = write("locked.xlsx", "password=sesame\n");
    WorkbookHandle workbook;
    EXPECT_EQ(workbook.open(path, temporary()), MODULE_NEEDS_PASSWORD);
    EXPECT_EQ(workbook.open(path, temporary(), "simsim"), MODULE_WRONG_PASSWORD);
    EXPECT_EQ(workbook.get(), nullptr);
    EXPECT_EQ(workbook.open(path, temporary(), "sesame"), MODULE_OK);
}

} // namespace
} // namespace lectern::test
