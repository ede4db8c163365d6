// SPDX-License-Identifier: Apache-2.0
// Devices held sideways or upside down.
#include "tests/unit/ppt/PptTest.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace {

class PptFitWideTest : public PptTest {
protected:
    // The frame's index of a pixel of the source, which has w * h pixels.
    using Formula = std::function<long(long x, long y, long w, long h)>;

    // Paints in a mode and compares every pixel, including those beyond the frame.
    static void expectTurned(const char* mode, int width, int height, const Formula& formula) {
        const auto view = openView(width, height);
        view->setFitWideMode(mode);
        view->mScroll.set(7, 9); // has no effect
        Frame expected(width, height);
        expected.fill(BLACK);
        const int right = std::min(height, view->mSurface->Width());
        const int bottom = std::min(width, view->mSurface->Height());
        for (int y = 0; y < bottom; ++y) {
            for (int x = 0; x < right; ++x) {
                expected[formula(x, y, height, width)] = fakeSlidePixel(0, x, y);
            }
        }
        EXPECT_TRUE(paint(*view) == expected) << mode << ' ' << width << 'x' << height;
    }
};

TEST_F(PptFitWideTest, SidesFitTheSlideToTheViewsHeight) {
    for (const auto& [mode, drawMode] : {std::pair("right", _RIGHT), std::pair("left", _LEFT)}) {
        const auto view = openView();
        paint(*view);
        calls();
        view->mOffscreenDirty = false;
        view->setFitWideMode(mode);
        EXPECT_EQ(view->mDrawMode, drawMode);
        EXPECT_EQ(view->mScale, 0.75) << "480 of 640";
        EXPECT_EQ(surfaceSize(*view), CpPoint(480, 360));
        EXPECT_EQ(view->mMinScale, 0.5) << "the limits stay";
        EXPECT_TRUE(view->mOffscreenDirty);
        EXPECT_TRUE(view->mDirty);
        EXPECT_THAT(notifications(*view), ElementsAre("0 0"));
        EXPECT_THAT(calls(), IsEmpty());
        paint(*view);
        EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(0, 0, 480, 360)"));
    }
}

TEST_F(PptFitWideTest, DownKeepsTheZoomThatFits) {
    const auto view = openView();
    view->zoomTo(1.5);
    view->setFitWideMode("down");
    EXPECT_EQ(view->mDrawMode, _DOWN);
    EXPECT_EQ(view->mScale, 0.5);
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 240));
}

TEST_F(PptFitWideTest, AnyOtherTextIsUpright) {
    const auto view = openView();
    for (const char* text : {"", "up", "Right", "LEFT", "right ", " left", "downwards", "normal", "\xff"}) {
        view->setFitWideMode("left");
        view->setFitWideMode(text);
        EXPECT_EQ(view->mDrawMode, _NORMAL) << text;
        EXPECT_EQ(view->mScale, 0.5) << text;
        view->zoomTo(1.5);
        view->setFitWideMode(text);
        EXPECT_EQ(view->mDrawMode, _NORMAL) << text;
        EXPECT_EQ(view->mScale, 0.5) << text << ", from upright";
    }
}

TEST_F(PptFitWideTest, NoTextGoesToAndFro) {
    const auto view = openView();
    view->setFitWideMode(nullptr);
    EXPECT_EQ(view->mDrawMode, _WIDE);
    EXPECT_EQ(view->mScale, 0.75);
    EXPECT_EQ(surfaceSize(*view), CpPoint(480, 360));
    view->setFitWideMode(nullptr);
    EXPECT_EQ(view->mDrawMode, _NORMAL);
    EXPECT_EQ(view->mScale, 0.5);
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 240));
    for (const char* turned : {"left", "right", "down"}) {
        view->setFitWideMode(turned);
        view->setFitWideMode(nullptr);
        EXPECT_EQ(view->mDrawMode, _NORMAL) << turned;
        EXPECT_EQ(view->mScale, 0.5) << turned;
    }
}

TEST_F(PptFitWideTest, PlaceSlideAndStepAreKept) {
    const auto view = openDeck(3);
    view->jumpToSlide(2);
    view->mScroll.set(12, 34);
    view->mScaleLevel = 2;
    view->setFitWideMode("right");
    view->setFitWideMode("");
    EXPECT_EQ(view->mScroll, CpPoint(12, 34));
    EXPECT_EQ(view->mScaleLevel, 2);
    EXPECT_EQ(view->mCurrentSlide, 2);
}

TEST_F(PptFitWideTest, TurnedToTheRightTheSlideIsCopiedTurnedLeft) {
    const Formula turnedLeft = [](long x, long y, long w, long h) { return (w - x) * h + y; };
    expectTurned("right", 320, 480, turnedLeft); // 480 x 360: cut at the view's width
    expectTurned("right", 240, 400, turnedLeft);
    fakeSlides().height = 301; // 480 x 225.75, made even
    expectTurned("right", 320, 480, turnedLeft);
    expectTurned("right", 64, 64, turnedLeft);
}

TEST_F(PptFitWideTest, TurnedToTheLeftTheSlideIsCopiedTurnedRight) {
    const Formula turnedRight = [](long x, long y, long w, long h) { return x * h + (w - y); };
    expectTurned("left", 320, 480, turnedRight);
    expectTurned("left", 240, 400, turnedRight);
    fakeSlides().height = 301;
    expectTurned("left", 320, 480, turnedRight);
    expectTurned("left", 64, 64, turnedRight);
}

TEST_F(PptFitWideTest, UpsideDownTheSlideIsCopiedTurnedHalfRound) {
    const Formula halfRound = [](long x, long y, long w, long h) { return (h - y) * w + (w - x); };
    expectTurned("down", 320, 480, halfRound); // 320 x 240
    fakeSlides().height = 1200;                // 320 x 600: cut at the view's width
    expectTurned("down", 320, 480, halfRound);
    expectTurned("down", 480, 320, halfRound);
    expectTurned("down", 64, 64, halfRound);
}

TEST_F(PptFitWideTest, ToAndFroModeShowsNothing) {
    const auto view = openView();
    view->setFitWideMode(nullptr);
    Frame expected(320, 480);
    expected.fill(BLACK);
    EXPECT_TRUE(paint(*view) == expected);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(0, 0, 480, 360)"));
}

TEST_F(PptFitWideTest, GlideAndMarkPlayNoPartInATurnedPicture) {
    fakeSlides().slides[0].hits = {{{10, 10, 50, 50}}};
    const TestClock clock;
    const auto view = openView();
    view->doSearch("x");
    view->setFitWideMode("right");
    view->mScroll.set(0, 0);
    view->handleFlick(0, -1000);
    TestClock::advance(0.5);
    Frame frame = paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
    EXPECT_EQ(frame[(480 - 20) * 320 + 20], fakeSlidePixel(0, 20, 20));
}

TEST_F(PptFitWideTest, UprightPictureComesBackAfterATurnedOne) {
    const auto view = openView();
    view->setFitWideMode("left");
    paint(*view);
    view->setFitWideMode("");
    Frame frame = paint(*view);
    expectSlide(*view, frame);
    EXPECT_TRUE(frame.slackIsUntouched());
}

TEST_F(PptFitWideTest, ViewWiderThanHighFitsToItsSmallerSide) {
    const auto view = openView(480, 320);
    view->setFitWideMode("right");
    EXPECT_EQ(view->mScale, 0.5);
    EXPECT_EQ(view->mMinScale, 0.75);
    EXPECT_EQ(surfaceSize(*view), CpPoint(320, 240));
}

} // namespace
