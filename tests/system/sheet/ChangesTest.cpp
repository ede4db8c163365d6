// SPDX-License-Identifier: Apache-2.0
// Sorting, hiding and resizing, and refused changes.

#include "tests/system/sheet/WorkbookView.h"
#include "tests/system/support/Python.h"
#include "tests/system/support/Subprocess.h"

#include <algorithm>

namespace lectern::test {
namespace {

const STGFunc& STG = sheetModule();

using Rows = std::vector<std::string>;

// A workbook of one sheet with these rows.
class Plain {
public:
    Plain(const std::string& name, std::vector<std::string> rows) : mView(path(name, std::move(rows))) {
        mView.show(0, 100, 100, 144);
    }
    WorkbookView* operator->() { return &mView; }
    void* get() const { return mView.get(); }

private:
    static std::string path(const std::string& name, std::vector<std::string> rows) {
        rows.insert(rows.begin(), {"plain", "OUT"});
        return generated(name, rows);
    }
    WorkbookView mView;
};

TEST(SortTest, MovesWholeRowsAndKeepsAHeader) {
    Plain sheet("fares.xlsx", {"Boat,Fare", "Tern,30", "Dunlin,10", "Egret,20"});
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 1), MODULE_OK);
    EXPECT_EQ(sheet->column(0), (Rows{"Boat", "Dunlin", "Egret", "Tern"}));
    EXPECT_EQ(STG.stg_sort_descending(sheet.get(), 0, 1), MODULE_OK);
    EXPECT_EQ(sheet->column(1), (Rows{"Fare", "30", "20", "10"}));
    // Sort also by a column of texts; another column shows that there is a header.
    EXPECT_EQ(STG.stg_sort_descending(sheet.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(sheet->column(0), (Rows{"Boat", "Tern", "Egret", "Dunlin"}));
}

TEST(SortTest, SortsAFirstRowThatIsNoHeader) {
    Plain numbers("numbers.xlsx", {"30,c", "10,a", "20,b"});
    EXPECT_EQ(STG.stg_sort_ascending(numbers.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(numbers->column(1), (Rows{"a", "b", "c"}));
    Plain words("words.xlsx", {"pear,x", "apple,y", "fig,z"});
    EXPECT_EQ(STG.stg_sort_ascending(words.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(words->column(1), (Rows{"y", "z", "x"}));
}

TEST(SortTest, KeepsAHeaderBelowATitle) {
    Plain sheet("titled.xlsx", {"Fares", ",", "Boat,Fare", "Tern,30", "Dunlin,10", "Egret,20"});
    EXPECT_EQ(STG.stg_sort_descending(sheet.get(), 0, 1), MODULE_OK);
    EXPECT_EQ(sheet->column(0), (Rows{"Fares", "", "Boat", "Tern", "Egret", "Dunlin"}));
}

TEST(SortTest, DescendingIsAscendingTurnedRound) {
    // Sorted by the second column, a row that looks like a header comes first.
    Plain sheet("turned.xlsx", {"3,c", "t,a", "1,b"});
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 1), MODULE_OK);
    EXPECT_EQ(sheet->column(1), (Rows{"a", "b", "c"}));
    EXPECT_EQ(STG.stg_sort_descending(sheet.get(), 0, 1), MODULE_OK);
    EXPECT_EQ(sheet->column(1), (Rows{"c", "b", "a"}));
}

TEST(SortTest, SortsAFilteredListBelowItsButtons) {
    WorkbookView view(generated("gaps.xlsx", {"gaps", "OUT"}));
    view.show(0, 100, 100, 144);
    EXPECT_EQ(STG.stg_sort_ascending(view.get(), 0, 2), MODULE_OK);
    const module_rect from = view.place({2, 0});
    const module_rect to = view.place({2, 11});
    EXPECT_EQ(STG.stg_select_area(view.get(), 0, from.x, from.y, 1, to.y + 1), MODULE_OK);
    EXPECT_EQ(linesOf(view.copy()).at(2), "first");
    EXPECT_EQ(linesOf(view.copy()).at(4), "Boat");
}

TEST(SortTest, FormulasStayWithTheirRows) {
    Plain sheet("formulas.xlsx", {"3,=A1*2", "1,=A2*2", "2,=A3*2"});
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(sheet->column(1), (Rows{"2", "4", "6"}));
}

TEST(SortTest, SortsWhatIsSortedAlready) {
    Plain sheet("sorted.xlsx", {"1", "2", "3"});
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(sheet->column(0), (Rows{"1", "2", "3"}));
}

TEST(SortTest, RefusesWhatTheDocumentDoesNotAllowAndChangesNothing) {
    WorkbookView view(sample("tour.xlsx"));
    view.show(4, 100, 100, 144); // protected
    EXPECT_EQ(STG.stg_sort_ascending(view.get(), 4, 0), MODULE_REFUSED);
    EXPECT_EQ(view.column(0), (Rows{"30", "10", "20"}));
    WorkbookView merged(generated("gaps.xlsx", {"gaps", "OUT"}));
    merged.show(1, 100, 100, 144);
    EXPECT_EQ(STG.stg_sort_ascending(merged.get(), 1, 0), MODULE_REFUSED);
    EXPECT_EQ(merged.column(0), (Rows{"3", "1", "2"}));
}

TEST(SortTest, RefusesColumnsThatAreNotThere) {
    Plain sheet("small.xlsx", {"2", "1"});
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, -1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 21), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 1 << 20), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(STG.stg_sort_ascending(sheet.get(), 0, 5), MODULE_NOTHING_THERE);
    EXPECT_EQ(sheet->column(0), (Rows{"2", "1"}));
}

TEST(SortTest, CommentsGoWithTheirCells) {
    const std::string path = generated("noted.xlsx", {"noted", "OUT"});
    WorkbookView view(path);
    view.show(0, 100, 100, 144);
    EXPECT_EQ(view.comment({0, 0}), "three");
    EXPECT_EQ(STG.stg_sort_ascending(view.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(view.column(0), (Rows{"1", "2", "3"}));
    EXPECT_EQ(view.comment({0, 2}), "three");
    ASSERT_EQ(view.commentMarks().size(), 1U);
    EXPECT_EQ(view.commentMarks()[0].y, view.place({0, 2}).y);
}

class TracksTest : public testing::Test {
protected:
    TracksTest() : mSheet("tracks.xlsx", {"1,2,3,4,5,6", "7,8"}), mBefore(mSheet->dimensions()) {}
    std::int32_t x(std::int32_t column) { return mSheet->place({column, 0}).x + 1; }
    std::int32_t y(std::int32_t row) { return mSheet->place({0, row}).y + 1; }

    Plain mSheet;
    std::pair<std::int32_t, std::int32_t> mBefore;
};

TEST_F(TracksTest, HidingAndUnhidingAtTheSamePlaceIsNoChange) {
    const std::int32_t first = x(1);
    const std::int32_t last = x(2);
    const std::int32_t width = mSheet->bounds(first, 0).width + mSheet->bounds(last, 0).width;
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, first, last), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions().first, mBefore.first - width);
    EXPECT_EQ(mSheet->cellAt(first, 0).column, 3);
    EXPECT_EQ(mSheet->visibleColumns(3), (std::vector<std::int32_t>{0, 3, 4}));
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, first, first), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions(), mBefore);

