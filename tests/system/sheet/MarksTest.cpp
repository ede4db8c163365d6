// SPDX-License-Identifier: Apache-2.0
// Marks over the picture: selections and hits.

#include "tests/system/sheet/WorkbookView.h"

namespace lectern::test {
namespace {

constexpr std::uint32_t YELLOW = 0xFFFFF568;
constexpr std::uint32_t BLUE = 0xFF80C0FF;
constexpr std::uint32_t WHITE = 0xFFFFFFFF;
constexpr std::uint32_t HEADER = 0xFFCCCCCC;

class MarksTest : public testing::Test {
protected:
    MarksTest() : mView(sample("tour.xlsx")) {
        mView.show(4, 500, 300, 144);
        mView.highlight(0xFF, 0xF5, 0x68);
    }
    // A pixel near the top left corner of a cell, where the cell has no text.
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
    EXPECT_EQ(cell({0, 1}), WHITE);
    EXPECT_EQ(cell({1, 1}), YELLOW);
    EXPECT_EQ(cell({1, 7}), YELLOW);
    EXPECT_EQ(cell({2, 1}), WHITE);
    EXPECT_EQ(columnHeader(0), HEADER);
    EXPECT_EQ(columnHeader(1), 0xFFCCC453);
    EXPECT_EQ(rowHeader(1), HEADER);
}

TEST_F(MarksTest, WritingUnderAMarkStaysReadable) {
    mView.render(0, 0);
    const Picture before = mView.cells();
    selectColumns(0, 0);
    mView.render(0, 0);
    for (std::size_t i = 0; i < before.pixels.size(); i++) {
        const std::uint32_t red = before.pixels[i] >> 16 & 0xFF;
        ASSERT_EQ(mView.cells().pixels[i] >> 16 & 0xFF, red); // the colour's red is 255
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
    EXPECT_EQ(cell({0, 1}), WHITE);
    EXPECT_EQ(cell({3, 2}), YELLOW);
    EXPECT_EQ(cell({3, 4}), YELLOW);
    EXPECT_EQ(cell({3, 5}), WHITE);
    EXPECT_NE(rowHeader(3), HEADER);
    EXPECT_EQ(columnHeader(1), HEADER);

    const module_rect from = mView.place({1, 1});
    const module_rect to = mView.place({2, 2});
    EXPECT_EQ(sheetModule().stg_select_area(mView.get(), 4, from.x, from.y, to.x + to.width - from.x,
                                            to.y + to.height - from.y),
              MODULE_OK);
    mView.render(0, 0);
    EXPECT_EQ(cell({1, 1}), YELLOW);
    EXPECT_EQ(cell({2, 2}), YELLOW);
    EXPECT_EQ(cell({3, 2}), WHITE);
    EXPECT_EQ(cell({0, 2}), WHITE);
    EXPECT_NE(columnHeader(2), HEADER);
    EXPECT_NE(rowHeader(2), HEADER);
    EXPECT_EQ(rowHeader(3), HEADER);

    EXPECT_EQ(sheetModule().stg_clear_selection(mView.get()), MODULE_OK);
    mView.render(0, 0);
    EXPECT_EQ(cell({1, 1}), WHITE);
    EXPECT_EQ(columnHeader(2), HEADER);
}

TEST_F(MarksTest, HitsHaveTheColourThatHeldWhenTheyWereFound) {
    mView.highlight(0x80, 0xC0, 0xFF);
    ASSERT_EQ(mView.find("10").size(), 1U);
    mView.highlight(0xFF, 0xF5, 0x68);
    selectColumns(2, 2);
    mView.render(0, 0);
    EXPECT_EQ(cell({0, 1}), BLUE);
    EXPECT_EQ(cell({0, 0}), WHITE);
    EXPECT_EQ(cell({2, 0}), YELLOW);
    EXPECT_EQ(sheetModule().stg_stop_find(mView.get()), MODULE_OK);
    mView.render(0, 0);
    EXPECT_EQ(cell({0, 1}), WHITE);
    EXPECT_EQ(cell({2, 0}), YELLOW);
}

TEST_F(MarksTest, OtherSheetsAreNotMarked) {
    selectColumns(1, 2);
    mView.show(3, 500, 300, 144);
    mView.render(0, 0);
    EXPECT_EQ(cell({1, 6}), WHITE);
    EXPECT_EQ(columnHeader(1), HEADER);
}

TEST_F(MarksTest, TheEnginesOwnMarksOfCommentsAreOff) {
    mView.show(2, 1600, 300, 144);
    mView.render(0, 0);
    ASSERT_EQ(mView.commentMarks().size(), 1U);
    const stg_region mark = mView.commentMarks()[0];
    for (std::int32_t x = mark.x + mark.width - 12; x < mark.x + mark.width - 1; x++) {
        for (std::int32_t y = mark.y + 1; y < mark.y + 10; y++) {
            ASSERT_EQ(mView.cells().at(x, y), 0xFFFCE4D6) << x << ", " << y; // the cell's own colour
        }
    }
}

} // namespace
} // namespace lectern::test
