// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/FrameBands.h"

#include <gtest/gtest.h>

using lectern::gtk4::FrameBands;

TEST(FrameBands, CoverThePictureWithoutGapsAndTheLastIsLower) {
    for (const int height : {1, 63, 64, 65, 640, 1000}) {
        const FrameBands bands(height);
        int covered = 0;
        for (int band = 0; band < bands.count(); ++band) {
            EXPECT_EQ(bands.top(band), covered);
            EXPECT_GT(bands.rows(band), 0);
            covered += bands.rows(band);
        }
        EXPECT_EQ(covered, height);
    }
}

TEST(FrameBands, DamageTouchesTheBandsThatHoldItsRowsAndNoOther) {
    const FrameBands bands(640);
    const auto touched = [&](int y, int height) {
        const FrameBands::Range range = bands.touchedBy(y, height);
        return std::pair(range.first, range.last);
    };
    EXPECT_EQ(touched(0, 1), std::pair(0, 1));
    EXPECT_EQ(touched(63, 1), std::pair(0, 1));
    EXPECT_EQ(touched(63, 2), std::pair(0, 2));
    EXPECT_EQ(touched(64, 64), std::pair(1, 2));
    EXPECT_EQ(touched(0, 640), std::pair(0, 10));
}

TEST(FrameBands, DamageOutsideThePictureTouchesNothing) {
    const FrameBands bands(100);
    const auto isEmpty = [](FrameBands::Range range) { return range.first == range.last; };
    EXPECT_TRUE(isEmpty(bands.touchedBy(0, 0)));
    EXPECT_TRUE(isEmpty(bands.touchedBy(100, 10)));
    EXPECT_TRUE(isEmpty(bands.touchedBy(-20, 20)));
    EXPECT_EQ(bands.touchedBy(-20, 500).last, 2);
}
