// SPDX-License-Identifier: Apache-2.0
// The picture and the requests while two fingers are down.
#include "tests/unit/excel/ExcelTest.h"

namespace {

constexpr uint32_t BLACK = 0xFF000000;

class ExcelPinchTest : public ExcelTest {
protected:
    // A view painted at a position, with a pinch at a scale.
    static std::unique_ptr<TestExcel> pinchedView(int x, int y, double scale) {
        auto view = openView();
        view->restAt(x, y);
        paint(*view);
        view->handleGestureStart(scale, 0.0);
        calls();
        return view;
    }
    // A pixel of the frame before the pinch.
    static uint32_t before(TestExcel& view, int column, int row) {
        return view.mLastFrame.Pixels()[row * 320 + column];
    }
};

TEST_F(ExcelPinchTest, RequestIsHeldToTheZoomLimits) {
    const auto view = openView();
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handleGestureChange(10.0, 0.0));
    EXPECT_EQ(view->mGestureRequestScale, 2.0);
    EXPECT_TRUE(view->handleGestureChange(0.1, 0.0));
    EXPECT_EQ(view->mGestureRequestScale, 0.5);
    EXPECT_TRUE(view->handleGestureChange(1.25, 0.0));
    EXPECT_EQ(view->mGestureRequestScale, 1.25);
}

TEST_F(ExcelPinchTest, SheetCannotBecomeSmallerThanTheScreen) {
    fakeSheet().sheets[0].columns = 5; // 400 pixels
    const auto view = openView();
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(0.8, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 0.8) << "320 pixels";
    view->handleGestureChange(0.79, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 0.8) << "as it was";
    fakeSheet().sheets[0] = {u"", 50, 15}; // 600 pixels high
    view->resizeDocument();
    view->handleGestureChange(0.79, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 0.8);
    view->handleGestureChange(0.81, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 0.81);
}

TEST_F(ExcelPinchTest, SheetSmallerThanTheScreenGrowsOnlyToCoverIt) {
    fakeSheet().sheets[0].columns = 2; // 160 pixels
    const auto view = openView();
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(1.9, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 1.0);
    view->handleGestureChange(2.0, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 2.0);
}

TEST_F(ExcelPinchTest, SizesAreComparedInSinglePrecision) {
    const auto view = openView();
    view->mScale = 3.0;
    view->mSheetWidth = 640;
    view->mSheetHeight = 960;
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(0.5 - 1e-12, 0.0);
    EXPECT_LT(view->mGestureRequestScale, 0.5);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(0.5 - 1e-6, 0.0);
    EXPECT_EQ(view->mGestureRequestScale, 1.0);
}

TEST_F(ExcelPinchTest, ZoomingInShowsTheLastFrameAboutTheSheetsMiddle) {
    const auto view = pinchedView(1900, 3700, 2.0);
    const Frame picture = paint(*view);
    // The sheet's middle is at (100, 300) on the screen; half of the screen is
    // taken around it.
    for (int row = 0; row < 480; row += 5) {
        for (int column = 0; column < 320; ++column) {
            ASSERT_EQ(picture.at(column, row), before(*view, 20 + column / 2, 180 + row / 2));
        }
    }
    EXPECT_EQ(view->mGestureScroll, CpPoint((1900 + 20) * 2, (3700 + 180) * 2));
    EXPECT_EQ(view->mGestureAppliedScale, 2.0);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelPinchTest, ZoomingInStaysInsideTheLastFrame) {
    auto view = pinchedView(0, 3990, 2.0);
    Frame picture = paint(*view);
    EXPECT_EQ(picture.at(0, 0), before(*view, 160, 0)) << "right, and top";
    EXPECT_EQ(view->mGestureScroll, CpPoint(320, 7980));
    view = pinchedView(2500, 100, 2.0);
    picture = paint(*view);
    EXPECT_EQ(picture.at(0, 0), before(*view, 0, 240)) << "left, and bottom";
    EXPECT_EQ(picture.at(319, 479), before(*view, 159, 479));
    EXPECT_EQ(view->mGestureScroll, CpPoint(5000, 680));
}

