// SPDX-License-Identifier: Apache-2.0
// The pop-up over the page.
#include "tests/unit/word/WordTest.h"

namespace {

class WordPopupTest : public WordTest {
protected:
    static std::unique_ptr<TestWord> openPopup(int width, int height, int row) {
        auto view = openView(width, height, 20000);
        scrollBy(*view, row);
        fakeWord().click = {4, 11, 12, 13};
        fakeWord().calls.clear();
        notifications(*view);
        EXPECT_TRUE(view->handleClick(7, 9));
        view->handlePenUp(7, 9);
        return view;
    }
    // Text row of the pop-up's pixmap at a point of the frame.
    static int64_t popupRow(const Frame& frame, int width, int x, int y) {
        return frame[static_cast<size_t>(y * width + x)] & 0x7FFFFF;
    }
};

TEST_F(WordPopupTest, ReferenceIsRenderedIntoAPixmapOfItsOwn) {
    for (const int type : {2, 3, 4, 5}) {
        const auto view = openView(320, 480, 20000);
        fakeWord().click = {type, 11, 12, 13};
        const int64_t layouts = fakeWord().layouts;
        EXPECT_TRUE(view->handleClick(7, 9));
        EXPECT_THAT(calls(),
                    ElementsAre("wtg_get_click_info(7, 9)", "wtg_set_offscreen_buffer(0, 280, 1000)",
                                "wtg_open_secondary_document(11, 12, 13, 950)",
                                "wtg_set_offscreen_buffer(0, 320, 1562)", "wtg_close_secondary_document()"));
        EXPECT_EQ(view->mDrawMode, _WIDE);
        EXPECT_EQ(fakeWord().layouts, layouts);
        EXPECT_THAT(notifications(*view), IsEmpty());
    }
}

TEST_F(WordPopupTest, BufferIsGivenBackInFullAlsoWhenTheTextIsShort) {
    const auto view = openView(320, 480, 300);
    fakeWord().click = {2, 0, 0, 0};
    view->handleClick(1, 1);
    EXPECT_THAT(calls(), testing::Contains("wtg_set_offscreen_buffer(0, 320, 1562)"));
}

TEST_F(WordPopupTest, PageIsDarkenedAndThePopupOnTop) {
    const auto view = openPopup(320, 480, 2000);
    const Frame frame = paint(*view);
    const auto shaded = [](uint32_t page, int times) {
        for (; times > 0; --times) {
            uint32_t result = page & 0xFF000000;
            for (const int shift : {0, 8, 16}) {
                const uint32_t old = page >> shift & 0xFF;
                result |= (((old * (255 - 0x77)) >> 8) + ((0x33 * 0x77) >> 8)) << shift;
            }
            page = result;
        }
        return page;
    };
    EXPECT_EQ(frame[3], shaded(fakeWordPixel(2000, 3), 1));
    EXPECT_EQ(frame[38 * 320 + 30], shaded(fakeWordPixel(2038, 30), 1));
    EXPECT_EQ(frame[39 * 320 + 30], shaded(fakeWordPixel(2039, 30), 2));
    EXPECT_EQ(frame[100 * 320 + 18], shaded(fakeWordPixel(2100, 18), 1));
    EXPECT_EQ(frame[100 * 320 + 19], shaded(fakeWordPixel(2100, 19), 2));
    EXPECT_EQ(frame[100 * 320 + 309], shaded(fakeWordPixel(2100, 309), 2));
    EXPECT_EQ(frame[100 * 320 + 310], shaded(fakeWordPixel(2100, 310), 1));
    EXPECT_EQ(frame[449 * 320 + 30], shaded(fakeWordPixel(2449, 30), 2));
    EXPECT_EQ(frame[450 * 320 + 30], shaded(fakeWordPixel(2450, 30), 1));
    EXPECT_EQ(frame[40 * 320 + 20], fakeSecondaryPixel(50)) << "from row 50 of its pixmap";
    EXPECT_EQ(frame[439 * 320 + 299], fakeSecondaryPixel(50 + 399));
    EXPECT_EQ(frame[439 * 320 + 300], shaded(fakeWordPixel(2439, 300), 2));
    EXPECT_EQ(frame[440 * 320 + 30], shaded(fakeWordPixel(2440, 30), 2)) << "and no further";
}

TEST_F(WordPopupTest, ScrollsToItsEndAndNotAbove) {
    const auto view = openPopup(320, 480, 2000);
    view->handlePenDown(10, 470);
    view->handlePenMove(10, 170);
    EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 350);
    view->handlePenMove(10, -900);
    EXPECT_EQ(view->mScroll.y, 2500);
    EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 550);
    EXPECT_EQ(view->mScroll.y, 2500) << "not past the end yet";
    view->handlePenMove(10, 900);
    EXPECT_EQ(view->mScroll.y, 2000);
    EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 50);
}

TEST_F(WordPopupTest, ScrollsAlsoAtTheTextsEnd) {
    const auto view = openPopup(320, 480, 30000);
    ASSERT_EQ(view->mScroll.y, 20000 - 480);
    view->handlePenDown(10, 470);
    view->handlePenMove(10, 370);
    EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 150);
}

