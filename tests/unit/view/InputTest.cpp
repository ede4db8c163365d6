// SPDX-License-Identifier: Apache-2.0
#include "ProbeView.h"
#include "TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A 40x60 view of a 400x600 document.
class Input : public testing::Test {
protected:
    void SetUp() override {
        view.mDocPixmap = &surface;
        view.mScroll.set(100, 200);
        view.mDirty = false;
    }
    void expectScroll(int x, int y) const {
        EXPECT_EQ(view.mScroll.x, x);
        EXPECT_EQ(view.mScroll.y, y);
    }

    TestClock clock;
    CpPixmap surface{400, 600};
    ProbeView view;
};

TEST_F(Input, KeysMoveByFivePixels) {
    EXPECT_TRUE(view.handleKeyDown('a', 0));
    expectScroll(95, 200);
    EXPECT_TRUE(view.handleKeyDown('d', 0));
    EXPECT_TRUE(view.handleKeyDown('d', 0));
    expectScroll(105, 200);
    EXPECT_TRUE(view.handleKeyDown('w', 0));
    expectScroll(105, 195);
    EXPECT_TRUE(view.handleKeyDown('s', 0));
    EXPECT_TRUE(view.handleKeyDown('s', 0));
    expectScroll(105, 205);
}

TEST_F(Input, OtherKeysAndKeyUpsDoNothing) {
    for (int key = -1; key < 256; ++key) {
        if (key != 'a' && key != 'd' && key != 'w' && key != 's') {
            EXPECT_TRUE(view.handleKeyDown(key, 0));
        }
        EXPECT_TRUE(view.handleKeyUp(key, 0));
    }
    expectScroll(100, 200);
}

TEST_F(Input, KeysNeitherClampNorAskForAPaint) {
    view.mScroll.set(0, 0);
    view.handleKeyDown('a', 0);
    view.handleKeyDown('w', 0);
    expectScroll(-5, -5);
    EXPECT_THAT(view.calls, IsEmpty());
    EXPECT_FALSE(view.mDirty);
}

TEST_F(Input, KeysStopAtTheEndsOfInt) {
    view.mScroll.set(INT_MIN + 2, INT_MIN + 2);
    view.handleKeyDown('a', 0);
    view.handleKeyDown('w', 0);
    expectScroll(INT_MIN, INT_MIN);
    view.mScroll.set(INT_MAX - 2, INT_MAX - 2);
    view.handleKeyDown('d', 0);
    view.handleKeyDown('s', 0);
    expectScroll(INT_MAX, INT_MAX);
}

TEST_F(Input, PenDownRemembersWhereItWas) {
    EXPECT_TRUE(view.handlePenDown(7, 8));
    EXPECT_TRUE(view.mPenDown);
    EXPECT_EQ(view.mPenDownPoint.x, 7);
    EXPECT_EQ(view.mPenDownPoint.y, 8);
    EXPECT_EQ(view.mPenDownScroll.x, 100);
    EXPECT_EQ(view.mPenDownScroll.y, 200);
    EXPECT_FALSE(view.mTapStoppedScroll);
    expectScroll(100, 200);
}

TEST_F(Input, DocumentFollowsThePen) {
    view.handlePenDown(10, 10);
    EXPECT_TRUE(view.handlePenMove(4, 25));
    expectScroll(106, 185);
    EXPECT_TRUE(view.handlePenMove(12, 8)); // from the pen down, not from the previous move
    expectScroll(98, 202);
    EXPECT_TRUE(view.handlePenUp(0, 0));
    expectScroll(110, 210);
    EXPECT_FALSE(view.mPenDown);
    EXPECT_FALSE(view.mDirty);
}

TEST_F(Input, DraggingStaysWithTheDocument) {
    view.handlePenDown(10, 10);
    view.handlePenMove(5000, 5000);
    expectScroll(0, 0);
    view.handlePenMove(-5000, -5000);
    expectScroll(360, 540);
}

