// SPDX-License-Identifier: Apache-2.0
// The size of the layout, and the effect of wide mode, double taps and pinches on it.
#include "tests/unit/word/WordTest.h"

namespace {

TextStretch::Size sizeOf(const TestWord& view) {
    return view.mStretch.size();
}

std::string setBuffer(int width, int height) {
    return "wtg_set_offscreen_buffer(0, " + std::to_string(width) + ", " + std::to_string(height) + ")";
}
const std::string BOTTOM_RIGHT = "wtg_get_bottom_right_character(0)";
const std::string TOP_LEFT = "wtg_get_top_left_character(0)";
const std::string LAST_USED = "wtg_get_vertical_last_used_pixel(0)";

class WordLayoutTest : public WordTest {};

TEST_F(WordLayoutTest, SurfaceHoldsHalfAMillionPixels) {
    struct {
        int width, height, rows, step;
    } const cases[] = {
        {320, 480, 1562, 520}, {300, 480, 1666, 555}, {480, 320, 1042, 347}, {64, 64, 7812, 2604}};
    for (const auto& c : cases) {
        const auto view = openView(c.width, c.height, 20000);
        EXPECT_EQ(sizeOf(*view).width, c.width);
        EXPECT_EQ(sizeOf(*view).height, c.rows) << c.width;
        EXPECT_EQ(sizeOf(*view).step, c.step) << c.width;
    }
}

TEST_F(WordLayoutTest, LargeViewsGetHalfAViewMore) {
    const auto view = openView(1080, 1921, 20000);
    EXPECT_EQ(sizeOf(*view).height, 2882) << "(3 * 1921 + 1) / 2, made even";
    EXPECT_EQ(sizeOf(*view).step, 960);
    EXPECT_EQ(sizeOf(*openView(480, 800, 20000)).height, 1042) << "over 5/4 of the view: as always";
}

TEST_F(WordLayoutTest, ViewsAreLargeFromFiveQuartersOfTheSurfaceOn) {
    EXPECT_EQ(sizeOf(*openView(500, 800, 20000)).height, 1000) << "5/4 exactly";
    EXPECT_EQ(sizeOf(*openView(500, 801, 20000)).height, 1202);
    EXPECT_EQ(sizeOf(*openView(500, 801, 20000)).step, 400);
}

TEST_F(WordLayoutTest, OddSizesAreMadeEvenAfterTheStepIsTaken) {
    const auto odd = openView(321, 480, 5000); // 1557.6 rows of 321
    EXPECT_EQ(sizeOf(*odd).width, 322);
    EXPECT_EQ(sizeOf(*odd).height, 1558);
    const auto step = openView(479, 480, 5000); // 1043.8 rows
    EXPECT_EQ(sizeOf(*step).height, 1044);
    EXPECT_EQ(sizeOf(*step).step, 347) << "a third of 1043, not of 1044";
}

TEST_F(WordLayoutTest, FractionsOfALayoutAreCutOff) {
    const auto view = openView(321, 400, 20000);
    view->setWideMode(true);
    view->handleGestureStart(1.51, 0.0);
    paint(*view);
    calls();
    view->handleGestureEnd(0.0, 0.0);
    // 3.02 * 321 = 969.42 columns, 500000 / 969.42 = 515.8 rows, 1.51 * 72 = 108.7
    const std::vector<std::string> asked = calls();
    EXPECT_EQ(asked[0], setBuffer(970, 516));
    EXPECT_EQ(asked[1], "wtg_set_dpi(108)");
    EXPECT_EQ(sizeOf(*view).step, 171);
}

TEST_F(WordLayoutTest, OpeningLaysOutOnceInThisOrder) {
    fakeWord().rows = 20000;
    const auto view = makeView();
    EXPECT_EQ(view->openFile("/d/text.doc", "secret"), 0);
    EXPECT_THAT(calls(),
                ElementsAre("wtg_open_file(\"/d/text.doc\", \"secret\", \"/usr/share/fonts\", \"/tmp\")",
                            "wtg_get_character_count(0)", setBuffer(320, 1562), "wtg_set_dpi(72)",
                            BOTTOM_RIGHT));
    EXPECT_EQ(fakeWord().layouts, 1);
    EXPECT_EQ(view->top(), 0);
    EXPECT_EQ(view->bottom(), 1562);
}

TEST_F(WordLayoutTest, TextShorterThanTheSurfaceEndsItsBounds) {
    const auto view = openView(320, 480, 700);
    EXPECT_EQ(view->bottom(), 700);
    view->resizeDocument();
    EXPECT_THAT(calls(), ElementsAre(setBuffer(320, 1562), "wtg_set_dpi(72)", BOTTOM_RIGHT, LAST_USED));
}

TEST_F(WordLayoutTest, WideModeIsTwiceTheZoomWide) {
    const auto view = openView(320, 480, 20000);
    view->mScroll.set(3, 100);
    view->setWideMode(true);
    EXPECT_THAT(calls(), ElementsAre(setBuffer(640, 782), "wtg_set_dpi(72)", BOTTOM_RIGHT));
    EXPECT_EQ(sizeOf(*view).step, 260);
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_EQ(view->mScroll.y, 0);
    view->setWideMode(false);
    EXPECT_EQ(sizeOf(*view).width, 320);
}

TEST_F(WordLayoutTest, WideModeEndsAGlideAndADragsMemory) {
    const auto view = openView(320, 480, 20000);
    view->handlePenDown(10, 400);
    view->handlePenMove(10, 100);
    view->handleFlick(0, -500);
    view->setWideMode(true);
    EXPECT_FALSE(view->mScroller.isMoving());
    view->handlePenMove(10, 400);
    EXPECT_EQ(view->mScroll.y, 0);
}

TEST_F(WordLayoutTest, SurfaceStaysWithin64MebibytesAtTheLargestZoomThatFits) {
    const auto view = openView(1600, 2000, 20000);
    view->setWideMode(true);
    EXPECT_EQ(view->mScale, 1.0);
    view->handleDoubleClick(0, 0);
    EXPECT_LT(view->mScale, 3.0);
    EXPECT_LE(int64_t{sizeOf(*view).width} * sizeOf(*view).height * 4, 64 << 20);
    EXPECT_GT(int64_t{sizeOf(*view).width + 2} * sizeOf(*view).height * 4, 64 << 20);
    EXPECT_EQ(view->whiteRows(), 0);
    view->setWideMode(false);
    EXPECT_EQ(sizeOf(*view).width, 1600);
}

TEST_F(WordLayoutTest, PinchPreviewStopsAtTheZoomThatTheFinalPictureHas) {
    const auto view = openView(1600, 2000, 20000);
    view->setWideMode(true);
    paint(*view);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(4.0, 0.0);
    paint(*view);
    const double shown = view->mGestureAppliedScale;
    const int row = view->mGestureScroll.y;
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_GT(shown, 1.0);
    EXPECT_LT(shown, 3.0);
    EXPECT_DOUBLE_EQ(view->mScale, shown);
    EXPECT_EQ(view->mScroll.y, row) << "the picture does not jump";
    EXPECT_LE(int64_t{sizeOf(*view).width} * sizeOf(*view).height * 4, 64 << 20);

    paint(*view);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(2.0, 0.0);
    paint(*view);
    EXPECT_DOUBLE_EQ(view->mGestureAppliedScale, 1.0) << "there is no larger one";
}

TEST_F(WordLayoutTest, DoubleTapsCycleTheZoom) {
    const auto view = openView(320, 480, 20000);
    for (const int zoom : {3, 1, 2, 3}) {
        fakeWord().calls.clear();
        view->mDirty = false;
        EXPECT_TRUE(view->handleDoubleClick(10, 10));
        EXPECT_TRUE(view->mDirty);
        EXPECT_EQ(view->mScale, zoom);
        EXPECT_EQ(fakeWord().layout.dpi, zoom * 72);
    }
    EXPECT_TRUE(view->mClicked);
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(WordLayoutTest, DoubleTapCentresTheTappedPoint) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 100);
    fakeWord().calls.clear();
    view->mScroll.x = 9;
    view->handleDoubleClick(50, 200);
    EXPECT_EQ(view->mScroll.y, (100 + 200) * 3 - 240);
    EXPECT_EQ(view->mScroll.x, 0) << "outside wide mode the width stays";
    EXPECT_THAT(calls(), ElementsAre(setBuffer(320, 1562), "wtg_set_dpi(216)", BOTTOM_RIGHT));
    EXPECT_EQ(fakeWord().layouts, 2) << "one for both the buffer and the resolution";
}

