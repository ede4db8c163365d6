// SPDX-License-Identifier: Apache-2.0
// Flicks, and the end of glides.
#include "tests/unit/excel/ExcelTest.h"

namespace {

class ExcelGlideTest : public ExcelTest {
protected:
    static constexpr const char* SIZING = "stg_set_offscreen_buffer(0, 1500, 1500)";

    TestClock clock;
};

TEST_F(ExcelGlideTest, FlickStartsAGlideAndAsksForNoPaint) {
    const auto view = openView();
    view->mFlickUp = false;
    EXPECT_TRUE(view->handleFlick(0, -862));
    EXPECT_TRUE(view->mScroller.isMoving());
    EXPECT_TRUE(view->mFlicking);
    EXPECT_FALSE(view->mFlickUp) << "the direction is nothing to a sheet";
    EXPECT_THAT(notifications(*view), IsEmpty());
    clock.advance(10.0);
    view->tick();
    EXPECT_EQ(view->mScroll, CpPoint(0, 430));
}

TEST_F(ExcelGlideTest, FlickWithoutVelocityIsNone) {
    const auto view = openView();
    EXPECT_FALSE(view->handleFlick(0, 0));
    EXPECT_FALSE(view->tick());
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
}

TEST_F(ExcelGlideTest, NothingDuringAPinch) {
    const auto view = openView();
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handleFlick(0, -862));
    EXPECT_FALSE(view->mScroller.isMoving());
    EXPECT_FALSE(view->mFlicking);
}

TEST_F(ExcelGlideTest, EachStepAsksForTheNextPaintAndRendersNothing) {
    const auto view = openView();
    view->handleFlick(0, -862);
    clock.advance(0.5);
    EXPECT_TRUE(view->tick());
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
    EXPECT_GT(view->mScroll.y, 0);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelGlideTest, ComingToRestMovesTheWindowAndSizes) {
    const auto view = openView();
    view->mScroll.set(1000, 2000);
    view->mOffscreenDirty = false;
    view->handleFlick(0, -862);
    clock.advance(5.0);
    EXPECT_FALSE(view->tick());
    EXPECT_EQ(view->mScroll, CpPoint(1000, 2430));
    EXPECT_EQ(window(*view), CpRect(410, 1920, 1910, 3420));
    EXPECT_EQ(calls().front(), SIZING);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED)) << "the last step is shown too";
}

TEST_F(ExcelGlideTest, AtRestATickDoesNothing) {
    const auto view = openView();
    view->mScroll.set(-50, 100000);
    EXPECT_FALSE(view->tick());
    EXPECT_EQ(view->mScroll, CpPoint(-50, 100000)) << "clamping is the paint's";
    EXPECT_THAT(notifications(*view), IsEmpty());
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelGlideTest, CornerStopsTheGlide) {
    const auto view = openView();
    view->mScroll.set(3700, 7500);
    view->handleFlick(-862, -862);
    clock.advance(0.7);
    EXPECT_FALSE(view->tick());
    EXPECT_EQ(view->mScroll, CpPoint(3740, 7550));
    EXPECT_EQ(calls().front(), SIZING);
}

TEST_F(ExcelGlideTest, OneEdgeLetsItGoOnAlongTheOther) {
    const auto view = openView();
    view->mScroll.set(3700, 1000);
    view->handleFlick(-862, -862);
    clock.advance(0.7);
    EXPECT_TRUE(view->tick());
    EXPECT_EQ(view->mScroll.x, 3740);
    EXPECT_GT(view->mScroll.y, 1000);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelGlideTest, WhileItMovesTheOldWindowIsShown) {
    const auto view = openView();
    paint(*view);
    const int64_t renders = fakeSheet().renders;
    view->handleFlick(0, -2000);
    clock.advance(0.5);
    view->mOffscreenDirty = true;
    const Frame picture = paint(*view);
    EXPECT_EQ(fakeSheet().renders, renders);
    EXPECT_TRUE(view->mOffscreenDirty);
    expectSheet(*view, picture);
    clock.advance(20.0);
    paint(*view);
    EXPECT_EQ(fakeSheet().renders, renders + 1);
    EXPECT_FALSE(view->mOffscreenDirty);
}

TEST_F(ExcelGlideTest, PenDownStopsItAndMovesTheWindow) {
    const auto view = openView();
    view->handleFlick(0, -2000);
    clock.advance(1.0);
    view->tick();
    view->mOffscreenDirty = false;
    calls();
    EXPECT_TRUE(view->handlePenDown(100, 100));
    EXPECT_FALSE(view->mScroller.isMoving());
    EXPECT_TRUE(view->mTapStoppedScroll);
    EXPECT_EQ(calls().front(), SIZING);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_EQ(window(*view).Top(), view->mScroll.y - 750 + 240);
}

TEST_F(ExcelGlideTest, PenDownDuringAPinchStopsItToo) {
    const auto view = openView();
    view->handleFlick(0, -2000);
    view->handleGestureStart(1.0, 0.0);
    EXPECT_FALSE(view->handlePenDown(100, 100));
    EXPECT_FALSE(view->mScroller.isMoving());
    EXPECT_TRUE(view->mTapStoppedScroll);
    EXPECT_FALSE(view->mPenDown);
}

TEST_F(ExcelGlideTest, PurelySidewaysGlideRestsButStaysMoving) {
    const auto view = openView();
    view->handleFlick(-862, 0);
    clock.advance(60.0);
    EXPECT_TRUE(view->tick());
    EXPECT_EQ(view->mScroll, CpPoint(430, 0));
    EXPECT_TRUE(view->tick());
    EXPECT_EQ(view->mScroll, CpPoint(430, 0));
    view->handlePenDown(100, 100);
    EXPECT_FALSE(view->mScroller.isMoving());
}

} // namespace