TEST_F(Input, MovesWithoutAPenDownDoNothing) {
    EXPECT_TRUE(view.handlePenMove(1, 1));
    EXPECT_TRUE(view.handlePenUp(2, 2));
    expectScroll(100, 200);
    EXPECT_THAT(view.calls, IsEmpty());
}

TEST_F(Input, DraggingSurvivesWildCoordinates) {
    view.mDocPixmap = nullptr;
    view.mScroll.set(INT_MAX, INT_MIN);
    view.handlePenDown(INT_MAX, INT_MIN);
    view.handlePenMove(INT_MIN, INT_MAX);
    expectScroll(INT_MAX, INT_MIN);
    view.handlePenUp(INT_MIN, INT_MAX);
    expectScroll(INT_MAX, INT_MIN);
}

TEST_F(Input, PenUpAfterAClickMovesNothing) {
    view.handlePenDown(10, 10);
    EXPECT_FALSE(view.handleClick(10, 10));
    EXPECT_TRUE(view.mClicked);
    view.handlePenUp(0, 0);
    expectScroll(100, 200);
    EXPECT_FALSE(view.mClicked);
    EXPECT_FALSE(view.mPenDown);
}

TEST_F(Input, PenUpAfterAFlickMovesNothing) {
    view.handlePenDown(10, 10);
    view.handleFlick(0, -100);
    EXPECT_TRUE(view.mFlicking);
    view.handlePenUp(0, 0);
    expectScroll(100, 200);
    EXPECT_FALSE(view.mFlicking);
    EXPECT_FALSE(view.mPenDown);
    EXPECT_TRUE(view.mScroller.isMoving());
}

TEST_F(Input, PenUpClearsTheFlagsInEveryCase) {
    view.mFlicking = view.mClicked = true;
    view.mGestureActive = true;
    EXPECT_TRUE(view.handlePenUp(0, 0));
    EXPECT_FALSE(view.mFlicking);
    EXPECT_FALSE(view.mClicked);
    EXPECT_FALSE(view.mPenDown);
    EXPECT_TRUE(view.mGestureActive);
}

TEST_F(Input, ClickIsNotUsedByTheView) {
    EXPECT_FALSE(view.handleClick(1, 1));
    EXPECT_TRUE(view.mClicked);
}

TEST_F(Input, TapThatStopsAGlideIsUsedUpByThat) {
    view.handleFlick(0, -862);
    clock.advance(0.5);
    view.tick();
    const int y = view.mScroll.y;
    EXPECT_GT(y, 200);
    view.handlePenDown(5, 5);
    EXPECT_FALSE(view.mScroller.isMoving());
    EXPECT_TRUE(view.mTapStoppedScroll);
    EXPECT_EQ(view.mPenDownScroll.y, y);
    EXPECT_TRUE(view.handleClick(5, 5));
    EXPECT_FALSE(view.mTapStoppedScroll);
    EXPECT_FALSE(view.handleClick(5, 5));
}

TEST_F(Input, StoppedGlideIsRememberedUntilTheNextClick) {
    view.handleFlick(0, -862);
    view.handlePenDown(5, 5);
    view.handlePenUp(5, 5);
    view.handlePenDown(9, 9); // nothing left to stop
    EXPECT_TRUE(view.handleClick(9, 9));
    view.handlePenUp(9, 9);
    view.handlePenDown(9, 9);
    EXPECT_FALSE(view.handleClick(9, 9));
}

// The worker and the bus handlers hold the view's mutex, which is not recursive.
TEST_F(Input, PensAndClicksLeaveTheLockToTheirCallers) {
    ASSERT_EQ(pthread_mutex_trylock(view.mutex()), 0);
    EXPECT_TRUE(view.handlePenDown(5, 5));
    EXPECT_TRUE(view.handlePenMove(4, 4));
    EXPECT_FALSE(view.handleClick(4, 4));
    EXPECT_TRUE(view.handlePenUp(4, 4));
    EXPECT_EQ(pthread_mutex_trylock(view.mutex()), EBUSY);
    pthread_mutex_unlock(view.mutex());
}