    const std::int32_t row = y(3);
    EXPECT_EQ(STG.stg_hide_rows(mSheet.get(), 0, row, row), MODULE_OK);
    EXPECT_EQ(mSheet->visibleRows(5), (std::vector<std::int32_t>{0, 1, 2, 4, 5}));
    EXPECT_EQ(STG.stg_unhide_rows(mSheet.get(), 0, row, row), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions(), mBefore);
}

TEST_F(TracksTest, WhatWasHiddenAtAPlaceComesBackAndNotWhatIsHiddenBesideIt) {
    const std::int32_t third = x(2);
    const std::int32_t last = x(20);
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, x(4), x(4)), MODULE_OK);
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, third, third), MODULE_OK);
    EXPECT_EQ(mSheet->visibleColumns(4), (std::vector<std::int32_t>{0, 1, 3, 5}));
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, third, third), MODULE_OK);
    EXPECT_EQ(mSheet->visibleColumns(5), (std::vector<std::int32_t>{0, 1, 2, 3, 5}));
    // Without hidden columns before it, the hidden ones after it are shown.
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, x(3), x(3)), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions(), mBefore);
    // At the sheet's end there is no column that they could be before.
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, x(19), x(20)), MODULE_OK);
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, x(17), x(17)), MODULE_OK);
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, last, last), MODULE_OK);
    EXPECT_EQ(mSheet->visibleColumns(30).size(), 20U);
    EXPECT_EQ(mSheet->visibleColumns(30).back(), 20);
}

