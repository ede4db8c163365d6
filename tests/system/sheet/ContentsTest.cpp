// SPDX-License-Identifier: Apache-2.0
// The contents of the sheets, compared with what an independent reader finds in
// the file.

#include "tests/system/sheet/WorkbookView.h"
#include "tests/system/support/Python.h"

#include <algorithm>
#include <set>

namespace lectern::test {
namespace {

// The same workbook in both formats.
class ContentsTest : public testing::TestWithParam<const char*> {
protected:
    ContentsTest() : mView(sample(GetParam())) {}
    // The reader supports only one of the formats.
    static std::string readable() { return sample("tour.xlsx"); }

    WorkbookView mView;
};

INSTANTIATE_TEST_SUITE_P(Formats, ContentsTest, testing::Values("tour.xlsx", "tour.xls"),
                         [](const auto& format) { return std::string(format.param).substr(5); });

TEST_P(ContentsTest, ListsTheSheetsThatAreNotHidden) {
    EXPECT_EQ(mView.titles(), readWorkbook({"sheets", readable()}));
}

TEST_P(ContentsTest, LeavesHiddenColumnsAndRowsOut) {
    mView.show(1, 100, 100, 126);
    std::set<std::string> columns;
    for (const std::int32_t column : mView.visibleColumns(100)) {
        columns.insert(nameOf({column, 0}));
    }
    const auto hiddenColumns = readWorkbook({"columns", readable(), "Moorings"});
    ASSERT_EQ(hiddenColumns, std::vector<std::string>{"H"});
    EXPECT_EQ(columns.size(), 20U);
    EXPECT_EQ(columns.count("H1"), 0U);

    const std::vector<std::int32_t> rows = mView.visibleRows(1000);
    const auto hiddenRows = readWorkbook({"rows", readable(), "Moorings"});
    ASSERT_FALSE(hiddenRows.empty());
    EXPECT_EQ(rows.size(), 51 - hiddenRows.size());
    for (const std::string& row : hiddenRows) {
        EXPECT_EQ(std::count(rows.begin(), rows.end(), std::stoi(row) - 1), 0) << row;
    }
}

TEST_P(ContentsTest, TellsCommentsWhereTheyAre) {
    for (const auto& [sheet, name] : {std::pair(0, "Passengers"), std::pair(2, "Voices")}) {
        mView.show(sheet, 100, 100, 97);
        std::vector<std::string> comments;
        for (const stg_region& mark : mView.commentMarks()) {
            const CellReference cell = mView.cellAt(mark.x, mark.y);
            comments.push_back(nameOf(cell) + "\t" + mView.comment(cell));
        }
        EXPECT_EQ(comments, readWorkbook({"comments", readable(), name}));
    }
}

TEST_P(ContentsTest, MarksAMergedCommentWholeAndTellsItAnywhereInIt) {
    mView.show(2, 100, 100, 72);
    const std::vector<stg_region> marks = mView.commentMarks();
    ASSERT_EQ(marks.size(), 1U);
    const module_rect first = mView.place({2, 1});
    const module_rect last = mView.place({4, 5});
    EXPECT_EQ(marks[0].width, last.x + last.width - first.x);
    EXPECT_EQ(marks[0].height, last.y + last.height - first.y);
    EXPECT_EQ(mView.comment({4, 5}), mView.comment({2, 1}));
}

TEST_P(ContentsTest, TellsNothingWhereThereIsNoComment) {
    mView.show(0, 100, 100, 72);
    std::uint16_t text[] = {7, 7};
    std::int32_t length = 7;
    EXPECT_NE(sheetModule().stg_get_comment(mView.get(), 0, 0, 0, text, 2, 0, &length), MODULE_OK);
    EXPECT_EQ(text[0], 0);
    EXPECT_EQ(length, 0);
}

TEST_P(ContentsTest, FindsTheCellsThatShowAText) {
    mView.show(1, 100, 100, 126);
    for (const char* word : {"b0", "B", "berth", "nowhere"}) {
        std::vector<std::string> cells;
        for (const stg_region& hit : mView.find(word)) {
            cells.push_back(nameOf(mView.cellAt(hit.x, hit.y)));
        }
        std::vector<std::string> expected = readWorkbook({"hits", readable(), "Moorings", word});
        // Rows 5 and 6 are hidden.
        std::erase_if(expected, [](const std::string& cell) { return cell == "A5" || cell == "A6"; });
        EXPECT_EQ(cells, expected) << word;
    }
}

TEST_P(ContentsTest, FindsNumbersAndDaysAsTheyAreShown) {
    mView.show(1, 100, 100, 126);
    EXPECT_EQ(mView.find("2019-01-15").size(), 1U);
    EXPECT_EQ(mView.find("43480").size(), 0U); // the number stored for that day
    EXPECT_EQ(mView.find("100%").size(), 4U);
    mView.show(0, 100, 100, 126);
    EXPECT_EQ(mView.find("134,832").size(), 1U); // the result of a formula
}

TEST_P(ContentsTest, FindsAMergedAreaOnceAndWhole) {
    mView.show(2, 100, 100, 72);
    const std::vector<stg_region> hits = mView.find("fifteen");
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].width, mView.commentMarks().at(0).width);
    EXPECT_EQ(hits[0].height, mView.commentMarks().at(0).height);
}