TEST_F(Input, FlickStartsAGlideFromTheScrollPosition) {
    EXPECT_TRUE(view.handleFlick(0, -862));
    EXPECT_TRUE(view.mScroller.isMoving());
    EXPECT_TRUE(view.mFlickUp);
    EXPECT_TRUE(view.mDirty);
    clock.advance(100.0);
    EXPECT_FALSE(view.tick());
    expectScroll(100, 540); // 630 clamped: the document ends at 600
}

TEST_F(Input, FlickDirectionIsTheLastFlicks) {
    view.handleFlick(0, -1);
    EXPECT_TRUE(view.mFlickUp);
    view.handleFlick(0, 0);
    EXPECT_FALSE(view.mFlickUp);
    view.handleFlick(0, 1);
    EXPECT_FALSE(view.mFlickUp);
}

TEST_F(Input, FlickWithoutVelocityMovesNothing) {
    view.handleFlick(0, 0);
    EXPECT_FALSE(view.mScroller.isMoving());
    clock.advance(1.0);
    EXPECT_FALSE(view.tick());
    expectScroll(100, 200);
}

TEST_F(Input, GlideGoesOnAlongASingleEdge) {
    view.handleFlick(-2000, -300);
    clock.advance(1.0);
    EXPECT_TRUE(view.tick());
    EXPECT_EQ(view.mScroll.x, 360); // the right edge
    EXPECT_TRUE(view.mScroller.isMoving());
    EXPECT_LT(view.mScroll.y, 540);
}

TEST_F(Input, GlideEndsInACorner) {
    view.handleFlick(-20000, -20000);
    clock.advance(1.0);
    EXPECT_FALSE(view.tick());
    expectScroll(360, 540);
    EXPECT_FALSE(view.mScroller.isMoving());
}

TEST_F(Input, DraggingIntoACornerEndsAGlide) {
    view.handlePenDown(10, 10);
    view.handleFlick(0, -862);
    view.handlePenMove(0, 5000);
    EXPECT_TRUE(view.mScroller.isMoving());
    view.handlePenMove(5000, 5000);
    EXPECT_FALSE(view.mScroller.isMoving());
}

TEST_F(Input, TickClampsAViewAtRestToo) {
    view.mScroll.set(-7, 100);
    EXPECT_FALSE(view.tick());
    expectScroll(0, 100);
    EXPECT_FALSE(view.mDirty);
}

TEST_F(Input, DoubleTapsCycleThroughThreeScales) {
    const double scales[] = {2.5, 3.25, 1.75, 2.5};
    const int levels[] = {1, 2, 0, 1};
    for (int tap = 0; tap < 4; ++tap) {
        EXPECT_TRUE(view.handleDoubleClick(20, 30));
        EXPECT_EQ(view.mScale, scales[tap]);
        EXPECT_EQ(view.mScaleLevel, levels[tap]);
    }
}

TEST_F(Input, DoubleTapTakesItsStepsFromTheViewsLimits) {
    view.mMinScale = 0.5;
    view.mMaxScale = 1.5;
    view.handleDoubleClick(20, 30);
    EXPECT_EQ(view.mScale, 1.0);
}

TEST_F(Input, DoubleTapLaysOutAgainWithTheViewLocked) {
    view.mOffscreenDirty = false;
    view.handleDoubleClick(20, 30);
    EXPECT_THAT(view.calls, ElementsAre("recenterDocument locked", "resizeDocument locked",
                                        "ReinitSearchRects locked", "clampPosition"));
    EXPECT_TRUE(view.mOffscreenDirty);
    EXPECT_TRUE(view.mClicked);
    EXPECT_TRUE(view.mDirty);
}

TEST_F(Input, DoubleTapLaysOutForTheNewScaleBeforeItMoves) {
    view.handleDoubleClick(20, 30);
    EXPECT_EQ(view.scaleAtLayout, 2.5);
    EXPECT_EQ(view.scrollAtLayout.x, 100);
    EXPECT_EQ(view.scrollAtLayout.y, 200);
}