TEST_F(WordLayoutTest, DoubleTapPastTheStretchMovesIt) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 300);
    fakeWord().calls.clear();
    view->handleDoubleClick(50, 300);
    // 600 * 3 - 240 = 1560, and 1560 + 520 - 1562 = 518
    EXPECT_EQ(view->mScroll.y, 1560);
    EXPECT_THAT(calls(), ElementsAre(setBuffer(320, 1562), "wtg_set_dpi(216)", BOTTOM_RIGHT, BOTTOM_RIGHT,
                                     "wtg_scroll_down(0, 518)", LAST_USED));
    EXPECT_EQ(view->top(), 518);
    EXPECT_EQ(view->bottom(), 518 + 1562);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordLayoutTest, DoubleTapsAmountIsNeverLessThanTheView) {
    const auto view = openView(480, 800, 20000); // step 347
    view->handleDoubleClick(50, 790);
    // 790 * 3 - 400 = 1970; 1970 + 800 - 1042
    EXPECT_THAT(calls(), testing::Contains("wtg_scroll_down(0, 1728)"));
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordLayoutTest, DoubleTapsAmountUpwardsIsNeverLessThanTheViewEither) {
    const auto view = openView(480, 800, 20000);
    fakeWord().click = {7, 0, 50000, 0};
    view->handleClick(1, 1);
    calls();
    view->handleDoubleClick(50, 10); // 370 rows above the stretch
    EXPECT_THAT(calls(), testing::Contains("wtg_scroll_up(0, 800)"));
    paint(*view); // paints the rows uncovered at the other end
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordLayoutTest, DoubleTapPastTheTextsEndGoesBackToIt) {
    const auto view = openView(320, 480, 150); // 1350 rows at zoom 3
    view->handleDoubleClick(50, 450);
    EXPECT_EQ(view->mScroll.y, 1350 - 480);
    EXPECT_THAT(calls(),
                ElementsAre(setBuffer(320, 1562), "wtg_set_dpi(216)", BOTTOM_RIGHT, LAST_USED, BOTTOM_RIGHT));
}

