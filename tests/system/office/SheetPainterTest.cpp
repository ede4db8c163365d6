// SPDX-License-Identifier: Apache-2.0
// What of a sheet is painted again when its window moves. The tests change the
// colour of all cells behind the painter's back: rows that are painted afterwards
// have the new colour, rows that are kept do not.
#include "engine/office/sheet/CellPainter.h"
#include "tests/system/office/WorkbookFixture.h"

namespace lectern::engine::test {

namespace {

constexpr int32_t SIZE = 300; // of a window, in pixels
constexpr int32_t AHEAD = 150;
constexpr int32_t ROW = 30; // most pixels of a row of cells
constexpr int32_t DPI = 144;
constexpr int ENDLESS = 100; // steps, far more than a neighbourhood needs
constexpr int32_t NEW = 0x00AA00;
constexpr uint32_t NEW_PIXEL = 0xFF00AA00;

class SheetPainterTest : public WorkbookTest {
protected:
    SheetPainterTest() : WorkbookTest("plain", DPI, {"1,2", "3,4"}) {}

    void paint(int32_t x, int32_t y, int32_t dpi = DPI, int32_t height = SIZE) {
        mPixels.assign(size_t{SIZE} * SIZE, 0);
        guarded([&] { mPainter.paint(*mBook, 0, x, y, dpi, {mPixels.data(), SIZE, height}); });
    }
    int paintAhead(int32_t dpi = DPI) {
        int steps = 0;
        guarded([&] {
            while (steps < ENDLESS && mPainter.paintAhead(*mBook, dpi)) {
                ++steps;
            }
        });
        return steps;
    }
    void recolour() {
        guarded([&] { setProperty(propertiesOf(mBook->sheet(0)), "CellBackColor", sal_Int32{NEW}); });
    }
    // Number of rows of the window that have the new colour, and the first of them.
    std::pair<int32_t, int32_t> newRows() const {
        int32_t count = 0;
        int32_t first = SIZE;
        for (int32_t row = 0; row < SIZE; ++row) {
            // Every row of pixels has more fill than letters and lines.
            const auto begin = mPixels.begin() + row * SIZE;
            if (std::count(begin, begin + SIZE, NEW_PIXEL) > SIZE / 2) {
                ++count;
                first = std::min(first, row);
            }
        }
        return {count, first};
    }

    CellPainter mPainter;
    std::vector<uint32_t> mPixels;
};

using Rows = std::pair<int32_t, int32_t>;
constexpr Rows NONE{0, SIZE};

TEST_F(SheetPainterTest, AWindowInsideThePreparedNeighbourhoodNeedsNoPainting) {
    paint(0, 0);
    EXPECT_GT(paintAhead(), 0);
    EXPECT_EQ(paintAhead(), 0);
    recolour();
    paint(0, AHEAD - 2 * ROW);
    EXPECT_EQ(newRows(), NONE);
    paint(0, AHEAD - ROW);
    EXPECT_EQ(newRows(), NONE);
}

TEST_F(SheetPainterTest, TheNeighbourhoodLiesInTheDirectionOfTravel) {
    paint(0, 600);
    paint(0, 500);
    paintAhead();
    recolour();
    paint(0, 500 - AHEAD + ROW);
    EXPECT_EQ(newRows(), NONE);
}

TEST_F(SheetPainterTest, PreparingEndsForAWindowThatCutsCells) {
    constexpr int32_t HEIGHT = SIZE - ROW / 3; // with its neighbourhood no number of whole cells
    for (int32_t y = 600; y < 600 + ROW; y += 5) {
        paint(0, y, DPI, HEIGHT);
        EXPECT_LT(paintAhead(), ENDLESS) << y;
        EXPECT_EQ(paintAhead(), 0) << y;
    }
}

TEST_F(SheetPainterTest, AWindowThatMovesUpOrDownNeedsOnlyTheNewRows) {
    paint(0, 300);
    paint(0, 310);
    recolour();
    paint(0, 370);
    const auto [below, first] = newRows();
    // Cells are painted as a whole, and lines between them keep their colour.
    EXPECT_GT(below, 60 - ROW - 5);
    EXPECT_LE(below, 60);
    EXPECT_GE(first, SIZE - 60);
    paint(0, 250);
    const auto [above, top] = newRows();
    EXPECT_GT(above, 60 - ROW - 5);
    EXPECT_LT(top, 5);
}

TEST_F(SheetPainterTest, ChangesZoomsAndWindowsAsideArePaintedAnew) {
    paint(0, 0);
    paintAhead();
    recolour();
    paint(10, 0);
    EXPECT_GT(newRows().first, SIZE - 20);
    paint(0, 0);
    EXPECT_GT(newRows().first, SIZE - 20);
    guarded([&] { setProperty(propertiesOf(mBook->sheet(0)), "CellBackColor", sal_Int32{0xFFFFFF}); });
    paint(0, 0);
    EXPECT_GT(newRows().first, SIZE / 2) << "nobody has told of the change";
    guarded([&] {
        mBook->aboutToChange(0);
        mBook->changed(0);
    });
    EXPECT_EQ(paintAhead(), 0);
    paint(0, 0);
    EXPECT_EQ(newRows(), NONE);
}

TEST_F(SheetPainterTest, AWindowOfAnotherResolutionIsNotPreparedAnyMore) {
    paint(0, 0);
    EXPECT_EQ(paintAhead(DPI + 1), 0);
    EXPECT_GT(paintAhead(), 0);
}

TEST_F(SheetPainterTest, ReleasedMemoryLeavesWhatWasPainted) {
    paint(0, 0);
    paintAhead();
    recolour();
    mPainter.releaseMemory();
    paint(0, AHEAD - 2 * ROW);
    EXPECT_EQ(newRows(), NONE);
    paint(0, 5 * SIZE); // only the tile has these pixels yet
    const std::vector<uint32_t> before = mPixels;
    mPainter.releaseMemory();
    paint(0, 5 * SIZE);
    EXPECT_EQ(mPixels, before);
}

} // namespace

} // namespace lectern::engine::test
