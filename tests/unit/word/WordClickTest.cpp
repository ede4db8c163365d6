// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/word/WordTest.h"

namespace {

class WordClickTest : public WordTest {};

TEST_F(WordClickTest, PointIsGivenInTheSurfacesPixels) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1100);
    calls();
    EXPECT_FALSE(view->handleClick(30, 40));
    EXPECT_THAT(calls(), ElementsAre("wtg_get_click_info(30, 620)")); // 1100 - 520 + 40
    EXPECT_TRUE(view->mClicked);
}

TEST_F(WordClickTest, PointInWideModeCountsFromTheSurfacesFirstColumn) {
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true);
    view->mScroll.x = 200;
    calls();
    view->handleClick(30, 40);
    EXPECT_THAT(calls(), ElementsAre("wtg_get_click_info(230, 40)"));
}

TEST_F(WordClickTest, HyperlinkIsToldToTheClient) {
    const auto view = openView(320, 480, 20000);
    fakeWord().click = {6, 0, 0, 0};
    EXPECT_TRUE(view->handleClick(1, 1));
    EXPECT_THAT(notifications(*view), ElementsAre(_HYPERLINK));
}

TEST_F(WordClickTest, InternalLinkJumpsAndStartsCountingAtItsTarget) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1100);
    calls();
    fakeWord().click = {7, 0, 50000, 0};
    EXPECT_TRUE(view->handleClick(1, 1));
    EXPECT_THAT(calls(), ElementsAre("wtg_get_click_info(1, 581)", "wtg_jump_to_character(0, 50000)",
                                     "wtg_get_vertical_last_used_pixel(0)"));
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->bottom(), 1562);
    EXPECT_EQ(view->firstTextRow(), 10000);
}

TEST_F(WordClickTest, InternalLinkGoesToTheFirstColumn) {
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true);
    view->mScroll.x = 200;
    fakeWord().click = {7, 0, 50000, 0};
    EXPECT_TRUE(view->handleClick(1, 1));
    EXPECT_EQ(view->mScroll.x, 0);
}

TEST_F(WordClickTest, DeadInternalLinkChangesNothing) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1100);
    fakeWord().click = {7, 2, 50000, 0};
    EXPECT_TRUE(view->handleClick(1, 1));
    EXPECT_EQ(view->mScroll.y, 1100);
    EXPECT_EQ(view->top(), 520);
    fakeWord().click = {7, 0, -1, 0};
    EXPECT_TRUE(view->handleClick(1, 1));
    EXPECT_EQ(view->mScroll.y, 1100);
}

TEST_F(WordClickTest, JumpEndsAGlideAndADragGoesOnFromItsTarget) {
    const auto view = openView(320, 480, 20000);
    view->handlePenDown(10, 300);
    view->handleFlick(0, -900);
    fakeWord().click = {7, 0, 50000, 0};
    view->handleClick(10, 300);
    EXPECT_FALSE(view->mScroller.isMoving());
    view->handlePenMove(10, 290);
    EXPECT_EQ(view->firstTextRow(), 10010);
}

TEST_F(WordClickTest, OtherTapsAreUsedOnlyByAGlideTheyStopped) {
    const auto view = openView(320, 480, 20000);
    for (const int type : {0, 1, 8, -3}) {
        fakeWord().click.type = type;
        EXPECT_FALSE(view->handleClick(1, 1));
        view->handlePenDown(1, 1);
        view->handleFlick(0, -900);
        view->handlePenDown(1, 1);
        EXPECT_TRUE(view->handleClick(1, 1));
        EXPECT_FALSE(view->handleClick(1, 1));
    }
}

TEST_F(WordClickTest, ModuleThatCannotTellIsAnOtherTap) {
    const auto view = openView(320, 480, 20000);
    fakeWord().click.type = 6;
    fakeWord().results["wtg_get_click_info"] = 1;
    EXPECT_FALSE(view->handleClick(1, 1));
}

TEST_F(WordClickTest, TapDuringAPinchIsUsedUp) {
    const auto view = openView(320, 480, 20000);
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handleClick(1, 1));
    EXPECT_FALSE(view->mClicked);
    EXPECT_THAT(calls(), IsEmpty());
}

} // namespace