TEST_F(WordPopupTest, PositionPastTheEndFallsBackToItsRow) {
    const auto view = openPopup(320, 480, 2000);
    for (const int past : {1, 5}) {
        view->mScroll.y = 2500 + past; // as after key presses
        EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 550);
        EXPECT_EQ(view->mScroll.y, 2000 + 480 - 30);
    }
    view->mScroll.y = 1995;
    EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 50);
    EXPECT_EQ(view->mScroll.y, 2000);
}

TEST_F(WordPopupTest, InViewsTallerThanItsPixmapItStaysAtItsTop) {
    const auto view = openPopup(400, 1100, 2000);
    view->handlePenDown(10, 470);
    view->handlePenMove(10, 170);
    const Frame frame = paint(*view);
    EXPECT_EQ(view->mScroll.y, 2000);
    EXPECT_EQ(popupRow(frame, 400, 20, 40), 50);
    EXPECT_EQ(popupRow(frame, 400, 20, 989), 999);
}

TEST_F(WordPopupTest, GlidesWithinItsRange) {
    const TestClock clock;
    const auto view = openPopup(320, 480, 2000);
    calls();
    view->handleFlick(50, -862);
    TestClock::advance(10.0);
    paint(*view);
    EXPECT_EQ(view->mScroll.y, 2431);
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_THAT(calls(), IsEmpty()) << "the stretch rests";
}

TEST_F(WordPopupTest, PaintShowsAGlideWhereItWasBeforeItsTick) {
    const TestClock clock;
    const auto view = openPopup(320, 480, 2000);
    view->handleFlick(0, -862);
    TestClock::advance(1.0);
    EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 50);
    EXPECT_EQ(view->mScroll.y, 2323); // 431 - 107.8
    EXPECT_EQ(popupRow(paint(*view), 320, 20, 40), 50 + 323);
}

TEST_F(WordPopupTest, ClosingHoldsThePageToTheText) {
    const auto view = openView(320, 480, 20000);
    view->handleKeyDown('w', 0);
    fakeWord().click = {4, 11, 12, 13};
    ASSERT_TRUE(view->handleClick(7, 9));
    EXPECT_EQ(view->mDataStore->scrollY, -5);
    EXPECT_TRUE(view->handleClick(7, 9));
    EXPECT_EQ(view->mScroll.y, 0);
}

TEST_F(WordPopupTest, NextTapOnlyClosesIt) {
    const auto view = openPopup(320, 480, 2000);
    view->handlePenDown(10, 470);
    view->handlePenMove(10, 170);
    fakeWord().click = {6, 0, 0, 0};
    calls();
    EXPECT_TRUE(view->handleClick(7, 9));
    EXPECT_TRUE(view->mClicked) << "the contact's end moves nothing";
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_EQ(view->mScroll.y, 2000);
    EXPECT_EQ(view->mDrawMode, _NORMAL);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
    EXPECT_EQ(paint(*view)[0], fakeWordPixel(2000, 0));
}

TEST_F(WordPopupTest, ClosingStopsItsGlide) {
    const TestClock clock;
    const auto view = openPopup(320, 480, 2000);
    view->handleFlick(0, -862);
    view->handleClick(7, 9);
    TestClock::advance(1.0);
    paint(*view);
    EXPECT_EQ(view->mScroll.y, 2000);
}

TEST_F(WordPopupTest, PinchEndHidesItEvenWithoutAZoom) {
    const auto view = openPopup(320, 480, 2000);
    view->handlePenDown(10, 470);
    view->handlePenMove(10, 170);
    view->handleGestureStart(1.0, 0.0);
    notifications(*view);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_EQ(view->mDrawMode, _NORMAL);
    EXPECT_EQ(view->mScroll.y, 2000);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
}

TEST_F(WordPopupTest, PinchZoomsThePageBelow) {
    const auto view = openPopup(320, 480, 100);
    view->mScroll.y += 200;
    view->handleGestureStart(2.0, 0.0);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_EQ(view->mScroll.y, (100 + 120) * 2);
}

TEST_F(WordPopupTest, WhateverMovesThePageHidesIt) {
    fakeWord().hits = {{60000, 60005}};
    const auto hit = fakeWord().hits;
    auto view = openPopup(320, 480, 2000);
    view->setWideMode(true);
    EXPECT_FALSE(view->mPopupShown);
    view = openPopup(320, 480, 2000);
    view->handleDoubleClick(5, 5);
    EXPECT_FALSE(view->mPopupShown);
    view = openPopup(320, 480, 2000);
    fakeWord().hits = hit;
    view->doSearch("x");
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordPopupTest, NarrowViewsHaveNoRoomForIt) {
    const auto view = openView(40, 480, 20000);
    fakeWord().click = {2, 0, 0, 0};
    EXPECT_FALSE(view->handleClick(1, 1));
    EXPECT_THAT(calls(), ElementsAre("wtg_get_click_info(1, 1)"));
    EXPECT_FALSE(view->mPopupShown);
}

TEST_F(WordPopupTest, RecordKeepsThePagesPosition) {
    const auto view = openPopup(320, 480, 2000);
    EXPECT_EQ(view->mDataStore->scrollY, 2000);
    view->mScroll.y = 2300;
    paint(*view);
    EXPECT_EQ(view->mDataStore->scrollY, 2000);
    view->SaveStateToDataStore();
    EXPECT_EQ(view->mDataStore->scrollY, 2000);
}

} // namespace