TEST_F(TracksTest, WhatWasHiddenLastComesBackWithoutItsHiddenNeighbours) {
    const std::int32_t second = x(1);
    const std::int32_t third = x(2);
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, second, third), MODULE_OK);
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, second, second), MODULE_OK);
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, x(0), second), MODULE_OK);
    EXPECT_EQ(mSheet->visibleColumns(2), (std::vector<std::int32_t>{5, 6}));
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, 0, second), MODULE_OK);
    EXPECT_EQ(mSheet->visibleColumns(3), (std::vector<std::int32_t>{0, 4, 5}));
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, x(4), x(4)), MODULE_OK);
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, second, second), MODULE_OK);
    EXPECT_EQ(mSheet->visibleColumns(3), (std::vector<std::int32_t>{0, 4, 5}));
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, second, second), MODULE_OK);
    EXPECT_EQ(STG.stg_unhide_columns(mSheet.get(), 0, second, second), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions(), mBefore);
}

TEST(UnhideTest, LeavesAColumnHiddenThatTheFileHides) {
    WorkbookView view(generated("gaps.xlsx", {"gaps", "OUT"}));
    view.show(0, 100, 100, 144);
    const std::int32_t x = view.place({7, 0}).x; // behind column 6, which is hidden
    EXPECT_EQ(STG.stg_hide_columns(view.get(), 0, x, x), MODULE_OK);
    EXPECT_EQ(STG.stg_unhide_columns(view.get(), 0, x, x), MODULE_OK);
    EXPECT_EQ(view.visibleColumns(8), (std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 7, 8}));
    EXPECT_EQ(STG.stg_unhide_columns(view.get(), 0, x, x), MODULE_OK);
    EXPECT_EQ(view.visibleColumns(8), (std::vector<std::int32_t>{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(TracksTest, AllHiddenOnesComeBackAtOnce) {
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, x(0), x(0)), MODULE_OK);
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, x(4), x(20)), MODULE_OK);
    EXPECT_EQ(STG.stg_hide_rows(mSheet.get(), 0, y(1), y(30)), MODULE_OK);
    EXPECT_EQ(mSheet->visibleColumns(30), (std::vector<std::int32_t>{1, 2, 3}));
    EXPECT_EQ(STG.stg_unhide_all_columns(mSheet.get(), 0), MODULE_OK);
    EXPECT_EQ(STG.stg_unhide_all_rows(mSheet.get(), 0), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions(), mBefore);
}

TEST_F(TracksTest, ASheetWithoutAnyColumnIsSurvived) {
    EXPECT_EQ(STG.stg_hide_columns(mSheet.get(), 0, 0, INT32_MAX), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions().first, 0);
    mSheet->render(0, 0);
    EXPECT_EQ(mSheet->cellAt(5, 0), (CellReference{0, 0}));
    EXPECT_TRUE(mSheet->find("1").empty());
    EXPECT_EQ(STG.stg_unhide_all_columns(mSheet.get(), 0), MODULE_OK);
    EXPECT_EQ(mSheet->dimensions(), mBefore);
}

