// SPDX-License-Identifier: Apache-2.0
// What is laid over the picture: selections and hits.

#include "tests/system/sheet/WorkbookView.h"

namespace lectern::test {
namespace {

constexpr std::uint32_t kYellow = 0xFFFFF568;
constexpr std::uint32_t kBlue = 0xFF80C0FF;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kHeader = 0xFFCCCCCC;

class MarksTest : public testing::Test {
protected:
    MarksTest() : mView(sample("tour.xlsx")) {
        mView.show(4, 500, 300, 144);
        mView.highlight(0xFF, 0xF5, 0x68);
    }
    // A pixel inside a cell, near its left top, where nothing is written.
    std::uint32_t cell(CellReference reference) const {
        const module_rect at = mView.place(reference);
        return mView.cells().at(at.x + 3, at.y + 2);
    }
    std::uint32_t columnHeader(std::int32_t column) const {
        return mView.columnHeaders().at(mView.place({column, 0}).x + 2, 2);
    }
    std::uint32_t rowHeader(std::int32_t row) const {
        return mView.rowHeaders().at(2, mView.place({0, row}).y + 2);
    }
    std::int32_t selectColumns(std::int32_t first, std::int32_t last) const {
        std::int32_t count = -1;
        EXPECT_EQ(sheetModule().stg_select_column(mView.get(), 4, mView.place({first, 0}).x + 1,
                                                  mView.place({last, 0}).x + 1, &count),
                  MODULE_OK);
        return count;
    }

    WorkbookView mView;
};

TEST_F(MarksTest, ASelectedColumnTakesTheColourWithItsHeader) {
    EXPECT_EQ(selectColumns(1, 1), 1);
    mView.render(0, 0);
    EXPECT_EQ(cell({0, 1}), kWhite);
    EXPECT_EQ(cell({1, 1}), kYellow);
    EXPECT_EQ(cell({1, 7}), kYellow);
    EXPECT_EQ(cell({2, 1}), kWhite);
    EXPECT_EQ(columnHeader(0), kHeader);
    EXPECT_EQ(columnHeader(1), 0xFFCCC453);
    EXPECT_EQ(rowHeader(1), kHeader);
}

TEST_F(MarksTest, WritingUnderAMarkStaysReadable) {
    mView.render(0, 0);
    const Picture before = mView.cells();
    selectColumns(0, 0);
    mView.render(0, 0);
    for (std::size_t i = 0; i < before.pixels.size(); i++) {
        const std::uint32_t red = before.pixels[i] >> 16 & 0xFF;
        ASSERT_EQ(mView.cells().pixels[i] >> 16 & 0xFF, red); // the colour's red is full
        if (before.pixels[i] == 0xFF000000) {
            ASSERT_EQ(mView.cells().pixels[i], 0xFF000000);
        }
    }
}

TEST_F(MarksTest, RowsAndAreasAreMarkedToo) {
    std::int32_t count = 0;
    EXPECT_EQ(
        sheetModule().stg_select_row(mView.get(), 4, mView.place({0, 4}).y, mView.place({0, 2}).y, &count),
        MODULE_OK);
    EXPECT_EQ(count, 3);
    mView.render(0, 0);
    EXPECT_EQ(cell({0, 1}), kWhite);
    EXPECT_EQ(cell({3, 2}), kYellow);
    EXPECT_EQ(cell({3, 4}), kYellow);
    EXPECT_EQ(cell({3, 5}), kWhite);
    EXPECT_NE(rowHeader(3), kHeader);
    EXPECT_EQ(columnHeader(1), kHeader);

    const module_rect from = mView.place({1, 1});
    const module_rect to = mView.place({2, 2});
    EXPECT_EQ(sheetModule().stg_select_area(mView.get(), 4, from.x, from.y, to.x + to.width - from.x,
                                            to.y + to.height - from.y),
              MODULE_OK);
    mView.render(0, 0);
    EXPECT_EQ(cell({1, 1}), kYellow);
    EXPECT_EQ(cell({2, 2}), kYellow);
    EXPECT_EQ(cell({3, 2}), kWhite);
    EXPECT_EQ(cell({0, 2}), kWhite);
    EXPECT_NE(columnHeader(2), kHeader);
    EXPECT_NE(rowHeader(2), kHeader);
    EXPECT_EQ(rowHeader(3), kHeader);

    EXPECT_EQ(sheetModule().stg_clear_selection(mView.get()), MODULE_OK);
    mView.render(0, 0);
    EXPECT_EQ(cell({1, 1}), kWhite);
    EXPECT_EQ(columnHeader(2), kHeader);
}

TEST_F(MarksTest, HitsHaveTheColourThatHeldWhenTheyWereFound) {
    mView.highlight(0x80, 0xC0, 0xFF);
    ASSERT_EQ(mView.find("10").size(), 1U);
    mView.highlight(0xFF, 0xF5, 0x68);
    selectColumns(2, 2);
    mView.render(0, 0);
    EXPECT_EQ(cell({0, 1}), kBlue);
    EXPECT_EQ(cell({0, 0}), kWhite);
    EXPECT_EQ(cell({2, 0}), kYellow);
    EXPECT_EQ(sheetModule().stg_stop_find(mView.get()), MODULE_OK);
    mView.render(0, 0);
    EXPECT_EQ(cell({0, 1}), kWhite);
    EXPECT_EQ(cell({2, 0}), kYellow);
}

TEST_F(MarksTest, OtherSheetsAreNotMarked) {
    selectColumns(1, 2);
    mView.show(3, 500, 300, 144);
    mView.render(0, 0);
    EXPECT_EQ(cell({1, 6}), kWhite);
    EXPECT_EQ(columnHeader(1), kHeader);
}

TEST_F(MarksTest, TheEnginesOwnMarksOfCommentsAreOff) {
    mView.show(2, 1600, 300, 144);
    mView.render(0, 0);
    ASSERT_EQ(mView.commentMarks().size(), 1U);
    const stg_region mark = mView.commentMarks()[0];
    for (std::int32_t x = mark.x + mark.width - 12; x < mark.x + mark.width - 1; x++) {
        for (std::int32_t y = mark.y + 1; y < mark.y + 10; y++) {
            ASSERT_EQ(mView.cells().at(x, y), 0xFFFCE4D6) << x << ", " << y; // the cell's own
        }
    }
}

} // namespace
} // namespace lectern::test
