// SPDX-License-Identifier: Apache-2.0
// The surface's size, and where the view may be on it.
#include "tests/unit/ppt/PptTest.h"

namespace {

class PptLayoutTest : public PptTest {
protected:
    static CpPoint clamped(const TestPpt& view, int x, int y, int maxX, int maxY, bool edge) {
        EXPECT_EQ(view.clampPosition(x, y, maxX, maxY), edge) << x << ", " << y;
        return {x, y};
    }
};

TEST_F(PptLayoutTest, SurfaceIsTheSlideAtTheZoom) {
    const auto view = openView();
    view->zoomTo(0.7);
    EXPECT_EQ(surfaceSize(*view), CpPoint(448, 336));
    view->zoomTo(2.0);
    EXPECT_EQ(surfaceSize(*view), CpPoint(1280, 960));
}

TEST_F(PptLayoutTest, SidesAreCutToWholePixelsAndMadeEven) {
    const auto view = openView();
    view->zoomTo(0.471); // 301.44 x 226.08
    EXPECT_EQ(surfaceSize(*view), CpPoint(302, 226));
    view->zoomTo(0.4703125); // 301 x 225.75
    EXPECT_EQ(surfaceSize(*view), CpPoint(302, 226));
    view->zoomTo(0.5015); // 320.96 x 240.72
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 240));
}

TEST_F(PptLayoutTest, OnlyTheFirstSlidesSizeCounts) {
    const auto view = openDeck(2);
    fakeSlides().width = 100;
    view->jumpToSlide(1);
    paint(*view);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(1, 0, 320, 240)"));
}

TEST_F(PptLayoutTest, ResizingAsksTheModuleNothing) {
    const auto view = openView();
    view->resizeDocument();
    view->recenterDocument();
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 240));
}

TEST_F(PptLayoutTest, AxisSmallerThanTheViewIsCentred) {
    const auto view = openView();
    EXPECT_EQ(clamped(*view, 5, 10, -40, 100, false), CpPoint(-20, 10));
    EXPECT_EQ(clamped(*view, 10, -3, 100, -41, false), CpPoint(10, -20)) << "halves are cut toward zero";
    EXPECT_EQ(clamped(*view, -20, -30, -40, -60, true), CpPoint(-20, -30)) << "counts as moved";
    EXPECT_EQ(clamped(*view, 0, 7, -1, 100, false), CpPoint(0, 7));
}

TEST_F(PptLayoutTest, BothAxesMovedIsAnEdge) {
    const auto view = openView();
    EXPECT_EQ(clamped(*view, -3, 50, 100, 40, true), CpPoint(0, 40));
    EXPECT_EQ(clamped(*view, 101, -1, 100, 40, true), CpPoint(100, 0));
    EXPECT_EQ(clamped(*view, -3, 10, 100, 40, false), CpPoint(0, 10));
    EXPECT_EQ(clamped(*view, 3, 41, 100, 40, false), CpPoint(3, 40));
    EXPECT_EQ(clamped(*view, 100, 0, 100, 40, false), CpPoint(100, 0)) << "at the edges already";
    EXPECT_EQ(clamped(*view, -9, 10, -40, 40, false), CpPoint(-20, 10));
    EXPECT_EQ(clamped(*view, -9, 41, -40, 40, true), CpPoint(-20, 40)) << "centred and moved";
    EXPECT_EQ(clamped(*view, 5, 5, 0, 0, true), CpPoint(0, 0));
}

TEST_F(PptLayoutTest, LimitsAreSurfaceMinusView) {
    const auto view = openView();
    view->zoomTo(1.0); // 640 x 480 in 320 x 480
    int x = 1000;
    int y = 1000;
    EXPECT_TRUE(view->clampPosition(x, y));
    EXPECT_EQ(CpPoint(x, y), CpPoint(320, 0));
    view->zoomTo(0.5);
    x = y = 0;
    EXPECT_FALSE(view->clampPosition(x, y));
    EXPECT_EQ(CpPoint(x, y), CpPoint(0, -120));
}

TEST_F(PptLayoutTest, WithoutASurfaceNothingIsClamped) {
    const auto view = makeView();
    int x = 1000;
    int y = -1000;
    EXPECT_FALSE(view->clampPosition(x, y));
    EXPECT_EQ(CpPoint(x, y), CpPoint(1000, -1000));
}

TEST_F(PptLayoutTest, DoubleTapStepsZoomAboutTheTappedPoint) {
    const auto view = openView();
    paint(*view);
    view->handleDoubleClick(200, 240);
    EXPECT_EQ(view->mScaleLevel, 1);
    EXPECT_EQ(view->mScale, 1.25) << "0.5 + 2 * 0.375";
    EXPECT_EQ(surfaceSize(*view), CpPoint(800, 600));
    // 2.5 * 200 - 160 and 2.5 * (240 - 120) - 240
    EXPECT_EQ(view->mScroll, CpPoint(340, 60));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre("0 0"));
    view->handleDoubleClick(0, 0);
    EXPECT_EQ(view->mScale, 1.625);
    view->handleDoubleClick(0, 0);
    EXPECT_EQ(view->mScale, 0.875);
    EXPECT_EQ(view->mScaleLevel, 0);
}

TEST_F(PptLayoutTest, SurfaceNeverTakesMoreThan64MiB) {
    const auto view = openView(1920, 1200); // fits at zoom 3; 4 times that is 7680 x 5760
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(100.0, 0.0);
    paint(*view);
    view->handleGestureEnd(1.0, 0.0);
    const CpPoint size = surfaceSize(*view);
    EXPECT_LE(int64_t{size.x} * size.y * 4, 64 << 20);
    // The next even size of a 4:3 slide would be too large.
    EXPECT_GT(int64_t{size.x + 2} * (size.y + 2) * 4, 64 << 20);
    EXPECT_NEAR(view->mScale, size.x / 640.0, 2.0 / 640);
    EXPECT_EQ(view->mMaxScale, 12.0);
}

TEST_F(PptLayoutTest, LargestSurfaceOf64MiBIsMade) {
    fakeSlides().width = 4096;
    fakeSlides().height = 4096;
    const auto view = openView(1024, 1024);
    view->zoomTo(1.0);
    EXPECT_EQ(surfaceSize(*view), CpPoint(4096, 4096));
    view->zoomTo(1.0003); // 4097 and so 4098
    EXPECT_EQ(surfaceSize(*view), CpPoint(4096, 4096));
    EXPECT_GE(view->mScale, 1.0);
    EXPECT_LT(view->mScale, 4097.0 / 4096);
}

TEST_F(PptLayoutTest, DoubleTapBeyondTheLargestSurfaceKeepsThePointInTheMiddle) {
    fakeSlides().width = 4000;
    fakeSlides().height = 4000;
    const auto view = openView(2000, 2000);
    view->mScaleLevel = 1;
    view->handleDoubleClick(1500, 1000);
    EXPECT_EQ(view->mScaleLevel, 2);
    EXPECT_EQ(surfaceSize(*view), CpPoint(4096, 4096)) << "instead of 6500";
    EXPECT_NEAR(view->mScroll.x, 1500 * 2.048 - 1000, 1.0);
    EXPECT_NEAR(view->mScroll.y, 1000 * 2.048 - 1000, 1.0);
}

} // namespace