TEST_F(TracksTest, ResizingChangesByJustSoManyPixels) {
    for (const std::int32_t dpi : {72, 126, 251}) {
        mSheet->show(0, 100, 100, dpi);
        for (const std::int32_t change : {1, 37, -20}) {
            const module_rect before = mSheet->bounds(x(2), y(3));
            const std::int32_t next = mSheet->place({3, 0}).x;
            EXPECT_EQ(STG.stg_resize_column(mSheet.get(), 0, x(2), change), MODULE_OK);
            EXPECT_EQ(STG.stg_resize_row(mSheet.get(), 0, y(3), change / 4), MODULE_OK);
            const module_rect after = mSheet->bounds(x(2), y(3));
            EXPECT_EQ(after.width, before.width + change) << dpi;
            EXPECT_EQ(after.height, before.height + change / 4) << dpi;
            EXPECT_EQ(mSheet->place({3, 0}).x, next + change);
        }
    }
}

TEST_F(TracksTest, ResizingToNothingOrTooMuchIsRefused) {
    const module_rect before = mSheet->bounds(x(2), y(3));
    for (const std::int32_t change : {-before.width, -100000, 100000, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(STG.stg_resize_column(mSheet.get(), 0, x(2), change), MODULE_BAD_ARGUMENT) << change;
    }
    for (const std::int32_t change : {-before.height, -100000, 100000, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(STG.stg_resize_row(mSheet.get(), 0, y(3), change), MODULE_BAD_ARGUMENT) << change;
    }
    EXPECT_EQ(mSheet->dimensions(), mBefore);
}

TEST_F(TracksTest, AColumnFitsItsTexts) {
    EXPECT_EQ(STG.stg_autofit_column(mSheet.get(), 0, x(0)), MODULE_OK);
    EXPECT_LT(mSheet->dimensions().first, mBefore.first);
}

TEST(SheetNumbersTest, OnesThatAreNotThereAreRefusedEverywhere) {
    WorkbookView view(sample("tour.xlsx"));
    view.show(0, 100, 100, 72);
    for (const std::int32_t sheet : {-1, 5, INT32_MAX, INT32_MIN}) {
        std::int32_t a = 77, b = 77, c = 77, d = 77;
        std::uint16_t text[8];
        const stg_region* regions = nullptr;
        EXPECT_EQ(STG.stg_render_sheet(view.get(), sheet, 0, 0), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_get_column_count(view.get(), sheet, &a), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_get_sheet_dimensions(view.get(), sheet, &a, &b), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_get_sheet_title(view.get(), sheet, text, 8, &a), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_cell_bounds(view.get(), sheet, 0, 0, &a, &b, &c, &d), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_get_cell_reference_at_location(view.get(), sheet, 0, 0, &a, &b),
                  MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_find(view.get(), wide("x").data(), sheet, 0, sheet, 9), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_select_area(view.get(), sheet, 0, 0, 9, 9), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_select_column(view.get(), sheet, 0, 9, &a), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_select_row(view.get(), sheet, 0, 9, &a), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_sort_ascending(view.get(), sheet, 0), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_hide_rows(view.get(), sheet, 0, 9), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_unhide_all_columns(view.get(), sheet), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_resize_row(view.get(), sheet, 0, 9), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(STG.stg_get_comment_marks_rects(view.get(), sheet, &regions, &c), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(std::vector({a, b, d}), (std::vector{77, 77, 77}));
        EXPECT_EQ(c, 0);
    }
    EXPECT_EQ(view.titles().size(), 5U);
}

TEST(FileTest, NoChangeReachesTheFile) {
    const std::string path = written("kept.xlsx", readFile(sample("tour.xlsx")));
    {
        WorkbookView view(path);
        view.show(1, 100, 100, 144);
        EXPECT_EQ(STG.stg_sort_descending(view.get(), 1, 2), MODULE_OK);
        EXPECT_EQ(STG.stg_hide_columns(view.get(), 1, 10, 10), MODULE_OK);
        EXPECT_EQ(STG.stg_resize_row(view.get(), 1, 10, 10), MODULE_OK);
        view.render(0, 0);
    }
    EXPECT_EQ(readFile(path), readFile(sample("tour.xlsx")));
}

} // namespace
} // namespace lectern::test
