// SPDX-License-Identifier: Apache-2.0
// Views too large for the scrolling by thirds of the surface.
#include "tests/unit/word/WordTest.h"

namespace {

const std::string BOTTOM_RIGHT = "wtg_get_bottom_right_character(0)";
const std::string LAST_USED = "wtg_get_vertical_last_used_pixel(0)";

class WordLargeViewTest : public WordTest {};

TEST_F(WordLargeViewTest, LargeViewsMoveTheStretchByHalfItsSpare) {
    const auto view = openView(480, 800, 20000); // 1042 rows, 121 to move
    view->handlePenDown(100, 700);
    view->handlePenMove(100, 458);
    EXPECT_EQ(view->mScroll.y, 242);
    EXPECT_THAT(calls(), IsEmpty()) << "the wanted position is covered";
    view->handlePenMove(100, 457);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 121)", LAST_USED));
    view->handlePenMove(100, 200);
    EXPECT_EQ(view->mScroll.y, 500);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 121)", LAST_USED, BOTTOM_RIGHT,
                                     "wtg_scroll_down(0, 121)", LAST_USED));
    view->handlePenMove(100, 600);
    EXPECT_EQ(view->mScroll.y, 100);
    EXPECT_EQ(view->top(), 0) << "by what there is above";
    EXPECT_THAT(calls(),
                ElementsAre("wtg_scroll_up(0, 121)", "wtg_scroll_up(0, 121)", "wtg_scroll_up(0, 121)"));
}

TEST_F(WordLargeViewTest, LargeViewsReachBothEnds) {
    const auto view = openView(480, 800, 3000);
    scrollBy(*view, 5000);
    EXPECT_EQ(view->firstTextRow(), 2200);
    scrollBy(*view, -5000);
    EXPECT_EQ(view->firstTextRow(), 0);
    scrollBy(*view, 5000);
    EXPECT_EQ(view->firstTextRow(), 2200);
}

TEST_F(WordLargeViewTest, MovesOfLargeViewsEndWhenTheModuleFails) {
    const auto view = openView(480, 800, 20000);
    fakeWord().results["wtg_scroll_down"] = 1;
    view->handlePenDown(100, 700);
    view->handlePenMove(100, 100);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 121)"));
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->mScroll.y, 242) << "held to the stretch";
}

TEST_F(WordLargeViewTest, WideModeOfAPhoneScrollsAsLargeViewsDo) {
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true); // 782 rows, 151 to move
    calls();
    view->handlePenDown(100, 400);
    view->handlePenMove(100, 98);
    EXPECT_EQ(view->mScroll.y, 302);
    EXPECT_THAT(calls(), IsEmpty());
    view->handlePenMove(100, 97);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 151)", LAST_USED));
    EXPECT_EQ(view->mScroll.y, 303);
}

TEST_F(WordLargeViewTest, ViewsAreLargeOnceTwoStepsAndTheViewPassTheStretch) {
    const auto fitting = openView(320, 522, 20000); // 1562 - 2 * 520 rows
    scrollBy(*fitting, 1039);
    calls();
    scrollBy(*fitting, 1);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 520)", LAST_USED));
    const auto large = openView(320, 523, 20000);
    scrollBy(*large, 1039);
    EXPECT_THAT(calls(), IsEmpty());
    scrollBy(*large, 1);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 519)", LAST_USED));
}

TEST_F(WordLargeViewTest, LargeViewsGlideWithoutWhite) {
    const TestClock clock;
    const auto view = openView(1080, 1920, 20000);
    view->handleFlick(0, -2400);
    while (view->tick()) {
        TestClock::advance(0.1);
        ASSERT_EQ(view->whiteRows(), 0);
    }
    EXPECT_NEAR(static_cast<double>(view->firstTextRow()), 1200.0 * 1200.0 / 431.2, 2.0);
}

} // namespace
