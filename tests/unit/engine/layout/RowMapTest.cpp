// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/RowMap.h"

#include <gtest/gtest.h>

namespace lectern::engine::test {
namespace {

// Left edge, top and height in twips; at 72 dpi a row is 20 twips high.
const std::vector<FlowPage> TWO_PAGES = {{100, 500, 1440}, {100, 3000, 721}};

TEST(RowMapTest, PagesFollowEachOtherWithoutAGap) {
    const RowMap map(TWO_PAGES, 72);
    ASSERT_EQ(map.pages().size(), 2U);
    EXPECT_EQ(map.pages()[0].rows, 72);
    EXPECT_EQ(map.pages()[1].firstRow, 72);
    EXPECT_EQ(map.pages()[1].rows, 37) << "a begun row is one";
    EXPECT_EQ(map.rows(), 109);
    EXPECT_EQ(map.pageOf(71).top, 500);
    EXPECT_EQ(map.pageOf(72).top, 3000);
}

TEST(RowMapTest, APageWithoutTextHasARow) {
    EXPECT_EQ(RowMap({{0, 0, 0}}, 72).rows(), 1);
    EXPECT_EQ(RowMap().rows(), 0) << "without a layout";
}

TEST(RowMapTest, APlaceLiesOnARowOfItsPage) {
    const RowMap map(TWO_PAGES, 72);
    EXPECT_EQ(map.rowOf({0, 0}), 0);
    EXPECT_EQ(map.rowOf({0, 719}), 35);
    EXPECT_EQ(map.rowOf({0, 720}), 36);
    EXPECT_EQ(map.rowOf({1, 0}), 72);
    EXPECT_EQ(map.rowOf({0, 1'000'000}), 71);
    EXPECT_EQ(map.rowOf({0, -20}), 0);
    EXPECT_EQ(map.rowOf({7, 0}), 72) << "there is no such page: the last one";
}

TEST(RowMapTest, ARowBeginsAtAPlaceOfTheView) {
    const RowMap map(TWO_PAGES, 72);
    EXPECT_EQ(map.viewY(0), 500);
    EXPECT_EQ(map.viewY(1), 520);
    EXPECT_EQ(map.viewY(72), 3000);
}

TEST(RowMapTest, APlaceOfTheViewHasARowAndAColumn) {
    const RowMap map(TWO_PAGES, 72);
    EXPECT_EQ(map.rowAt(519), 0);
    EXPECT_EQ(map.rowAt(520), 1);
    EXPECT_EQ(map.rowAt(0), 0) << "above the text";
    EXPECT_EQ(map.rowAt(2999), 72) << "between the pages";
    EXPECT_EQ(map.rowAt(1'000'000), map.rows());
    EXPECT_EQ(map.columnAt(100, 0), 0);
    EXPECT_EQ(map.columnAt(140, 80), 2);
}

TEST(RowMapTest, TheTopOfEveryRowLiesOnIt) {
    for (const int32_t dpi : {31, 72, 96, 100, 217, 1440}) {
        const RowMap map(TWO_PAGES, dpi);
        for (int64_t row = 0; row < map.rows(); ++row) {
            ASSERT_EQ(map.rowAt(map.viewY(row)), row) << dpi;
        }
    }
}

} // namespace
} // namespace lectern::engine::test
