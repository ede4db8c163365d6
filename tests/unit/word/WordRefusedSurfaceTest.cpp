// SPDX-License-Identifier: Apache-2.0
// A module that refuses a surface, for example without a free descriptor.
#include "tests/unit/word/WordTest.h"

#include <cstring>

namespace {

constexpr int NO_ROOM = 15;

class WordRefusedSurfaceTest : public WordTest {
protected:
    static void refuseNext(std::deque<int32_t> codes) {
        fakeWord().nextResults["wtg_set_offscreen_buffer"] = std::move(codes);
    }
    static void expectText(TestWord& view) {
        const Frame frame = paint(view);
        const int64_t row = view.firstTextRow();
        EXPECT_EQ(frame[3], fakeWordPixel(row, 3));
        EXPECT_EQ(frame[frame.size() - 1], fakeWordPixel(row + view.height() - 1, view.width() - 1));
    }
};

TEST_F(WordRefusedSurfaceTest, LeavesTheSurfaceBefore) {
    const auto view = openView(320, 480, 20000);
    refuseNext({NO_ROOM});
    view->setWideMode(true);
    EXPECT_EQ(view->mDocPixmap->Width(), 320);
    scrollBy(*view, 3000);
    expectText(*view);

    view->handleDoubleClick(10, 10);
    EXPECT_EQ(view->mDocPixmap->Width(), 6 * 320) << "the next one is tried again";
}

TEST_F(WordRefusedSurfaceTest, EverySecondOneIsSurvived) {
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true);
    for (int i = 0; i < 6; ++i) {
        if (i % 2 == 0) {
            refuseNext({NO_ROOM});
        }
        view->handleDoubleClick(100, 100);
        scrollBy(*view, 700);
        paint(*view);
        EXPECT_EQ(view->mDocPixmap->Area() > 0, true);
        EXPECT_EQ(fakeWord().layout.width, view->mDocPixmap->Width());
    }
}

TEST_F(WordRefusedSurfaceTest, TheFirstOneIsReportedAndTheViewWorksWithoutIt) {
    refuseNext({NO_ROOM});
    fakeWord().rows = 20000;
    const auto view = makeView();
    EXPECT_EQ(view->openFile("/d/text.doc", nullptr), NO_ROOM);
    EXPECT_EQ(view->mDocPixmap, nullptr);
    scrollBy(*view, 700);
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 0 }");
    EXPECT_TRUE(paint(*view).isUntouched()) << "nothing is painted";

    view->setWideMode(false);
    expectText(*view);
}

// The module lays the text out when it is asked for the stretch's end.
TEST_F(WordRefusedSurfaceTest, ALayoutThatFailsIsReportedByTheOpenAndByTheView) {
    fakeWord().nextResults["wtg_get_bottom_right_character"] = {9};
    const auto view = makeView();
    EXPECT_EQ(view->openFile("/d/text.doc", nullptr), 9);
    EXPECT_EQ(view->renderResult(), 9);
    view->handleDoubleClick(7, 9);
    EXPECT_EQ(view->renderResult(), 0) << "another layout";
    fakeWord().nextResults["wtg_get_bottom_right_character"] = {10};
    view->handleDoubleClick(7, 9);
    EXPECT_EQ(view->renderResult(), 10);
}

TEST_F(WordRefusedSurfaceTest, ALayoutThatFailsLeavesThePictureAndTheView) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 3000);
    Frame before = paint(*view);
    const double scale = view->mScale;
    const auto expectAsBefore = [&] {
        EXPECT_EQ(view->renderResult(), 10);
        EXPECT_EQ(view->mScale, scale);
        EXPECT_EQ(view->mDocPixmap->Width(), 320);
        Frame after = paint(*view);
        EXPECT_EQ(std::memcmp(after.pixels(), before.pixels(), before.size() * 4), 0);
    };
    const auto failNext = [] { fakeWord().nextResults["wtg_get_bottom_right_character"] = {10}; };

    failNext();
    view->handleDoubleClick(100, 100);
    expectAsBefore();
    failNext();
    view->setWideMode(true);
    expectAsBefore();
    failNext();
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(2.0, 0.0);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    expectAsBefore();

    scrollBy(*view, 700);
    expectText(*view);
    view->handleDoubleClick(100, 100);
    EXPECT_EQ(view->renderResult(), 0);
    expectText(*view);
}

TEST_F(WordRefusedSurfaceTest, APopupWithoutOneDoesNotOpen) {
    const auto view = openView(320, 480, 20000);
    fakeWord().click = {4, 11, 12, 13};
    refuseNext({NO_ROOM});
    EXPECT_FALSE(view->handleClick(7, 9));
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_EQ(view->mDocPixmap->Width(), 320) << "the page's surface";
    view->handlePenUp(7, 9);
    scrollBy(*view, 3000);
    expectText(*view);
}

TEST_F(WordRefusedSurfaceTest, APageThatIsNotTakenBackAfterAPopupIsGivenAgain) {
    const auto view = openView(320, 480, 20000);
    fakeWord().click = {4, 11, 12, 13};
    refuseNext({0, NO_ROOM, NO_ROOM});
    EXPECT_TRUE(view->handleClick(7, 9));
    view->handlePenUp(7, 9);
    EXPECT_TRUE(view->handleClick(7, 9)) << "closes it";
    view->handlePenUp(7, 9);
    scrollBy(*view, 3000);
    expectText(*view);
}

} // namespace
