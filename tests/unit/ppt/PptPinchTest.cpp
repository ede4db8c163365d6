// SPDX-License-Identifier: Apache-2.0
// The picture and the requests while two fingers are down.
#include "tests/unit/ppt/PptTest.h"

namespace {

class PptPinchTest : public PptTest {
protected:
    // A view painted at a zoom and position, with a pinch at a scale.
    static std::unique_ptr<TestPpt> pinchedView(double zoom, int x, int y, double scale, int width = 320,
                                                int height = 480) {
        auto view = openView(width, height);
        view->zoomTo(zoom);
        view->mScroll.set(x, y);
        paint(*view);
        view->handleGestureStart(scale, 0.0);
        calls();
        return view;
    }
    // The pinch must show the last frame scaled from `from` to `to`.
    static void expectScaled(TestPpt& view, const CpRect& from, const CpRect& to) {
        Frame expected(view.width(), view.height());
        expected.fill(BLACK);
        view.mLastFrame.ScaleCopyToFit(from, expected.pixels(), to, view.width(), view.height());
        EXPECT_TRUE(paint(view) == expected);
        EXPECT_THAT(calls(), IsEmpty()) << "the module renders nothing";
    }
    static void expectMagnified(TestPpt& view, const CpRect& part) {
        expectScaled(view, part, CpRect(0, 0, view.width(), view.height()));
    }
    static void expectShrunk(TestPpt& view, const CpRect& target) {
        expectScaled(view, CpRect(0, 0, view.width(), view.height()), target);
    }
};

TEST_F(PptPinchTest, ZoomingInShowsTheLastFrameAboutTheSlidesMiddle) {
    const auto view = pinchedView(2.0, 500, 300, 2.0);
    // The slide's middle (640, 480) is at (140, 180) in the view.
    expectMagnified(*view, CpRect(60, 60, 220, 300));
    EXPECT_EQ(view->mGestureScroll, CpPoint((500 + 60) * 2, (300 + 60) * 2));
    EXPECT_EQ(view->mGestureAppliedScale, 2.0);
}

TEST_F(PptPinchTest, ZoomingInStaysInsideTheLastFrame) {
    const auto before = pinchedView(2.0, 0, 0, 2.0); // the middle is at (640, 480)
    expectMagnified(*before, CpRect(160, 240, 320, 480));
    EXPECT_EQ(before->mGestureScroll, CpPoint(320, 480));
    const auto behind = pinchedView(2.0, 960, 480, 1.25); // the middle is at (-320, 0)
    expectMagnified(*behind, CpRect(0, 0, 256, 384));
    EXPECT_EQ(behind->mGestureScroll, CpPoint(1200, 600));
}

TEST_F(PptPinchTest, ZoomingInCutsEdgesToWholePixels) {
    const auto view = pinchedView(2.0, 500, 300, 1.5);
    // 320 / 1.5 = 213.33 about 140; 480 / 1.5 = 320 about 180.
    expectMagnified(*view, CpRect(33, 20, 246, 340));
    EXPECT_EQ(view->mGestureScroll, CpPoint(799, 480)) << "533 * 1.5 cut";
}

TEST_F(PptPinchTest, ZoomingInMovesWholePixelsIntoTheFrame) {
    const auto before = pinchedView(2.0, 0, 0, 1.5); // 533.3 to 746.7 across
    expectMagnified(*before, CpRect(107, 160, 320, 480));
    EXPECT_EQ(before->mGestureScroll, CpPoint(160, 240)) << "107 * 1.5 cut";
    const auto behind = pinchedView(2.0, 960, 480, 1.5); // -426.7 to -213.3 across
    expectMagnified(*behind, CpRect(0, 0, 213, 320));
    EXPECT_EQ(behind->mGestureScroll, CpPoint(1440, 720));
    const auto justBefore = pinchedView(1.0, 213, 0, 1.5); // 320 - 213 = 107: 0.3 to 213.7
    expectMagnified(*justBefore, CpRect(0, 80, 213, 400));
}

TEST_F(PptPinchTest, ZoomingInOnASlideInTheMiddleOfTheView) {
    const auto view = pinchedView(0.5, 0, -120, 2.0); // 320 x 240, the middle at (160, 240)
    expectMagnified(*view, CpRect(80, 120, 240, 360));
    EXPECT_EQ(view->mGestureScroll, CpPoint(160, 0));
}

TEST_F(PptPinchTest, ZoomingOutShrinksTowardsTheMiddleOfTheView) {
    const auto view = pinchedView(2.0, 400, 200, 0.75);
    // 0.5 * 320 / 0.75 - 160 = 53 pixels beyond the view's edges are still slide.
    expectShrunk(*view, CpRect(40, 60, 280, 420));
    EXPECT_EQ(view->mGestureScroll, CpPoint(300 - 40, 150 - 60));
}

TEST_F(PptPinchTest, ZoomingOutKeepsToTheSlidesFirstEdges) {
    const auto view = pinchedView(2.0, 10, 20, 0.75);
    // Too short by (53.3 - 10) * 0.75 = 32.5 and (80 - 20) * 0.75 = 45.
    expectShrunk(*view, CpRect(7, 15, 247, 375));
    EXPECT_EQ(view->mGestureScroll, CpPoint(0, 0)) << "7.5 - 7 cut, and 15 - 15";
}

TEST_F(PptPinchTest, ZoomingOutKeepsToTheSlidesLastEdges) {
    const auto view = pinchedView(2.0, 950, 470, 0.75);
    // 1280 - 950 - 320 = 10 and 960 - 470 - 480 = 10 remain after the view.
    expectShrunk(*view, CpRect(72, 112, 312, 472));
    EXPECT_EQ(view->mGestureScroll, CpPoint(640, 240)) << "712.5 - 72 cut, and 352.5 - 112";
}

TEST_F(PptPinchTest, ZoomingOutOfASlideSmallerThanTheViewCentresIt) {
    const auto view = pinchedView(0.5, 0, -120, 0.5); // becomes 160 x 120
    // From 160 - 80 + 0 and 240 - 60 - 60.
    expectShrunk(*view, CpRect(80, 120, 240, 360));
    EXPECT_EQ(view->mGestureScroll, CpPoint(-80, -180));
}

TEST_F(PptPinchTest, ZoomingOutTreatsEachAxisByItself) {
    const auto view = pinchedView(1.0, 100, 0, 0.75); // 640 x 480 becomes 480 x 360
    // Horizontally 640 * 0.75 covers the view. Vertically it does not and is centred.
    expectShrunk(*view, CpRect(40, 60, 280, 420));
    EXPECT_EQ(view->mGestureScroll, CpPoint(75 - 40, -60));
}

TEST_F(PptPinchTest, ShrunkSlideExactlyAsLongAsTheViewIsNotSmaller) {
    // 640 * 0.5 is 320: both edges shift it, by the same amount.
    const auto view = pinchedView(1.0, 160, 0, 0.5);
    Frame frame = paint(*view);
    EXPECT_EQ(view->mGestureScroll.x, 80 - 80);
}

TEST_F(PptPinchTest, OddViewsHalvesAreWholePixels) {
    // 321 / 2 counts as 160; 0.5 * 321 * 0.75 = 120.375.
    const auto view = pinchedView(2.0, 400, 200, 0.75, 321, 481);
    expectShrunk(*view, CpRect(39, 59, 280, 420));
}

TEST_F(PptPinchTest, WithoutAChangeTheLastFrameIsCopied) {
    const auto view = pinchedView(2.0, 123, 77, 1.0);
    expectShrunk(*view, CpRect(0, 0, 320, 480));
    EXPECT_EQ(view->mGestureScroll, CpPoint(123, 77));
    EXPECT_EQ(view->mGestureAppliedScale, 1.0);
    view->handleGestureEnd(1.0, 0.0);
    EXPECT_EQ(view->mScale, 2.0);
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(PptPinchTest, EndTakesOverWhatWasShown) {
    const auto view = pinchedView(1.0, 100, 0, 1.0);
    view->handleGestureChange(1.5, 0.0);
    paint(*view);
    view->handleGestureEnd(9.0, 0.0);
    EXPECT_EQ(view->mScale, 1.5);
    EXPECT_EQ(surfaceSize(*view), CpPoint(960, 720));
    EXPECT_EQ(view->mScroll, view->mGestureScroll);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre("0 0"));
    Frame frame = paint(*view);
    expectSlide(*view, frame);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(0, 0, 960, 720)"));
}

TEST_F(PptPinchTest, RequestIsHeldToTheZoomLimits) {
    const auto view = openView();
    view->zoomTo(1.0);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(10.0, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 2.0);
    view->handleGestureChange(0.1, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 0.5);
}

TEST_F(PptPinchTest, NothingIsShownThatThereCanBeNoSurfaceFor) {
    const auto view = pinchedView(12.0, 0, 0, 1.0, 1920, 1200); // limited to 64 MiB from the start
    const double largest = view->mScale;
    ASSERT_LT(largest, 12.0);
    view->handleGestureChange(3.0, 0.0);
    paint(*view);
    EXPECT_NEAR(view->mGestureAppliedScale, 1.0, 1e-12);
    view->handleGestureEnd(1.0, 0.0);
    EXPECT_NEAR(view->mScale, largest, 1e-9);
}

TEST_F(PptPinchTest, FirstFrameBeyondAllBoundsShowsTheLargestZoom) {
    for (const double scale : {1e6, 1e300, std::numeric_limits<double>::infinity()}) {
        const auto view = pinchedView(1.0, 0, 0, scale);
        paint(*view);
        view->handleGestureEnd(1.0, 0.0);
        // 640 x 480 units in 64 MiB; a first frame is not held to the zoom limits.
        EXPECT_NEAR(view->mScale, std::sqrt((16 << 20) / (640.0 * 480)), 0.01) << scale;
    }
}

TEST_F(PptPinchTest, FirstFrameBelowAllBoundsLeavesASurface) {
    const auto view = pinchedView(1.0, 0, 0, 1e-9);
    paint(*view);
    view->handleGestureEnd(1.0, 0.0);
    EXPECT_EQ(view->mScale, 0.5 / 16);
    EXPECT_EQ(surfaceSize(*view), CpPoint(20, 16));
}

TEST_F(PptPinchTest, PinchesOfAnyScaleAreSurvived) {
    constexpr double POSITIVE_INFINITY = std::numeric_limits<double>::infinity();
    for (const double scale :
         {0.0, -1.0, -1e300, 1e-300, 1e300, POSITIVE_INFINITY, -POSITIVE_INFINITY, std::nan("")}) {
        const auto view = pinchedView(1.0, INT_MAX, INT_MIN, scale);
        paint(*view);
        view->handleGestureEnd(scale, scale);
        Frame frame = paint(*view);
        EXPECT_TRUE(std::isfinite(view->mScale)) << scale;
        EXPECT_GT(view->mScale, 0.0) << scale;
        EXPECT_LE(int64_t{surfaceSize(*view).x} * surfaceSize(*view).y * 4, 64 << 20) << scale;
        EXPECT_TRUE(frame.slackIsUntouched());
    }
}

} // namespace
