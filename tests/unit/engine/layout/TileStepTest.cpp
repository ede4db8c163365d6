// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/TileStep.h"

#include <gtest/gtest.h>

namespace lectern::engine::test {
namespace {

TEST(TileStepTest, IsTheFewestPixelsOfWholeTwips) {
    EXPECT_EQ(tileStep(72), 1);
    EXPECT_EQ(tileStep(96), 1);
    EXPECT_EQ(tileStep(100), 5);
    EXPECT_EQ(tileStep(217), 217);
    for (int32_t dpi = 1; dpi <= 2400; ++dpi) {
        const int64_t step = tileStep(dpi);
        ASSERT_EQ(step * TWIPS_PER_INCH % dpi, 0) << dpi;
        for (int64_t fewer = 1; fewer < step; ++fewer) {
            ASSERT_NE(fewer * TWIPS_PER_INCH % dpi, 0) << dpi;
        }
    }
}

TEST(TileStepTest, TwipsOfStepsAreExact) {
    EXPECT_EQ(tileTwips(10, 100), 144);
    EXPECT_EQ(tileTwips(144, 144), 1440);
    EXPECT_EQ(tileTwips(0, 217), 0);
    EXPECT_EQ(tileTwips(217, 217), 1440);
}

TEST(TileStepTest, RoundsToSteps) {
    EXPECT_EQ(roundDown(7, 5), 5);
    EXPECT_EQ(roundDown(10, 5), 10);
    EXPECT_EQ(roundUp(7, 5), 10);
    EXPECT_EQ(roundUp(10, 5), 10);
}

} // namespace
} // namespace lectern::engine::test
