// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/word/WordTest.h"

namespace {

class WordPaintTest : public WordTest {};

TEST_F(WordPaintTest, ErasingIsWhiteAndSaysSo) {
    const auto view = makeView();
    std::vector<uint32_t> frame(6, 0);
    testing::internal::CaptureStdout();
    view->eraseBuffer(frame.data(), 5);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Erasing buffer!...\n");
    EXPECT_THAT(frame, ElementsAre(0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0));
}

TEST_F(WordPaintTest, EveryPaintSaysSoOnce) {
    for (const int64_t rows : {100, 20000}) { // with rows to erase, and without
        const auto view = openView(320, 480, rows);
        testing::internal::CaptureStdout();
        paint(*view);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "Erasing buffer!...\n") << rows;
    }
}

TEST_F(WordPaintTest, EveryRowOfTheFrameIsTheTextsRow) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 2345);
    const Frame frame = paint(*view);
    for (size_t y = 0; y < 480; ++y) {
        ASSERT_EQ(frame[y * 320 + 17], fakeWordPixel(2345 + static_cast<int64_t>(y), 17));
    }
}

TEST_F(WordPaintTest, WhatIsBelowAShortTextIsWhite) {
    const auto view = openView(320, 480, 100);
    const Frame frame = paint(*view);
    EXPECT_EQ(frame[99 * 320], fakeWordPixel(99, 0));
    EXPECT_EQ(frame[100 * 320], FAKE_WORD_WHITE);
}

TEST_F(WordPaintTest, ZoomingInPreviewsTheMiddleOfTheLastFrame) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 100);
    paint(*view);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(2.0, 0.0);
    calls();
    const Frame frame = paint(*view);
    EXPECT_EQ(frame[0], fakeWordPixel(100 + 120, 80));
    EXPECT_EQ(frame[479 * 320 + 319], fakeWordPixel(100 + 359, 239));
    EXPECT_EQ(view->mGestureScroll.x, 160);
    EXPECT_EQ(view->mGestureScroll.y, (100 + 120) * 2);
    EXPECT_EQ(view->mGestureAppliedScale, 2.0);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(WordPaintTest, ZoomingOutPreviewsTheLastFrameInTheMiddle) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 100);
    paint(*view);
    view->handleGestureStart(0.5, 0.0);
    const Frame frame = paint(*view);
    EXPECT_EQ(frame[0], FAKE_WORD_WHITE);
    EXPECT_EQ(frame[120 * 320 + 79], FAKE_WORD_WHITE);
    EXPECT_EQ(frame[120 * 320 + 80], fakeWordPixel(100, 0));
    EXPECT_EQ(frame[359 * 320 + 239], fakeWordPixel(100 + 478, 318));
    EXPECT_EQ(frame[360 * 320 + 80], FAKE_WORD_WHITE);
    EXPECT_EQ(view->mGestureScroll.x, -80);
    EXPECT_EQ(view->mGestureScroll.y, 50 - 120);
}

TEST_F(WordPaintTest, PreviewAtTheScaleItHasIsTheLastFrameOverAnErasedOne) {
    const auto view = openView(320, 480, 20000);
    const Frame last = paint(*view);
    view->handleGestureStart(1.0, 0.0);
    testing::internal::CaptureStdout();
    EXPECT_EQ(paint(*view), last);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "Erasing buffer!...\n");
    view->handleGestureStart(1.01, 0.0);
    testing::internal::CaptureStdout();
    paint(*view);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << "what is zoomed in fills the frame";
}

TEST_F(WordPaintTest, PlaceThatAPreviewShowsIsTruncatedTowardZero) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 101);
    paint(*view);
    view->handleGestureStart(1.5, 0.0); // from column 53.3 and row 80 on
    paint(*view);
    EXPECT_EQ(view->mGestureScroll.x, 79);  // 53 * 1.5
    EXPECT_EQ(view->mGestureScroll.y, 271); // 181 * 1.5
    view->handleGestureStart(0.7, 0.0);     // to column 48 and row 72
    paint(*view);
    EXPECT_EQ(view->mGestureScroll.x, -48);
    EXPECT_EQ(view->mGestureScroll.y, -1); // 70.7 - 72
}

TEST_F(WordPaintTest, PreviewHalvesOddViewsTowardZero) {
    const auto view = openView(321, 481, 20000);
    paint(*view);
    view->handleGestureStart(2.0, 0.0); // from 160 - 80.25 and 240 - 120.25 on
    paint(*view);
    EXPECT_EQ(view->mGestureScroll.x, 79 * 2);
    EXPECT_EQ(view->mGestureScroll.y, 119 * 2);
    view->handleGestureStart(0.5, 0.0);
    const Frame frame = paint(*view);
    EXPECT_EQ(view->mGestureScroll.x, -79);
    EXPECT_EQ(view->mGestureScroll.y, -119);
    EXPECT_EQ(frame[119 * 321 + 79], fakeWordPixel(0, 0));
    EXPECT_EQ(frame[118 * 321 + 79], FAKE_WORD_WHITE);
    EXPECT_EQ(frame[119 * 321 + 78], FAKE_WORD_WHITE);
}

// Records which of the steps that affect a paint ran with the view locked.
class LockedWord : public TestWord {
public:
    using TestWord::TestWord;
    void eraseBuffer(unsigned int* frame, unsigned int count) const override {
        note("erase");
        TestWord::eraseBuffer(frame, count);
    }
    bool tick() override {
        note("tick");
        return TestWord::tick();
    }
    void resizeDocument() override {
        note("resize");
        TestWord::resizeDocument();
    }
    int ReinitSearchRects() override {
        note("rects");
        return TestWord::ReinitSearchRects();
    }
    void note(const std::string& what) const {
        auto* lock = const_cast<LockedWord*>(this)->mutex();
        const bool free = pthread_mutex_trylock(lock) == 0;
        if (free) {
            pthread_mutex_unlock(lock);
        }
        notes.push_back(free ? what : what + " locked");
    }
    mutable std::vector<std::string> notes;
};

TEST_F(WordPaintTest, ZoomsAndPopupPaintsHoldTheViewsLock) {
    LockedWord view(320, 480, 0, 0);
    fakeWord().rows = 20000;
    ASSERT_EQ(view.openFile("/d/text.doc", nullptr), 0);
    view.notes.clear();
    view.handleDoubleClick(5, 5);
    EXPECT_THAT(std::exchange(view.notes, {}), ElementsAre("resize locked", "rects locked"));
    view.handleGestureStart(1.0, 0.0);
    view.mGestureAppliedScale = 1.1;
    view.handleGestureEnd(0.0, 0.0);
    EXPECT_THAT(std::exchange(view.notes, {}), ElementsAre("resize locked", "rects locked"));
    fakeWord().click = {2, 0, 0, 0};
    view.handleClick(5, 5);
    paint(view);
    EXPECT_THAT(view.notes, ElementsAre("erase locked", "tick locked"));
    EXPECT_EQ(pthread_mutex_trylock(view.mutex()), 0);
    pthread_mutex_unlock(view.mutex());
}

} // namespace
