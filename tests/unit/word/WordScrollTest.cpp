// SPDX-License-Identifier: Apache-2.0
// Drags, glides and the stretch that follows them.
#include "tests/unit/word/WordTest.h"

#include <cerrno>
#include <climits>

namespace {

const std::string BOTTOM_RIGHT = "wtg_get_bottom_right_character(0)";
const std::string TOP_LEFT = "wtg_get_top_left_character(0)";
const std::string LAST_USED = "wtg_get_vertical_last_used_pixel(0)";

class WordScrollTest : public WordTest {
protected:
    // A view whose stretch was moved to a row by a jump, in a text of one-row lines.
    static std::unique_ptr<TestWord> openAt(int width, int height, int64_t rows, int64_t row) {
        auto view = openView(width, height, rows);
        const auto character = static_cast<uint32_t>((row * fakeWord().characters + rows - 1) / rows);
        EXPECT_TRUE(view->handleClick(0, 0) == false);
        fakeWord().click = {7, 0, static_cast<intptr_t>(character), 0};
        EXPECT_TRUE(view->handleClick(0, 0));
        view->handlePenUp(0, 0);
        fakeWord().calls.clear();
        return view;
    }
};

TEST_F(WordScrollTest, DragFollowsThePenVerticallyOnly) {
    const auto view = openView(320, 480, 20000);
    view->handlePenDown(100, 300);
    EXPECT_TRUE(view->handlePenMove(50, 260));
    EXPECT_EQ(view->mScroll.y, 40);
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_THAT(calls(), IsEmpty()) << "in the middle of the stretch nothing is asked";
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(WordScrollTest, DragInWideModeFollowsSidewaysToo) {
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true);
    view->handlePenDown(200, 300);
    view->handlePenMove(150, 300);
    EXPECT_EQ(view->mScroll.x, 50);
    view->handlePenMove(-900, 300);
    EXPECT_EQ(view->mScroll.x, 320) << "the layout is 640 wide";
}

TEST_F(WordScrollTest, MovesWithoutAContactOrDuringAPinchAreIgnored) {
    const auto view = openView(320, 480, 20000);
    EXPECT_TRUE(view->handlePenMove(1, -200));
    EXPECT_EQ(view->mScroll.y, 0);
    view->handlePenDown(100, 300);
    view->handleGestureStart(1.0, 0.0);
    view->handlePenMove(100, 100);
    EXPECT_EQ(view->mScroll.y, 0);
}

TEST_F(WordScrollTest, StretchMovesDownAStepFromTwoStepsOn) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1039);
    EXPECT_EQ(view->top(), 0);
    calls();
    scrollBy(*view, 1);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 520)", LAST_USED));
    EXPECT_EQ(view->top(), 520);
    EXPECT_EQ(view->bottom(), 2082);
    EXPECT_EQ(view->mScroll.y, 1040);
}

TEST_F(WordScrollTest, StretchMovesUpAStepFromOneStepBelowItsTop) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 2200);
    ASSERT_EQ(view->top(), 1560);
    view->handlePenDown(100, 100);
    view->handlePenMove(100, 219);
    EXPECT_EQ(view->top(), 1560);
    calls();
    view->handlePenMove(100, 220);
    EXPECT_THAT(calls(), ElementsAre(TOP_LEFT, "wtg_scroll_up(0, 520)"));
    EXPECT_EQ(view->top(), 1040);
    EXPECT_EQ(view->bottom(), 2602);
}

TEST_F(WordScrollTest, AtTheTextsEndTheStretchStays) {
    const auto view = openView(320, 480, 1562);
    scrollBy(*view, 1082);
    calls();
    view->handlePenDown(100, 300);
    view->handlePenMove(100, 290);
    EXPECT_EQ(view->mScroll.y, 1082);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT));
}

TEST_F(WordScrollTest, AtTheFirstCharacterTheStretchStays) {
    const auto view = openView(320, 480, 20000);
    view->handlePenDown(100, 100);
    view->handlePenMove(100, 140);
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_THAT(calls(), ElementsAre(TOP_LEFT));
}

TEST_F(WordScrollTest, FailedMoveUpLeavesTheBounds) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1100);
    const int top = view->top();
    fakeWord().nextResults["wtg_scroll_up"] = {1};
    view->handlePenDown(100, 100);
    view->handlePenMove(100, 200);
    EXPECT_EQ(view->top(), top);
    EXPECT_EQ(view->bottom(), top + 1562);
}

TEST_F(WordScrollTest, FailedMoveDownAdvancesTheBoundsAllTheSame) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1039);
    fakeWord().nextResults["wtg_scroll_down"] = {1};
    view->handlePenDown(100, 300);
    view->handlePenMove(100, 299);
    EXPECT_EQ(view->top(), 520);
    EXPECT_EQ(fakeWord().layout.top, 0);
}

