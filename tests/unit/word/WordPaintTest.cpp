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

TEST_F(WordPaintTest, EveryRowOfTheFrameIsTheTextsRow) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 2345);
    const std::vector<uint32_t> frame = paint(*view);
    for (size_t y = 0; y < 480; ++y) {
        ASSERT_EQ(frame[y * 320 + 17], fakeWordPixel(2345 + static_cast<int64_t>(y), 17));
    }
}

TEST_F(WordPaintTest, WhatIsBelowAShortTextIsWhite) {
    const auto view = openView(320, 480, 100);
    const std::vector<uint32_t> frame = paint(*view);
    EXPECT_EQ(frame[99 * 320], fakeWordPixel(99, 0));
    EXPECT_EQ(frame[100 * 320], fakeWordWhite);
}

TEST_F(WordPaintTest, ZoomingInPreviewsTheMiddleOfTheLastFrame) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 100);
    paint(*view);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(2.0, 0.0);
    calls();
    const std::vector<uint32_t> frame = paint(*view);
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
    const std::vector<uint32_t> frame = paint(*view);
    EXPECT_EQ(frame[0], fakeWordWhite);
    EXPECT_EQ(frame[120 * 320 + 79], fakeWordWhite);
    EXPECT_EQ(frame[120 * 320 + 80], fakeWordPixel(100, 0));
    EXPECT_EQ(frame[359 * 320 + 239], fakeWordPixel(100 + 478, 318));
    EXPECT_EQ(frame[360 * 320 + 80], fakeWordWhite);
    EXPECT_EQ(view->mGestureScroll.x, -80);
    EXPECT_EQ(view->mGestureScroll.y, 50 - 120);
}

} // namespace
