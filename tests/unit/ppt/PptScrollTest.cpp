// SPDX-License-Identifier: Apache-2.0
// Pens, flicks, and changes of the slide.
#include "tests/unit/ppt/PptTest.h"

namespace {

class PptScrollTest : public PptTest {
protected:
    // The slide has 1280 x 960 pixels, so the view can go to (960, 480).
    static std::unique_ptr<TestPpt> zoomedView() {
        auto view = openView();
        view->zoomTo(2.0);
        view->mScroll.set(100, 100);
        paint(*view);
        notifications(*view);
        return view;
    }
};

TEST_F(PptScrollTest, SlideFollowsThePen) {
    const auto view = zoomedView();
    view->handlePenDown(200, 200);
    view->handlePenMove(150, 260);
    EXPECT_EQ(view->mScroll, CpPoint(150, 40));
    view->handlePenMove(150, 1000);
    EXPECT_EQ(view->mScroll, CpPoint(150, 0));
    view->handlePenUp(190, 190);
    EXPECT_EQ(view->mScroll, CpPoint(110, 110));
}

TEST_F(PptScrollTest, FlickGlidesOnAndAsksForNoPaint) {
    const TestClock clock;
    const auto view = zoomedView();
    EXPECT_TRUE(view->handleFlick(0, -862));
    EXPECT_TRUE(view->mScroller.isMoving());
    EXPECT_THAT(notifications(*view), IsEmpty()) << "the caller asks";
    EXPECT_FALSE(view->mFlicking);
    TestClock::advance(1.0);
    paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(100, 423)) << "100 + 431 - 107.8";
    EXPECT_THAT(notifications(*view), ElementsAre("0 0")) << "the glide goes on";
    TestClock::advance(5.0);
    paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(100, 480)) << "one edge does not end it, the clock does";
    EXPECT_FALSE(view->mScroller.isMoving());
}

TEST_F(PptScrollTest, GlideAlongOneEdgeGoesOn) {
    const TestClock clock;
    const auto view = zoomedView();
    view->handleFlick(2000, -400);
    TestClock::advance(0.3);
    paint(*view);
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_TRUE(view->mScroller.isMoving());
}

TEST_F(PptScrollTest, GlideEndsInACorner) {
    const TestClock clock;
    const auto view = zoomedView();
    view->handleFlick(2000, 2000);
    TestClock::advance(1.0);
    paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
    EXPECT_FALSE(view->mScroller.isMoving());
}

TEST_F(PptScrollTest, SlideInTheMiddleOfTheViewDoesNotGlide) {
    const TestClock clock;
    fakeSlides().width = 1280; // 320 x 120
    const auto view = openView();
    view->zoomTo(0.2); // smaller than the view in both directions
    paint(*view);
    view->handleFlick(300, 300);
    TestClock::advance(0.1);
    paint(*view);
    EXPECT_FALSE(view->mScroller.isMoving());
    EXPECT_EQ(view->mScroll, CpPoint((256 - 320) / 2, (96 - 480) / 2));
}

TEST_F(PptScrollTest, FlicksDuringAPinchAreIgnored) {
    const auto view = zoomedView();
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handleFlick(0, -862));
    EXPECT_FALSE(view->mScroller.isMoving());
}

TEST_F(PptScrollTest, FlicksDoNotTurnToOtherSlides) {
    const auto view = openDeck(3);
    paint(*view);
    view->handleFlick(-5000, 1);
    paint(*view);
    EXPECT_EQ(view->mCurrentSlide, 0);
}

TEST_F(PptScrollTest, JumpShowsTheSlideAndTellsTheClient) {
    const auto view = openDeck(5);
    paint(*view);
    calls();
    view->zoomTo(1.5);
    view->mScroll.set(33, 44);
    view->mOffscreenDirty = false;
    EXPECT_EQ(view->jumpToSlide(3), 3);
    EXPECT_EQ(view->mCurrentSlide, 3);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre("7 3"));
    EXPECT_EQ(view->mScroll, CpPoint(33, 44));
    EXPECT_EQ(view->mScale, 1.5);
    EXPECT_THAT(calls(), IsEmpty()) << "rendered by the next paint";
    Frame frame = paint(*view);
    expectSlide(*view, frame);
}

TEST_F(PptScrollTest, JumpsBeyondTheDeckGoToItsEnds) {
    const auto view = openDeck(5);
    EXPECT_EQ(view->jumpToSlide(-3), 0);
    EXPECT_EQ(view->jumpToSlide(5), 4);
    EXPECT_EQ(view->jumpToSlide(5 + 5), 4);
    EXPECT_EQ(view->jumpToSlide(INT_MIN), 0);
    EXPECT_EQ(view->jumpToSlide(INT_MAX), 4);
    EXPECT_THAT(notifications(*view), ElementsAre("7 0", "7 4", "7 4", "7 0", "7 4"));
}

TEST_F(PptScrollTest, JumpToTheSlideShownIsToldToo) {
    const auto view = openDeck(5);
    EXPECT_EQ(view->jumpToSlide(0), 0);
    EXPECT_THAT(notifications(*view), ElementsAre("7 0"));
}

} // namespace