TEST_P(ContentsTest, HitsFollowTheZoomAndEndWithTheSearch) {
    mView.show(1, 100, 100, 72);
    const std::vector<stg_region> before = mView.find("b1");
    ASSERT_EQ(before.size(), 10U);
    mView.show(1, 100, 100, 144);
    const std::vector<stg_region> after = mView.regions();
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); i++) {
        const module_rect cell = mView.bounds(after[i].x, after[i].y);
        EXPECT_EQ(cell.y, after[i].y);
        EXPECT_EQ(cell.width, after[i].width);
        EXPECT_GT(after[i].width, before[i].width);
    }
    EXPECT_EQ(sheetModule().stg_stop_find(mView.get()), MODULE_OK);
    EXPECT_TRUE(mView.regions().empty());
}

TEST_P(ContentsTest, CopiesTheSelectionAsText) {
    mView.show(1, 100, 100, 72);
    const module_rect last = mView.place({3, 2});
    EXPECT_EQ(sheetModule().stg_select_area(mView.get(), 1, 0, 0, last.x + 1, last.y + 1), MODULE_OK);
    EXPECT_EQ(mView.copy(), "Berth\tSince\tLength (m)\tFee\n"
                            "B01\t2019-01-15\t4.5\t120.50 \u20AC\n"
                            "B02\t2019-03-09\t8.0\t390.50 \u20AC");
    EXPECT_EQ(mView.column(0), readWorkbook({"column", readable(), "Moorings", "A"}));
}

class CopyTest : public testing::Test {
protected:
    CopyTest() : mView(generated("gaps.xlsx", {"gaps", "OUT"})) { mView.show(0, 100, 100, 72); }
    std::string copied(CellReference first, CellReference last) {
        const module_rect from = mView.place(first);
        const module_rect to = mView.place(last);
        EXPECT_EQ(sheetModule().stg_select_area(mView.get(), 0, from.x, from.y, to.x + 1 - from.x,
                                                to.y + 1 - from.y),
                  MODULE_OK);
        return mView.copy();
    }

    WorkbookView mView;
};

TEST_F(CopyTest, KeepsEmptyRowsAndColumnsBeforeTheFirstText) {
    EXPECT_EQ(copied({1, 1}, {2, 2}), "\t\n\tfirst");
    EXPECT_EQ(copied({0, 0}, {1, 3}), "");
}

TEST_F(CopyTest, EndsWithTheLastText) {
    EXPECT_EQ(copied({2, 10}, {20, 50}), "4\n5");
}

TEST_F(CopyTest, LeavesOutTheRowsThatAFilterHides) {
    EXPECT_EQ(copied({2, 4}, {2, 9}), "Boat\nTern\nTern again\n4");
}

