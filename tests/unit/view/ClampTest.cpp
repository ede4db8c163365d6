// SPDX-License-Identifier: Apache-2.0
#include "ProbeView.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

struct ClampCase {
    int x, y, maxX, maxY;
    int clampedX, clampedY;
    bool edge;
};

class ClampPosition : public testing::TestWithParam<ClampCase> {};

TEST_P(ClampPosition, StaysWithTheDocument) {
    const ClampCase& c = GetParam();
    const ProbeView view;
    int x = c.x;
    int y = c.y;
    EXPECT_EQ(view.clampPosition(x, y, c.maxX, c.maxY), c.edge);
    EXPECT_EQ(x, c.clampedX);
    EXPECT_EQ(y, c.clampedY);
}

INSTANTIATE_TEST_SUITE_P(Inside, ClampPosition,
                         testing::Values(ClampCase{50, 20, 100, 40, 50, 20, false},
                                         ClampCase{0, 0, 100, 40, 0, 0, false},
                                         ClampCase{100, 40, 100, 40, 100, 40, false},
                                         ClampCase{0, 0, 0, 0, 0, 0, false}));
// The glide continues when only one axis is at an edge.
INSTANTIATE_TEST_SUITE_P(OneAxis, ClampPosition,
                         testing::Values(ClampCase{-3, 10, 100, 40, 0, 10, false},
                                         ClampCase{101, 10, 100, 40, 100, 10, false},
                                         ClampCase{50, 41, 100, 40, 50, 40, false},
                                         ClampCase{50, -1, 100, 40, 50, 0, false}));
INSTANTIATE_TEST_SUITE_P(BothAxes, ClampPosition,
                         testing::Values(ClampCase{-3, 50, 100, 40, 0, 40, true},
                                         ClampCase{101, -1, 100, 40, 100, 0, true},
                                         ClampCase{1, -1, 0, 0, 0, 0, true}));
INSTANTIATE_TEST_SUITE_P(DocumentSmallerThanTheView, ClampPosition,
                         testing::Values(ClampCase{5, 0, -20, 40, 0, 0, false},
                                         ClampCase{-25, 0, -20, 40, -20, 0, false},
                                         ClampCase{-10, 0, -20, 40, -10, 0, false},
                                         ClampCase{5, -31, -20, -30, 0, -30, true},
                                         ClampCase{-20, -30, -20, -30, -20, -30, false}));
INSTANTIATE_TEST_SUITE_P(Extremes, ClampPosition,
                         testing::Values(ClampCase{INT_MAX, INT_MIN, 100, 40, 100, 0, true},
                                         ClampCase{INT_MIN, INT_MAX, INT_MIN, INT_MAX, INT_MIN, INT_MAX,
                                                   false}));

TEST(ClampToSurface, UsesTheSurfacesRightAndBottomEdges) {
    ProbeView view(40, 60);
    CpPixmap surface(CpRect(10, 500, 90, 700));
    view.mDocPixmap = &surface;
    int x = 1000;
    int y = 1000;
    EXPECT_TRUE(view.OfficeBase::clampPosition(x, y));
    EXPECT_EQ(x, 50);  // 90 - 40, not 80 - 40
    EXPECT_EQ(y, 640); // 700 - 60
}

TEST(ClampToSurface, MovesNothingWithoutASurface) {
    const ProbeView view;
    int x = -5;
    int y = 1 << 20;
    EXPECT_FALSE(view.OfficeBase::clampPosition(x, y));
    EXPECT_EQ(x, -5);
    EXPECT_EQ(y, 1 << 20);
}

TEST(ClampToSurface, SurvivesASurfaceAtTheEndsOfInt) {
    ProbeView view(40, 60);
    CpPixmap surface(CpRect(INT_MIN, INT_MIN, INT_MIN + 4, INT_MIN + 4));
    view.mDocPixmap = &surface;
    int x = 7;
    int y = -7;
    EXPECT_FALSE(view.OfficeBase::clampPosition(x, y));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, -7);
}

} // namespace
