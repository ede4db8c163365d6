// SPDX-License-Identifier: Apache-2.0
// What stays at its place when a touch view of a text is zoomed or gets another size.
#include "tests/unit/touch/TouchWordTest.h"

namespace {

constexpr int MIDDLE = 320;

TEST_F(TouchWordTest, OpensAtTheSizeOfItsScreen) {
    const auto view = openView(768, 1024, 264.0);
    EXPECT_EQ(fakeWord().layout.dpi, 264);
    EXPECT_DOUBLE_EQ(view->place().zoom, 1.0);
    EXPECT_DOUBLE_EQ(view->place().fit, 1.0);
    EXPECT_DOUBLE_EQ(view->place().smallestZoom, 0.25);
}

TEST_F(TouchWordTest, DoesNotZoomUntilNoWordFitsIntoALine) {
    EXPECT_DOUBLE_EQ(openView(720, 1024, 72.0)->place().largestZoom, 8.0);
    EXPECT_DOUBLE_EQ(openView(110, 640, 264.0)->place().largestZoom, 1.0);
}

TEST_F(TouchWordTest, AZoomHoldsTheFirstWholeLine) {
    fakeWord().rows = 30000;
    const auto view = openView();
    view->scrollTo(0, 1007);
    const uint32_t first = firstWhole(*view);
    const int64_t row = viewRow(*view, first);
    for (const double zoom : {2.0, 0.5, 1.5, 3.0}) {
        view->zoomTo(zoom, view->middle());
        EXPECT_EQ(viewRow(*view, first), row) << zoom;
        EXPECT_EQ(view->whiteRows(), 0);
    }
}

TEST_F(TouchWordTest, AHundredZoomsEndOnTheLineTheyBeganWith) {
    for (const bool optional : {true, false}) {
        const auto view = openView();
        if (!optional) {
            view->forgetOptional();
        }
        view->scrollTo(0, 1000);
        const int64_t line = lineOf(firstWhole(*view));
        for (int i = 0; i < 50; ++i) {
            view->zoomTo(i % 2 == 0 ? 2.5 : 0.4, view->middle());
            view->zoomTo(1.0, view->middle());
        }
        EXPECT_EQ(lineOf(firstWhole(*view)), line) << optional;
    }
}

TEST_F(TouchWordTest, AHundredZoomsNearTheEndGoNowhere) {
    const auto view = openView();
    view->scrollTo(0, 1 << 30);
    const int64_t first = view->firstTextRow();
    ASSERT_EQ(first, TestTouchWord::lastTop(640));
    for (int i = 0; i < 50; ++i) {
        view->zoomTo(i % 2 == 0 ? 2.5 : 0.4, view->middle());
        EXPECT_EQ(view->whiteRows(), 0);
        view->zoomTo(1.0, view->middle());
    }
    EXPECT_EQ(view->firstTextRow(), first);
}

TEST_F(TouchWordTest, ADoubleTapHoldsTheTappedLineAndGoesBackToTheFit) {
    const auto view = openView();
    view->scrollTo(0, 1000);
    const int64_t before = view->firstTextRow();
    const FakeWordLayout text = fakeWord().layout;
    const auto tapped = static_cast<uint32_t>(
        (before + MIDDLE) / text.lineRows * fakeWord().characters * text.lineRows / text.rows + 1);
    const int64_t row = viewRow(*view, tapped);
    for (int i = 0; i < 50; ++i) {
        view->handleDoubleClick(100, MIDDLE);
        EXPECT_DOUBLE_EQ(view->place().zoom, 2.5);
        EXPECT_NEAR(static_cast<double>(viewRow(*view, tapped) - MIDDLE),
                    static_cast<double>(row - MIDDLE) * 2.5, 2.0);
        EXPECT_EQ(view->whiteRows(), 0);
        view->handleDoubleClick(100, MIDDLE);
        EXPECT_DOUBLE_EQ(view->place().zoom, 1.0);
    }
    EXPECT_EQ(view->firstTextRow(), before);
}

TEST_F(TouchWordTest, ADoubleTapShowsATappedPictureAsWideAsTheView) {
    const auto view = openView();
    fakeWord().tapArea = {10, 100, 180, 90};
    view->handleDoubleClick(100, 120);
    EXPECT_DOUBLE_EQ(view->place().zoom, 2.0);
    view->handleDoubleClick(100, 120);
    EXPECT_DOUBLE_EQ(view->place().zoom, 1.0);
    fakeWord().tapArea = {4, 100, 352, 90}; // as wide as the text
    view->handleDoubleClick(100, 120);
    EXPECT_DOUBLE_EQ(view->place().zoom, 2.5);
}

TEST_F(TouchWordTest, ADoubleTapLeavesTheColumnsOfATableRoomForFourLetters) {
    const auto view = openView();
    fakeWord().tapArea = {4, 100, 352, 90};
    fakeWord().tapMostDpi = 36;
    view->handleDoubleClick(100, 120);
    EXPECT_DOUBLE_EQ(view->place().zoom, 0.5);
    view->handleDoubleClick(100, 120);
    EXPECT_DOUBLE_EQ(view->place().zoom, 1.0);
    fakeWord().tapMostDpi = 108;
    view->handleDoubleClick(100, 120);
    EXPECT_DOUBLE_EQ(view->place().zoom, 1.5);
}

TEST_F(TouchWordTest, ASecondDoubleTapGoesBackAlsoFromTheEndOfTheText) {
    const auto view = openView();
    view->scrollTo(0, 1500);
    fakeWord().tapArea = {4, 100, 352, 90};
    fakeWord().tapMostDpi = 36; // a quarter of the rows
    view->handleDoubleClick(100, 150);
    ASSERT_EQ(view->firstTextRow(), TestTouchWord::lastTop(640));
    view->handleDoubleClick(110, 155);
    EXPECT_EQ(view->firstTextRow(), 1500);
}

TEST_F(TouchWordTest, APinchHoldsTheLineBetweenTheFingers) {
    fakeWord().rows = 30000;
    for (const auto& [factor, toY] :
         {std::pair(2.0F, 320), {0.5F, 320}, {1.7F, 250}, {0.8F, 400}, {1.0F, 300}}) {
        const auto view = openView();
        view->scrollTo(0, 1500);
        const FakeWordLayout text = fakeWord().layout;
        const int64_t line = (view->firstTextRow() + MIDDLE) / text.lineRows;
        const auto character = static_cast<uint32_t>(
            (line * fakeWord().characters + text.rows / text.lineRows - 1) / (text.rows / text.lineRows));
        const int64_t below = MIDDLE - viewRow(*view, character);
        pinch(*view, 180, MIDDLE, factor, 170, toY);
        EXPECT_NEAR(static_cast<double>(toY - viewRow(*view, character)),
                    static_cast<double>(below) * static_cast<double>(factor), 2.0)
            << factor;
        EXPECT_EQ(view->whiteRows(), 0);
    }
}

TEST_F(TouchWordTest, ThePreviewOfAPinchShowsTheRowsWhereTheyWillBe) {
    const auto view = openView();
    view->scrollTo(0, 1500);
    const Frame before = paint(*view);
    view->handleRecord(pinchRecord(180, MIDDLE, 1.0F, _PINCH_BEGINS));
    view->handleRecord(pinchRecord(180, 300, 2.0F, _PINCH_MOVES));
    const Frame preview = paint(*view);
    for (const int away : {-100, -20, 0, 20, 100}) {
        const int64_t shown = fakeWordRow(preview.at(5, 300 + away));
        const int64_t expected = fakeWordRow(before.at(5, MIDDLE)) + away / 2;
        EXPECT_NEAR(static_cast<double>(shown), static_cast<double>(expected), 1.0) << away;
    }
    view->handleRecord(pinchRecord(180, 300, 2.0F, _PINCH_GIVEN_UP));
    EXPECT_DOUBLE_EQ(view->place().zoom, 1.0);
}

TEST_F(TouchWordTest, APinchResistsBeyondTheLimits) {
    const auto view = openView();
    pinch(*view, 180, MIDDLE, 100.0F, 180, MIDDLE);
    EXPECT_DOUBLE_EQ(view->place().zoom, view->place().largestZoom);
    pinch(*view, 180, MIDDLE, 0.001F, 180, MIDDLE);
    EXPECT_DOUBLE_EQ(view->place().zoom, 0.25);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(TouchWordTest, ATurnedDeviceKeepsTheLine) {
    const auto view = openView(360, 640);
    view->scrollTo(0, 1007);
    const uint32_t first = firstWhole(*view);
    const int64_t row = viewRow(*view, first);
    for (int i = 0; i < 10; ++i) {
        view->resize(640, 360);
        EXPECT_EQ(fakeWord().layout.width, 640);
        EXPECT_EQ(viewRow(*view, first), row);
        EXPECT_EQ(view->whiteRows(), 0);
        EXPECT_EQ(paint(*view).at(3, 100), fakeWordPixel(view->firstTextRow() + 100, 3));
        view->resize(360, 640);
    }
    EXPECT_EQ(viewRow(*view, first), row);
    EXPECT_EQ(view->firstTextRow(), 1007);
}

TEST_F(TouchWordTest, ALayoutThatFailsLeavesThePictureAndTheZoom) {
    const auto view = openView();
    view->scrollTo(0, 700);
    const Frame before = paint(*view);
    fakeWord().results["wtg_get_bottom_right_character"] = 11;
    view->zoomTo(2.0, view->middle());
    fakeWord().results.clear();
    EXPECT_DOUBLE_EQ(view->place().zoom, 1.0);
    EXPECT_EQ(paint(*view), before);
}

TEST_F(TouchWordTest, WideModeKeepsTheLineAndMovesSideways) {
    const auto view = openView();
    view->scrollTo(0, 1007);
    const uint32_t first = firstWhole(*view);
    const int64_t row = viewRow(*view, first);
    view->setWideMode(true);
    EXPECT_EQ(viewRow(*view, first), row);
    EXPECT_EQ(view->place().documentWidth, 720);
    view->scrollTo(10000, view->mScroll.y);
    EXPECT_EQ(view->place().view.Left(), 360);
    view->setWideMode(false);
    EXPECT_EQ(viewRow(*view, first), row);
    EXPECT_EQ(view->place().view.Left(), 0);
}

TEST_F(TouchWordTest, StrangeNumbersAreHarmless) {
    const auto view = openView(360, 640);
    const float nan = std::nanf("");
    view->zoomTo(1e300, CpPoint(-5, INT32_MAX));
    view->zoomTo(1e-300, CpPoint(INT32_MIN, INT32_MIN));
    pinch(*view, INT32_MIN, INT32_MAX, nan, INT32_MAX, INT32_MIN);
    pinch(*view, 5, 5, INFINITY, INT32_MAX, INT32_MAX);
    view->scrollTo(INT32_MIN, INT32_MIN);
    EXPECT_EQ(view->firstTextRow(), 0);
    view->scrollTo(INT32_MAX, INT32_MAX);
    EXPECT_EQ(view->firstTextRow(), TestTouchWord::lastTop(640));
    view->handlePenDown(INT32_MIN, INT32_MIN);
    view->handlePenMove(INT32_MAX, INT32_MAX);
    view->handlePenUp(INT32_MAX, INT32_MAX);
    view->handleFlick(INT32_MAX, INT32_MIN);
    paint(*view);
    EXPECT_EQ(view->whiteRows(), 0);
}

} // namespace
