// SPDX-License-Identifier: Apache-2.0
// Upright pictures.
#include "tests/unit/ppt/PptTest.h"

#include <cstring>

namespace {

class PptPaintTest : public PptTest {};

TEST_F(PptPaintTest, SlideLiesInTheMiddleOnBlack) {
    const auto view = openView();
    Frame frame = paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(0, -120));
    EXPECT_EQ(frame[119 * 320], BLACK);
    EXPECT_EQ(frame[120 * 320], fakeSlidePixel(0, 0, 0));
    EXPECT_EQ(frame[359 * 320 + 319], fakeSlidePixel(0, 319, 239));
    EXPECT_EQ(frame[360 * 320], BLACK);
    expectSlide(*view, frame);
    EXPECT_TRUE(frame.slackIsUntouched());
}

TEST_F(PptPaintTest, RendersOnceUntilSomethingChanges) {
    const auto view = openDeck(2);
    paint(*view);
    EXPECT_FALSE(view->mOffscreenDirty);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(0, 0, 320, 240)"));
    paint(*view);
    view->handlePenDown(10, 10);
    view->handlePenMove(50, 60);
    paint(*view);
    EXPECT_THAT(calls(), IsEmpty());
    view->jumpToSlide(1);
    paint(*view);
    EXPECT_THAT(calls(), ElementsAre("sstg_render_slide(1, 0, 320, 240)"));
}

TEST_F(PptPaintTest, NothingIsPaintedTwiceWithoutAChange) {
    const auto view = openView();
    paint(*view);
    Frame frame(320, 480);
    view->handlePaintRouter(frame.pixels());
    EXPECT_TRUE(frame.isUntouched());
}

TEST_F(PptPaintTest, ZoomedSlideShowsThePartScrolledTo) {
    const auto view = openView();
    view->zoomTo(2.0);
    view->mScroll.set(700, 333);
    Frame frame = paint(*view);
    EXPECT_EQ(frame[0], fakeSlidePixel(0, 700, 333));
    expectSlide(*view, frame);
    view->mScroll.set(5000, -5);
    frame = paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(960, 0));
    expectSlide(*view, frame);
}

TEST_F(PptPaintTest, LastFrameIsWhatWasPainted) {
    const auto view = openView();
    Frame frame = paint(*view);
    EXPECT_EQ(std::memcmp(view->mLastFrame.Pixels(), frame.pixels(), frame.size() * 4), 0);
}

TEST_F(PptPaintTest, ModulesCodeIsPassedOnAndTheSurfaceCountsAsRendered) {
    const auto view = openView();
    fakeSlides().nextResults["sstg_render_slide"] = {9};
    EXPECT_EQ(view->drawOffscreenBuffer(), 9);
    EXPECT_FALSE(view->mOffscreenDirty);
    EXPECT_EQ(view->renderResult(), 9);
    EXPECT_EQ(view->drawOffscreenBuffer(), 0);
    EXPECT_EQ(view->renderResult(), 0);
}

TEST_F(PptPaintTest, SmallSlideOfOddSizeIsCentred) {
    fakeSlides().width = 1000;
    fakeSlides().height = 333;
    const auto view = openView(101, 99);
    EXPECT_EQ(surfaceSize(*view), CpPoint(102, 34));
    Frame frame = paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(0, -32)) << "half of 34 - 99";
    expectSlide(*view, frame);
}

TEST_F(PptPaintTest, WhatCannotBeRenderedLeavesTheLastFrame) {
    const auto view = openView();
    Frame before = paint(*view);
    fakeSlides().results["sstg_render_slide"] = 10;
    view->handleDoubleClick(100, 100);
    Frame after = paint(*view);
    EXPECT_EQ(view->renderResult(), 10);
    EXPECT_EQ(std::memcmp(after.pixels(), before.pixels(), before.size() * 4), 0);
    view->handleDoubleClick(100, 100);
    after = paint(*view);
    EXPECT_EQ(std::memcmp(after.pixels(), before.pixels(), before.size() * 4), 0);

    fakeSlides().results["sstg_render_slide"] = 0;
    after = paint(*view);
    EXPECT_EQ(view->renderResult(), 0);
    EXPECT_NE(std::memcmp(after.pixels(), before.pixels(), before.size() * 4), 0) << "both zooms";
}

} // namespace