TEST_F(ExcelPinchTest, ZoomingOutShowsTheLastFrameInTheMiddle) {
    const auto view = pinchedView(1001, 1003, 0.5);
    const Frame picture = paint(*view);
    for (int row = 0; row < 480; row += 3) {
        for (int column = 0; column < 320; ++column) {
            const bool inside = column >= 80 && column < 240 && row >= 120 && row < 360;
            ASSERT_EQ(picture.at(column, row),
                      inside ? before(*view, 2 * (column - 80), 2 * (row - 120)) : BLACK)
                << column << ", " << row;
        }
    }
    EXPECT_EQ(view->mGestureScroll, CpPoint(500 - 80, 501 - 120)) << "500.5 and 501.5 are cut";
    EXPECT_EQ(view->mGestureAppliedScale, 0.5);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelPinchTest, ZoomingOutNearTheStartShiftsTowardsIt) {
    // Half of the shrunk view, 80 x 120, extends beyond the edges by 50 x 20.
    const auto view = pinchedView(30, 100, 0.5);
    const Frame picture = paint(*view);
    EXPECT_EQ(picture.at(80 - 25 - 1, 240), BLACK);
    EXPECT_EQ(picture.at(80 - 25, 120 - 10), before(*view, 0, 0));
    EXPECT_EQ(picture.at(160, 120 - 10 - 1), BLACK);
    EXPECT_EQ(view->mGestureScroll, CpPoint(15 - 55, 50 - 110));
}

TEST_F(ExcelPinchTest, ZoomingOutNearTheEndShiftsTowardsIt) {
    // 4000 - 3650 - 320 = 30 and 8000 - 7420 - 480 = 100 remain.
    const auto view = pinchedView(3650, 7420, 0.5);
    const Frame picture = paint(*view);
    EXPECT_EQ(picture.at(80 + 25 - 1, 240), BLACK);
    EXPECT_EQ(picture.at(80 + 25, 120 + 10), before(*view, 0, 0));
    EXPECT_EQ(picture.at(160, 120 + 10 - 1), BLACK);
    EXPECT_EQ(view->mGestureScroll, CpPoint(1825 - 105, 3710 - 130));
}

TEST_F(ExcelPinchTest, ReachingTheEdgeExactlyShiftsNothing) {
    const auto view = pinchedView(80, 120, 0.5);
    paint(*view);
    EXPECT_EQ(view->mGestureScroll, CpPoint(40 - 80, 60 - 120));
}

TEST_F(ExcelPinchTest, UnchangedPinchShowsTheLastFrame) {
    const auto view = pinchedView(500, 600, 1.0);
    view->mGestureAppliedScale = 1.5; // of an earlier frame of the pinch
    const Frame picture = paint(*view);
    for (int row = 0; row < 480; row += 5) {
        for (int column = 0; column < 320; ++column) {
            ASSERT_EQ(picture.at(column, row), before(*view, column, row));
        }
    }
    EXPECT_EQ(view->mGestureAppliedScale, 1.0);
    EXPECT_EQ(view->mGestureScroll, CpPoint(500, 600));
}

TEST_F(ExcelPinchTest, PreviewIsNotKeptAsTheLastFrame) {
    const auto view = pinchedView(1000, 1000, 0.5);
    const uint32_t pixel = before(*view, 0, 100);
    paint(*view);
    paint(*view);
    EXPECT_EQ(before(*view, 0, 100), pixel);
}

TEST_F(ExcelPinchTest, EndTakesTheShownScaleOver) {
    const auto view = pinchedView(1900, 3700, 1.5);
    paint(*view);
    const CpPoint shown = view->mGestureScroll;
    EXPECT_TRUE(view->handleGestureEnd(9.0, 9.0));
    EXPECT_EQ(view->mScale, 3.0);
    EXPECT_EQ(view->mScroll, shown);
    EXPECT_EQ(fakeSheet().dpi, 216);
    EXPECT_EQ(window(*view).Left(), shown.x - 750 + 160);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
}

TEST_F(ExcelPinchTest, EndWithoutAChangeDoesNothing) {
    const auto view = pinchedView(500, 600, 1.0);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_EQ(view->mScroll, CpPoint(500, 600));
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(ExcelPinchTest, FirstFramesScaleIsBoundedByWhatModulesBear) {
    auto view = pinchedView(500, 600, 1000.0);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_EQ(view->mScale, 64.0);
    EXPECT_EQ(fakeSheet().dpi, 64 * 72);
    paint(*view);
    view = pinchedView(500, 600, 0.001);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_EQ(view->mScale, 1.0 / 16);
    paint(*view);
}

} // namespace