TEST_F(Input, DoubleTapBringsTheTappedPointToTheCentre) {
    CpPixmap zoomed(1000, 1500);
    view.mDocPixmap = &zoomed;
    view.handleDoubleClick(12, 34);
    expectScroll(280 - 20, 585 - 30); // 2.5 * 112, 2.5 * 234
}

TEST_F(Input, DoubleTapTakesTheRatioInSinglePrecision) {
    CpPixmap zoomed(1000, 1500);
    view.mDocPixmap = &zoomed;
    view.mScale = 2.5;
    view.mScaleLevel = 1;
    view.mScroll.set(88, 166);
    view.handleDoubleClick(12, 34); // 1.3 is a little less in single precision: 129.99..., 259.99...
    expectScroll(129 - 20, 259 - 30);
}

TEST_F(Input, DoubleTapHalvesOddViewsTowardZero) {
    ProbeView odd(41, 61);
    CpPixmap zoomed(1000, 1500);
    odd.mDocPixmap = &zoomed;
    odd.handleDoubleClick(40, 60);
    EXPECT_EQ(odd.mScroll.x, 100 - 20);
    EXPECT_EQ(odd.mScroll.y, 150 - 30);
}

TEST_F(Input, DoubleTapTruncatesAPositionBesideASmallDocumentTowardZero) {
    CpPixmap small(10, 12);
    view.mDocPixmap = &small;
    view.mScroll.set(0, 0);
    view.handleDoubleClick(1, 1);
    expectScroll(-17, -27); // 2.5 - 20 and 2.5 - 30
}

TEST_F(Input, DoubleTapInACornerClampsAndEndsAGlide) {
    view.handleFlick(0, -862);
    view.mScroll.set(0, 0);
    view.handleDoubleClick(0, 0);
    expectScroll(0, 0);
    EXPECT_FALSE(view.mScroller.isMoving());
}

TEST_F(Input, DoubleTapSurvivesPositionsAtTheEndsOfInt) {
    view.mDocPixmap = nullptr;
    view.mScroll.set(INT_MAX, INT_MIN);
    view.handleDoubleClick(INT_MAX, INT_MIN);
    expectScroll(INT_MAX, INT_MIN);
}

// A pinch makes the view ignore all other input.
TEST_F(Input, PinchFreezesPensClicksAndFlicks) {
    view.handlePenDown(10, 10);
    view.handleGestureStart(1.0, 0.0);
    view.handlePenMove(0, 0);
    EXPECT_TRUE(view.handleClick(1, 1));
    EXPECT_FALSE(view.mClicked);
    EXPECT_TRUE(view.handleDoubleClick(1, 1));
    EXPECT_FALSE(view.mClicked);
    EXPECT_EQ(view.mScale, 1.0);
    EXPECT_TRUE(view.handleFlick(100, 100));
    EXPECT_FALSE(view.mFlicking);
    EXPECT_FALSE(view.mScroller.isMoving());
    view.handlePenUp(0, 0);
    expectScroll(100, 200);
    EXPECT_FALSE(view.mPenDown);
    view.handlePenDown(3, 3);
    EXPECT_FALSE(view.mPenDown);
    EXPECT_EQ(view.mPenDownPoint.x, 10);
    EXPECT_THAT(view.calls, IsEmpty());
}

TEST_F(Input, PenDownDuringAPinchStillStopsAGlide) {
    view.handleFlick(0, -862);
    view.handleGestureStart(1.0, 0.0);
    view.handlePenDown(3, 3);
    EXPECT_FALSE(view.mScroller.isMoving());
    EXPECT_TRUE(view.mTapStoppedScroll);
    EXPECT_FALSE(view.mPenDown);
    // The pinch uses up the tap, so a click in it has no effect.
    EXPECT_TRUE(view.handleClick(3, 3));
    EXPECT_TRUE(view.mTapStoppedScroll);
}

} // namespace