TEST_F(WordLayoutTest, DoubleTapNearTheTopStandsAboveRowZero) {
    const auto view = openView(320, 480, 20000);
    view->handleDoubleClick(50, 10);
    EXPECT_EQ(view->mScroll.y, 30 - 240);
    EXPECT_THAT(calls(), ElementsAre(setBuffer(320, 1562), "wtg_set_dpi(216)", BOTTOM_RIGHT, TOP_LEFT));
    view->tick();
    EXPECT_EQ(view->mScroll.y, 30 - 240) << "a paint leaves it there";
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(WordLayoutTest, DoubleTapAboveAMovedStretchMovesItUp) {
    const auto view = openView(320, 480, 20000);
    fakeWord().click = {7, 0, 50000, 0};
    view->handleClick(1, 1);
    fakeWord().calls.clear();
    view->handleDoubleClick(50, 10); // 210 rows above the stretch
    EXPECT_THAT(calls(), testing::Contains("wtg_scroll_up(0, 520)"));
    EXPECT_EQ(view->top(), 0) << "rows are counted anew instead of going below 0";
    EXPECT_EQ(view->mScroll.y, 520 - 210);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordLayoutTest, DoubleTapInWideModeCentresTheColumnToo) {
    const auto view = openView(320, 480, 20000);
    view->setWideMode(true);
    view->mScroll.x = 100;
    view->handleDoubleClick(200, 200);
    EXPECT_EQ(view->mScroll.x, (100 + 200) * 3 - 160);
}

TEST_F(WordLayoutTest, DoubleTapHalvesOddViewsTowardZero) {
    const auto view = openView(321, 481, 20000);
    view->setWideMode(true);
    view->handleDoubleClick(200, 200);
    EXPECT_EQ(view->mScroll.x, 200 * 3 - 160);
    EXPECT_EQ(view->mScroll.y, 200 * 3 - 240);
}

TEST_F(WordLayoutTest, DoubleTapKeepsThePlaceOfAMovedStretch) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1100);
    ASSERT_EQ(view->top(), 520);
    view->handleDoubleClick(50, 100);
    EXPECT_EQ(view->top(), 520 * 3 + (view->mScroll.y + 520 - (520 * 3 + 1562)))
        << "top times ratio, then down to where the point is";
    EXPECT_EQ(view->mScroll.y, 1200 * 3 - 240);
}