TEST_F(WordScrollTest, RowsAreCountedAnewOnceTheTextsStartShowsAfterAFailedMove) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1039);
    fakeWord().nextResults["wtg_scroll_down"] = {1};
    scrollBy(*view, 1);
    scrollBy(*view, -1500);
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->whiteRows(), 0);
    EXPECT_EQ(view->firstTextRow(), 0);
}

TEST_F(WordScrollTest, BottomIsAskedForAfterAMoveUpFromTheTextsEnd) {
    const auto view = openView(320, 480, 1600);
    scrollBy(*view, 2000);
    EXPECT_EQ(view->bottom(), 1600);
    EXPECT_EQ(view->top(), 520);
    scrollBy(*view, -1200);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->bottom(), 1562) << "the last used row, not the old bottom moved along";
    scrollBy(*view, 2000);
    EXPECT_EQ(view->mScroll.y, 1120) << "the end is in reach again";
}

TEST_F(WordScrollTest, PenThatTurnsAroundIsNotHeldAtTheStretchsBottom) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1300);
    ASSERT_EQ(view->top(), 520);
    view->handlePenDown(100, 0);
    view->handlePenMove(100, 300); // up to 1000; the stretch moves to 0
    ASSERT_EQ(view->top(), 0);
    calls();
    view->handlePenMove(100, 50); // 1250, still above the row of the pen down
    EXPECT_EQ(view->mScroll.y, 1250);
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 520)", LAST_USED));
    EXPECT_EQ(view->whiteRows(), 0);
}

// A module that reports more text and accepts the move, but does not move.
int32_t scrollNothing(void* /*doc*/, int32_t /*story*/, int32_t /*rows*/, int32_t* scrolled) {
    *scrolled = 0;
    return 0;
}

TEST_F(WordScrollTest, MovesThatReportNoRowsEndTheCovering) {
    const auto view = openAt(480, 800, 20000, 5000);
    WTGFunc& module = Singleton<WTGFunc>::Instance();
    const WTGFunc bound = module;
    module.wtg_scroll_down = module.wtg_scroll_up = scrollNothing;
    view->handlePenDown(100, 700);
    view->handlePenMove(100, 100);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->mScroll.y, 242);
    view->handlePenMove(100, 1500);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->mScroll.y, 0);
    module = bound;
}

TEST_F(WordScrollTest, PenAtTheHeightItWentDownCountsAsDown) {
    const auto view = openView(320, 480, 20000);
    view->handlePenDown(100, 300);
    view->handlePenMove(100, 300);
    EXPECT_THAT(calls(), IsEmpty());
    view->handlePenMove(100, 301);
    EXPECT_THAT(calls(), ElementsAre(TOP_LEFT));
}

TEST_F(WordScrollTest, TextAboveAJumpsTargetIsInReach) {
    const auto view = openAt(320, 480, 20000, 5000);
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->firstTextRow(), 5000);
    view->mGestureScroll.y = 50;
    view->handlePenDown(100, 100);
    view->handlePenMove(100, 130);
    EXPECT_THAT(calls(), ElementsAre(TOP_LEFT, "wtg_scroll_up(0, 520)", TOP_LEFT));
    EXPECT_EQ(view->mGestureScroll.y, 570);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->mScroll.y, 520) << "the same picture, counted anew";
    EXPECT_EQ(view->mPenDownScroll.y, 520);
    EXPECT_EQ(view->firstTextRow(), 5000);
    view->handlePenMove(100, 131);
    EXPECT_EQ(view->firstTextRow(), 4969);
    scrollBy(*view, -9000);
    EXPECT_EQ(view->firstTextRow(), 0);
    EXPECT_EQ(view->top(), 0);
}

TEST_F(WordScrollTest, RowsAreKnownAgainOnceTheFirstCharacterShowed) {
    const auto view = openAt(320, 480, 20000, 700);
    scrollBy(*view, -700);
    ASSERT_EQ(view->firstTextRow(), 0);
    scrollBy(*view, 1100);
    calls();
    scrollBy(*view, -200);
    EXPECT_THAT(calls(), ElementsAre(TOP_LEFT, "wtg_scroll_up(0, 520)"))
        << "no question after the move any more";
}

TEST_F(WordScrollTest, JumpNearTheEndShowsTheEndInFull) {
    const auto view = openAt(320, 480, 20000, 19900);
    EXPECT_EQ(view->firstTextRow(), 20000 - 480);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordScrollTest, PenUpMovesNotifiesAndForgetsTheContact) {
    const auto view = openView(320, 480, 20000);
    view->handlePenDown(100, 300);
    EXPECT_TRUE(view->handlePenUp(100, 250));
    EXPECT_EQ(view->mScroll.y, 50);
    EXPECT_FALSE(view->mPenDown);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
}