TEST_F(CopyTest, HasTheResultsOfAnArrayFormulaThatItCuts) {
    EXPECT_EQ(copied({2, 9}, {2, 10}), "4\n4");
}

TEST_F(CopyTest, HasTheTextOfAMergedAreaThatBeginsInAHiddenColumn) {
    EXPECT_EQ(copied({5, 2}, {8, 2}), "\tmerged");
    EXPECT_EQ(copied({7, 2}, {8, 2}), "merged");
}

// Reading a million cells would take longer than a call may.
TEST(LargeCopyTest, EndsWithTheRowThatMakesItLongerThanAMillionCharacters) {
    WorkbookView view(generated("wordy.xlsx", {"wordy", "OUT"}));
    view.show(0, 100, 100, 72);
    EXPECT_EQ(view.column(0), std::vector<std::string>(53, std::string(20000, 'w')));
}

TEST_P(ContentsTest, CutsACopyAtTheCapacity) {
    mView.show(1, 100, 100, 72);
    EXPECT_EQ(sheetModule().stg_select_cell(mView.get(), 1, 1, 1), MODULE_OK);
    ASSERT_EQ(mView.copy(), "Berth");
    std::uint16_t text[] = {9, 9, 9, 9, 9};
    std::int32_t length = 0;
    EXPECT_EQ(sheetModule().stg_copy_selection(mView.get(), text, 4, 0, &length), MODULE_OK);
    EXPECT_EQ(length, 5);
    EXPECT_EQ(std::u16string(text, text + 5), (std::u16string{'B', 'e', 'r', 0, 9}));
    EXPECT_EQ(sheetModule().stg_copy_selection(mView.get(), text, 4, 3, &length), MODULE_OK);
    EXPECT_EQ(std::u16string(text, text + 3), (std::u16string{'t', 'h', 0}));
    EXPECT_EQ(sheetModule().stg_clear_selection(mView.get()), MODULE_OK);
    EXPECT_NE(sheetModule().stg_copy_selection(mView.get(), text, 4, 0, &length), MODULE_OK);
}

TEST_P(ContentsTest, ARightToLeftSheetReadsFromTheLeft) {
    mView.show(3, 400, 200, 144);
    const std::vector<stg_region> boat = mView.find("\u05E1\u05D9\u05E8\u05D4");
    ASSERT_EQ(boat.size(), 1U);
    EXPECT_EQ(boat[0].x, 0);
    mView.render(0, 0);
    const module_rect empty = mView.place({2, 1});
    int ink = 0;
    for (std::int32_t x = 0; x < empty.x; x++) {
        for (std::int32_t y = 2; y < 60; y++) {
            ink += (mView.cells().at(x, y) & 0xFF) < 0x80 ? 1 : 0;
        }
    }
    EXPECT_GT(ink, 50);
}

TEST_P(ContentsTest, TellsItsProperties) {
    std::uint16_t text[64];
    std::int32_t length = 0;
    const auto told = [&](auto call) {
        EXPECT_EQ(call(mView.get(), text, static_cast<std::int32_t>(sizeof text), &length), MODULE_OK);
        return std::string(text, text + length);
    };
    EXPECT_EQ(told(sheetModule().stg_get_document_name), "The Year of the Harbour");
    EXPECT_EQ(told(sheetModule().stg_get_document_author), "The Lectern makers");
    EXPECT_EQ(told(sheetModule().stg_get_document_description),
              "A workbook of everything that a workbook is made of.");
    time_t time = 0;
    EXPECT_EQ(sheetModule().stg_get_document_creation_date(mView.get(), &time), MODULE_OK);
    EXPECT_EQ(time, 1767601800);
    EXPECT_EQ(sheetModule().stg_get_document_last_saved_date(mView.get(), &time), MODULE_OK);
    EXPECT_GT(time, 1767601800);
}

} // namespace
} // namespace lectern::test
