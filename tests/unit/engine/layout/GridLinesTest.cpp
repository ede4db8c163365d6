// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/GridLines.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <utility>

namespace lectern::engine::test {
namespace {

constexpr int32_t WIDTH = 200;
constexpr int32_t HEIGHT = 60;
constexpr uint32_t INK = 0xFF000000;
constexpr uint32_t LINE = 0xFFC0C0C0;

// A window onto columns of 40 and rows of 20 pixels.
class GridLinesTest : public testing::Test {
protected:
    GridLinesTest() : mColumns("600:9", "0:9"), mRows("300:9", "0:9") {
        for (Tracks* tracks : {&mColumns, &mRows}) {
            tracks->setDpi(96);
            tracks->setCount(10);
        }
        mPixels.fill(WHITE);
        for (int32_t x = 0; x < WIDTH; x += 40) {
            fill(mSurface, x, 0, x + 1, HEIGHT, LINE);
        }
    }
    // Strokes of letters: 2 pixels wide, 8 high, one every 4 pixels.
    void write(int32_t from, int32_t to, int32_t row) {
        for (int32_t x = from; x < to; x += 4) {
            fill(mSurface, x, row * 20 + 6, std::min(x + 2, to), row * 20 + 14, INK);
        }
    }
    std::vector<LinePart> crossed(int64_t x = 0, int64_t y = 0) {
        return crossedLines({mSurface, x, y, mColumns, mRows}, 96, [&](int32_t column, int32_t row) {
            return !mFull.contains({column, row});
        });
    }

    Tracks mColumns, mRows;
    std::array<uint32_t, WIDTH * HEIGHT> mPixels{};
    Surface mSurface{mPixels.data(), WIDTH, HEIGHT};
    std::set<std::pair<int32_t, int32_t>> mFull{{0, 1}};
};

TEST_F(GridLinesTest, AreCrossedByTextThatRunsOverIntoEmptyCells) {
    write(3, 100, 1);
    EXPECT_EQ(crossed(), (std::vector<LinePart>{{40, 20, 40}, {80, 20, 40}}));
}

TEST_F(GridLinesTest, AreCrossedByTextThatRunsOverToTheLeft) {
    mFull = {{3, 1}};
    write(60, 158, 1);
    EXPECT_EQ(crossed(), (std::vector<LinePart>{{80, 20, 40}, {120, 20, 40}}));
}

TEST_F(GridLinesTest, AreCrossedWhereASpaceBetweenWordsLies) {
    write(3, 36, 1);
    write(44, 70, 1);
    EXPECT_EQ(crossed(), (std::vector<LinePart>{{40, 20, 40}}));
}

TEST_F(GridLinesTest, StayBesideATextThatEndsBeforeThem) {
    write(3, 39, 1);
    EXPECT_TRUE(crossed().empty());
}

TEST_F(GridLinesTest, StayBetweenTwoTexts) {
    mFull = {{0, 1}, {1, 1}};
    write(3, 80, 1);
    EXPECT_TRUE(crossed().empty());
}

TEST_F(GridLinesTest, StayInColouredCellsAndBesideBorders) {
    fill(mSurface, 20, 20, 60, 40, 0xFFFFFF00);
    fill(mSurface, 60, 20, 62, 40, INK);
    fill(mSurface, 0, 39, WIDTH, 42, INK);
    EXPECT_TRUE(crossed().empty());
}

TEST_F(GridLinesTest, AreFoundInWindowsThatBeginWithinCells) {
    mFull = {{1, 2}};
    // The window begins 30 pixels into the first column and 25 into the sheet.
    write(12, 90, 1);
    EXPECT_EQ(crossed(30, 20), (std::vector<LinePart>{{50, 20, 40}}));
}

TEST_F(GridLinesTest, StayWhereAColumnIsHidden) {
    mColumns = Tracks("600:9", "0:0 1 9");
    mColumns.setDpi(96);
    mColumns.setCount(10);
    mFull = {{0, 1}, {2, 1}};
    write(3, 80, 1);
    EXPECT_TRUE(crossed().empty());
}

} // namespace
} // namespace lectern::engine::test