TEST_F(WordScrollTest, PenUpAfterATapOrFlickOnlyClearsTheFlags) {
    const auto view = openView(320, 480, 20000);
    view->handlePenDown(100, 300);
    view->handleClick(100, 300);
    view->handlePenUp(100, 100);
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_FALSE(view->mClicked);
    EXPECT_TRUE(view->mPenDown) << "forgotten only with a drag";
    view->handlePenDown(100, 300);
    view->handleFlick(0, 0);
    notifications(*view);
    view->handlePenUp(100, 100);
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_FALSE(view->mFlicking);
    EXPECT_TRUE(view->mPenDown);
    view->mClicked = view->mFlicking = true;
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handlePenUp(100, 100));
    EXPECT_EQ(view->mScroll.y, 0);
    EXPECT_FALSE(view->mClicked || view->mFlicking);
    EXPECT_TRUE(view->mPenDown);
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(WordScrollTest, DraggingIntoACornerEndsAGlideAndAlongAnEdgeDoesNot) {
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true);
    view->handlePenDown(100, 300);
    view->handleFlick(0, -862);
    view->handlePenMove(150, 300);
    EXPECT_TRUE(view->mScroller.isMoving());
    view->handlePenMove(150, 350);
    EXPECT_FALSE(view->mScroller.isMoving());
}

// The worker and the bus handlers hold the view's mutex, which is not recursive.
TEST_F(WordScrollTest, PensAndClicksLeaveTheLockToTheirCallers) {
    const auto view = openView(320, 480, 20000);
    ASSERT_EQ(pthread_mutex_trylock(view->mutex()), 0);
    view->handlePenDown(100, 300);
    view->handlePenMove(100, 250);
    view->handlePenUp(100, 200);
    EXPECT_EQ(view->mScroll.y, 100);
    EXPECT_FALSE(view->handleClick(100, 200));
    EXPECT_EQ(pthread_mutex_trylock(view->mutex()), EBUSY);
    pthread_mutex_unlock(view->mutex());
}

TEST_F(WordScrollTest, ShortTextIsHeldInTheView) {
    const auto view = openView(320, 480, 200);
    scrollBy(*view, 300);
    EXPECT_EQ(view->mScroll.y, 0);
    scrollBy(*view, -500);
    EXPECT_EQ(view->mScroll.y, 200 - 480);
    calls();
    view->tick();
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(WordScrollTest, GlideAdvancesTheViewAndTheStretch) {
    const TestClock clock;
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1000);
    notifications(*view);
    view->handleFlick(0, -862); // ends 430 rows further down
    EXPECT_TRUE(view->tick());
    calls();
    TestClock::advance(0.2);
    EXPECT_TRUE(view->tick());
    EXPECT_EQ(view->mScroll.y, 1081); // 1000 + 431 * 0.2 - 107.8 * 0.04
    EXPECT_THAT(calls(), ElementsAre(BOTTOM_RIGHT, "wtg_scroll_down(0, 520)", LAST_USED));
    TestClock::advance(10.0);
    EXPECT_FALSE(view->tick());
    EXPECT_EQ(view->mScroll.y, 1430);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED, _INVALIDATED, _INVALIDATED, _INVALIDATED));
    EXPECT_FALSE(view->tick());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(WordScrollTest, GlideGoesOnThroughANewCountOfRows) {
    const TestClock clock;
    const auto view = openAt(320, 480, 20000, 5000);
    view->handleFlick(0, 862);
    TestClock::advance(0.2);
    view->tick();
    EXPECT_EQ(view->firstTextRow(), 5000) << "held while the text above comes in";
    TestClock::advance(10.0);
    view->tick();
    EXPECT_NEAR(static_cast<double>(view->firstTextRow()), 5000 - 430, 1.0);
}

TEST_F(WordScrollTest, PaintMakesGoodWhatABigLeapLeft) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 3000);
    view->handlePenDown(100, 0);
    view->handlePenMove(100, 1500);
    EXPECT_GT(view->whiteRows(), 0);
    calls();
    EXPECT_FALSE(view->tick());
    EXPECT_EQ(view->whiteRows(), 0);
    EXPECT_EQ(view->mScroll.y, 1500);
    EXPECT_THAT(notifications(*view).size(), 15) << "only those of the pen ups";
}

TEST_F(WordScrollTest, KeysMoveWithoutHoldingAndPaintsLeaveThat) {
    const auto view = openView(320, 480, 20000);
    view->handleKeyDown('w', 0);
    paint(*view);
    EXPECT_EQ(view->mScroll.y, -5);
}

TEST_F(WordScrollTest, CoordinatesOutOfAnyRangeAreSurvived) {
    const auto view = openView(320, 480, 3000);
    for (const int y : {INT_MAX, INT_MIN, 0, INT_MIN, INT_MAX}) {
        view->handlePenDown(y, y);
        view->handlePenMove(y / 3, y / 2);
        view->handlePenUp(y, 0);
        view->handleDoubleClick(y, y);
        view->handleClick(y, y);
        paint(*view);
        EXPECT_LE(view->mStretch.used(), view->mStretch.size().height);
    }
}

} // namespace
