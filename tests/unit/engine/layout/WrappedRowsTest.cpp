// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/WrappedRows.h"

#include <gtest/gtest.h>

#include <vector>

namespace lectern::engine {
namespace {

constexpr std::int64_t WIDTH = 3;
constexpr std::int64_t ROOM = 30;
constexpr std::int64_t END = 1000;

// A window of 20 rows.
RowRange windowAt(std::int64_t y) {
    return {y, y + 20};
}

class WrappedRowsTest : public testing::Test {
protected:
    WrappedRowsTest() { mRows.resize(WIDTH, ROOM); }

    void paint(const RowRange& rows) {
        std::vector<std::uint32_t> pixels;
        mRows.write(rows, [&](std::int64_t y) {
            pixels.assign(WIDTH, static_cast<std::uint32_t>(y));
            return pixels.data();
        });
    }
    // Paints what a window lacks; returns the parts.
    std::vector<RowRange> show(const RowRange& window) {
        std::vector<RowRange> parts;
        while (const auto rows = mRows.missing(window)) {
            paint(*rows);
            parts.push_back(*rows);
        }
        return parts;
    }
    void expectPixels(const RowRange& rows) {
        for (std::int64_t y = rows.first; y < rows.last; ++y) {
            const std::uint32_t* const pixels = mRows.row(y);
            EXPECT_EQ(std::vector<std::uint32_t>(pixels, pixels + WIDTH),
                      std::vector<std::uint32_t>(WIDTH, static_cast<std::uint32_t>(y)));
        }
    }

    WrappedRows mRows;
};

using Parts = std::vector<RowRange>;

TEST_F(WrappedRowsTest, TheFirstWindowIsPaintedAsAWhole) {
    EXPECT_EQ(show(windowAt(7)), Parts{windowAt(7)});
    expectPixels(windowAt(7));
    EXPECT_TRUE(show(windowAt(7)).empty());
}

TEST_F(WrappedRowsTest, AWindowThatMovesNeedsOnlyWhatIsNew) {
    show(windowAt(40));
    EXPECT_EQ(show(windowAt(46)), Parts({{60, 66}}));
    EXPECT_EQ(show(windowAt(30)), Parts({{30, 40}}));
    expectPixels(windowAt(30));
}

TEST_F(WrappedRowsTest, AWindowElsewhereIsPaintedAsAWhole) {
    show(windowAt(0));
    EXPECT_EQ(show(windowAt(20)), Parts{windowAt(20)});
    EXPECT_EQ(show(windowAt(900)), Parts{windowAt(900)});
}

TEST_F(WrappedRowsTest, AWindowAroundThePaintedRowsNeedsBothSides) {
    show({10, 14});
    EXPECT_EQ(show({6, 20}), Parts({{6, 10}, {14, 20}}));
    expectPixels({6, 20});
}

TEST_F(WrappedRowsTest, RowsThatStillHaveRoomAreKept) {
    show(windowAt(0));
    show(windowAt(8));
    EXPECT_TRUE(show(windowAt(0)).empty());
    show(windowAt(15));
    EXPECT_EQ(mRows.painted(), (RowRange{5, 35}));
    EXPECT_TRUE(show(windowAt(5)).empty());
    expectPixels(windowAt(5));
    show(windowAt(0));
    EXPECT_EQ(mRows.painted(), (RowRange{0, 30}));
}

TEST_F(WrappedRowsTest, AWindowInsideThePreparedNeighbourhoodNeedsNoPainting) {
    for (const bool below : {true, false}) {
        mRows.clear();
        show(windowAt(100));
        int steps = 0;
        while (const auto rows = mRows.ahead(windowAt(100), below, 4, END)) {
            EXPECT_LE(rows->count(), 4);
            paint(*rows);
            ++steps;
        }
        EXPECT_EQ(steps, 3);
        expectPixels(windowAt(100));
        EXPECT_TRUE(show(windowAt(below ? 110 : 90)).empty());
        expectPixels(windowAt(below ? 110 : 90));
    }
}

TEST_F(WrappedRowsTest, NothingIsPreparedBeyondTheEnds) {
    show(windowAt(0));
    EXPECT_EQ(mRows.ahead(windowAt(0), false, 4, END), std::nullopt);
    EXPECT_EQ(mRows.ahead(windowAt(0), true, 4, 22), (RowRange{20, 22}));
    EXPECT_EQ(mRows.ahead(windowAt(0), true, 4, 20), std::nullopt);
}

TEST_F(WrappedRowsTest, AnotherSizeDropsAllRows) {
    show(windowAt(0));
    mRows.resize(WIDTH, ROOM);
    EXPECT_TRUE(show(windowAt(0)).empty());
    mRows.resize(WIDTH, ROOM + 1);
    EXPECT_EQ(show(windowAt(0)), Parts{windowAt(0)});
    mRows.clear();
    EXPECT_EQ(show(windowAt(2)), Parts{windowAt(2)});
}

TEST_F(WrappedRowsTest, AWindowMayBeginBeforeThePicture) {
    EXPECT_EQ(show({-3, 5}), Parts({{-3, 5}}));
    expectPixels({-3, 5});
}

} // namespace
} // namespace lectern::engine