TEST_F(WordLayoutTest, DoubleTapIsIgnoredDuringAPinch) {
    const auto view = openView(320, 480, 20000);
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handleDoubleClick(1, 1));
    EXPECT_EQ(view->mScale, 1.0);
    EXPECT_FALSE(view->mClicked);
}

TEST_F(WordLayoutTest, PinchThatEndsWhereItBeganChangesFlagsOnly) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 100);
    calls();
    notifications(*view);
    view->handlePenDown(1, 1);
    view->handleGestureStart(1.0, 0.0);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_FALSE(view->mGestureActive);
    EXPECT_FALSE(view->mPenDown);
    EXPECT_EQ(view->mScroll.y, 100);
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(WordLayoutTest, PinchEndTurnsThePictureBackWhateverItsScale) {
    for (const double scale : {1.0, 1.5}) {
        const auto view = openView(320, 480, 20000);
        view->mDrawMode = _LEFT;
        view->handleGestureStart(1.0, 0.0);
        view->handleGestureChange(scale, 0.0);
        paint(*view);
        view->handleGestureEnd(0.0, 0.0);
        EXPECT_EQ(view->mDrawMode, _NORMAL) << scale;
    }
}

TEST_F(WordLayoutTest, PinchEndTakesOverWhatWasShown) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 100);
    notifications(*view);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(2.0, 0.0);
    paint(*view);
    calls();
    view->mScroll.x = 77;
    EXPECT_TRUE(view->handleGestureEnd(0.0, 0.0));
    EXPECT_EQ(view->mScale, 2.0);
    EXPECT_EQ(view->mScroll.y, (100 + 120) * 2);
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_THAT(calls(), ElementsAre(setBuffer(320, 1562), "wtg_set_dpi(144)", BOTTOM_RIGHT));
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
}

TEST_F(WordLayoutTest, PinchEndKeepsThePlaceOfAMovedStretch) {
    const auto view = openView(320, 480, 20000);
    scrollBy(*view, 1100);
    const int top = view->top();
    const int64_t row = fakeWord().layout.top;
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(1.5, 0.0);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_EQ(view->top(), top * 3 / 2);
    EXPECT_NEAR(static_cast<double>(fakeWord().layout.top), 2.25 * static_cast<double>(row), 4.0);
    EXPECT_EQ(view->whiteRows(), 0);
}

TEST_F(WordLayoutTest, PinchThatShortensTheTextHoldsTheViewToIt) {
    const auto view = openView(320, 480, 1562);
    scrollBy(*view, 1082);
    view->handleGestureStart(0.5, 0.0);
    paint(*view);
    ASSERT_GT(view->mGestureScroll.y, 0);
    view->handleGestureEnd(0.0, 0.0);
    EXPECT_EQ(fakeWord().layout.rows, 390);
    EXPECT_EQ(view->bottom(), 390);
    EXPECT_EQ(view->mScroll.y, 0);
}

TEST_F(WordLayoutTest, BottomAfterAPinchIsTheLastRowThatIsUsed) {
    const auto view = openView(320, 480, 3000);
    scrollBy(*view, 3000);
    ASSERT_GT(view->top(), 0);
    view->handleGestureStart(0.9, 0.0);
    paint(*view);
    calls();
    view->handleGestureEnd(0.0, 0.0);
    const FakeWordLayout& text = fakeWord().layout;
    ASSERT_LT(text.rows - text.top, 1562) << "the rest of the text fits";
    EXPECT_EQ(view->bottom() - view->top(), text.rows - text.top);
    EXPECT_THAT(calls(), ElementsAre(setBuffer(320, 1562), "wtg_set_dpi(64)", BOTTOM_RIGHT, LAST_USED));
}

TEST_F(WordLayoutTest, ZoomsWithoutSenseAreSurvived) {
    const auto view = openView(320, 480, 3000);
    view->setWideMode(true);
    for (const double scale : {1e300, 1e-300, -4.0, 0.0, 1.0 / 0.0}) {
        view->handleGestureStart(scale, 0.0);
        paint(*view);
        view->handleGestureEnd(0.0, 0.0);
        EXPECT_GT(view->mScale, 0.0);
        EXPECT_LE(int64_t{sizeOf(*view).width} * sizeOf(*view).height * 4, 64 << 20);
        paint(*view);
        EXPECT_EQ(view->whiteRows(), 0) << scale;
    }
}

} // namespace
