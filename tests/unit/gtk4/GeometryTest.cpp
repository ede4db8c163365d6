// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/Geometry.h"

#include <gtest/gtest.h>

using namespace lectern::gtk4;

TEST(PixelGrid, ConvertsBetweenPixelsOfTheWidgetAndOfTheScreen) {
    const PixelGrid grid(2);
    EXPECT_EQ(grid.toDevice(10, 20), (Point{20, 40}));
    EXPECT_DOUBLE_EQ(grid.toWidget(15), 7.5);
    EXPECT_EQ(grid.picture(360, 640), (Size{720, 1280}));
}

TEST(PixelGrid, PictureHasOnlyWholePixelsThatTheWidgetCovers) {
    EXPECT_EQ(PixelGrid(1.25).picture(101, 100), (Size{126, 125}));
    EXPECT_EQ(PixelGrid(1.1).picture(100, 110), (Size{110, 121}));
}

TEST(PixelGrid, PictureIsNeverEmptyAndNeverLargerThanTheServicePaints) {
    EXPECT_EQ(PixelGrid(1).picture(0, 0), (Size{1, 1}));
    EXPECT_EQ(PixelGrid(4).picture(10'000, 10), (Size{PixelGrid::LONGEST_SIDE, 40}));
}

TEST(PixelGrid, MovesAWidgetThatBeginsBetweenPixelsToTheNearestOne) {
    EXPECT_DOUBLE_EQ(PixelGrid(1).toPixelEdge(7), 0);
    EXPECT_DOUBLE_EQ(PixelGrid(2).toPixelEdge(7.5), 0);
    // 5 pixels of the widget are 7.5 of the screen, and 8 of those are 5.33.
    EXPECT_NEAR(PixelGrid(1.5).toPixelEdge(5), 1.0 / 3, 1e-9);
    EXPECT_NEAR(PixelGrid(1.25).toPixelEdge(1), -0.2, 1e-9);
}
