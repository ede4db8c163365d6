// SPDX-License-Identifier: Apache-2.0
// Strokes that begin on the headers.
#include "tests/unit/excel/ExcelTest.h"

namespace {

const std::string SELECTION_COLOUR = "stg_set_highlight_color(255, 245, 104)";
const std::string MARKS_ASKED = "stg_get_comment_marks_rects(0)";
constexpr uint32_t WIPED = 0xFFCCCCCC;
constexpr uint32_t GUIDE = 0x88000000;

class ExcelHeaderStrokeTest : public ExcelTest {
protected:
    static std::unique_ptr<TestExcel> openAt(int x, int y, bool resizes = false) {
        auto view = openView();
        view->restAt(x, y);
        paint(*view);
        view->setResizeMode(resizes);
        calls();
        return view;
    }
    static void stroke(TestExcel& view, const CpPoint& from, const CpPoint& to) {
        EXPECT_TRUE(view.handlePenDown(from.x, from.y));
        EXPECT_TRUE(view.handlePenUp(to.x, to.y));
    }
    static uint32_t pixelOf(const CpPixmap& strip, int x, int y) {
        return strip.Pixels()[y * strip.Width() + x];
    }
    static bool anyFlag(const TestExcel& view) {
        return view.mStroke.resizesColumn || view.mStroke.resizesRow || view.mStroke.selectsColumns ||
               view.mStroke.selectsRows;
    }
};

TEST_F(ExcelHeaderStrokeTest, StrokeOverColumnsSelectsThem) {
    const auto view = openAt(100, 50);
    stroke(*view, {70, 10}, {200, 25});
    EXPECT_THAT(calls(), ElementsAre("stg_cell_bounds(0, 110, 0)", SELECTION_COLOUR,
                                     "stg_select_column(0, 110, 240)"));
    EXPECT_EQ(view->mSelection, CpRect(110, 0, 240, 0));
    EXPECT_TRUE(view->mSelectionActive);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_FALSE(anyFlag(*view));
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED, _TRACKS_SELECTED)) << "columns 1 to 3";
}

TEST_F(ExcelHeaderStrokeTest, StrokeInsideOneColumnIsOneColumn) {
    const auto view = openAt(100, 50);
    stroke(*view, {70, 10}, {76, 10});
    EXPECT_EQ(view->mSelection, CpRect(110, 0, 116, 0));
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED, _COLUMN_SELECTED));
    stroke(*view, {70, 10}, {150, 10}); // from 110 to 190
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED, _TRACKS_SELECTED)) << "two are more";
}

TEST_F(ExcelHeaderStrokeTest, StrokesToTheLeftAndUpAreOrdered) {
    const auto view = openAt(100, 50);
    stroke(*view, {200, 10}, {70, 10});
    EXPECT_EQ(calls().back(), "stg_select_column(0, 110, 240)");
    EXPECT_EQ(view->mSelection, CpRect(110, 0, 240, 0));
    stroke(*view, {10, 200}, {10, 100});
    EXPECT_EQ(calls().back(), "stg_select_row(0, 120, 220)");
    EXPECT_EQ(view->mSelection, CpRect(0, 120, 0, 220));
}

TEST_F(ExcelHeaderStrokeTest, StrokeOverRowsSelectsThem) {
    const auto view = openAt(100, 50);
    stroke(*view, {10, 100}, {55, 200});
    EXPECT_THAT(calls(),
                ElementsAre("stg_cell_bounds(0, 0, 120)", SELECTION_COLOUR, "stg_select_row(0, 120, 220)"));
    EXPECT_EQ(view->mSelection, CpRect(0, 120, 0, 220));
    EXPECT_TRUE(view->mSelectionActive);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED, _TRACKS_SELECTED));
    stroke(*view, {10, 100}, {10, 106});
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED, _TRACKS_SELECTED)) << "also for one row";
}

TEST_F(ExcelHeaderStrokeTest, FivePixelsSelectNothing) {
    const auto view = openAt(100, 50);
    for (const int way : {-5, 0, 5}) {
        stroke(*view, {100, 10}, {100 + way, 200});
        stroke(*view, {10, 100}, {200, 100 + way});
    }
    EXPECT_FALSE(view->mSelectionActive);
    EXPECT_FALSE(view->mOffscreenDirty);
    EXPECT_EQ(view->mScroll, CpPoint(100, 50));
    EXPECT_THAT(notifications(*view), IsEmpty());
    stroke(*view, {100, 10}, {94, 10});
    EXPECT_TRUE(view->mSelectionActive);
}

TEST_F(ExcelHeaderStrokeTest, SelectingStrokesDoNotScroll) {
    const auto view = openAt(100, 50);
    view->handlePenDown(70, 10);
    EXPECT_TRUE(view->mStroke.selectsColumns);
    EXPECT_TRUE(view->handlePenMove(10, 5));
    EXPECT_EQ(view->mScroll, CpPoint(100, 50));
    view->handlePenUp(70, 10);
    view->handlePenDown(10, 100);
    EXPECT_TRUE(view->mStroke.selectsRows);
    view->handlePenMove(5, 50);
    EXPECT_EQ(view->mScroll, CpPoint(100, 50));
}

TEST_F(ExcelHeaderStrokeTest, TapDuringTheStrokeUsesItUp) {
    const auto view = openAt(100, 50);
    view->handlePenDown(70, 10);
    view->mClicked = true;
    view->handlePenUp(200, 10);
    EXPECT_FALSE(view->mSelectionActive);
    EXPECT_FALSE(view->mClicked);
    EXPECT_FALSE(anyFlag(*view));
    view->handlePenDown(10, 100);
    view->mClicked = true;
    view->handlePenUp(10, 200);
    EXPECT_FALSE(view->mSelectionActive);
}

TEST_F(ExcelHeaderStrokeTest, FlickDuringTheStrokeDoesNotStopTheSelection) {
    const auto view = openAt(100, 50);
    view->handlePenDown(70, 10);
    view->mFlicking = true;
    view->handlePenUp(200, 10);
    EXPECT_TRUE(view->mSelectionActive);
}

TEST_F(ExcelHeaderStrokeTest, BorderBehindTheMiddleResizesTheColumnItself) {
    const auto view = openAt(0, 0, true);
    stroke(*view, {200, 10}, {230, 300}); // 140 in the column from 80 to 160
    EXPECT_THAT(calls(),
                ElementsAre("stg_cell_bounds(0, 140, 0)", "stg_resize_column(0, 140, 30)", MARKS_ASKED));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_FALSE(anyFlag(*view));
    EXPECT_FALSE(view->mSelectionActive);
    EXPECT_THAT(notifications(*view), ElementsAre(_TRACK_RESIZED, _INVALIDATED));
}

TEST_F(ExcelHeaderStrokeTest, BorderBeforeTheMiddleResizesTheOneBefore) {
    const auto view = openAt(0, 0, true);
    stroke(*view, {150, 10}, {130, 10}); // 90
    EXPECT_THAT(calls(),
                ElementsAre("stg_cell_bounds(0, 90, 0)", "stg_resize_column(0, 79, -20)", MARKS_ASKED));
    stroke(*view, {179, 10}, {180, 10});
    EXPECT_EQ(calls().at(1), "stg_resize_column(0, 79, 1)");
    stroke(*view, {180, 10}, {181, 10}); // the middle itself
    EXPECT_EQ(calls().at(1), "stg_resize_column(0, 120, 1)");
}

TEST_F(ExcelHeaderStrokeTest, RowsAreResizedLikewise) {
    const auto view = openAt(100, 50, true);
    stroke(*view, {10, 100}, {300, 140}); // 120, in the row from 120 to 160
    EXPECT_THAT(calls(),
                ElementsAre("stg_cell_bounds(0, 0, 120)", "stg_resize_row(0, 119, 40)", MARKS_ASKED));
    EXPECT_THAT(notifications(*view), ElementsAre(_TRACK_RESIZED, _INVALIDATED));
    EXPECT_TRUE(view->mOffscreenDirty);
    stroke(*view, {10, 120}, {10, 119}); // 140
    EXPECT_EQ(calls().at(1), "stg_resize_row(0, 140, -1)");
}

TEST_F(ExcelHeaderStrokeTest, StrokeThatEndsWhereItBeganChangesNothingButIsTold) {
    const auto view = openAt(100, 50, true);
    stroke(*view, {200, 10}, {200, 99});
    EXPECT_THAT(calls(), ElementsAre("stg_cell_bounds(0, 240, 0)"));
    EXPECT_FALSE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_TRACK_RESIZED, _INVALIDATED));
    stroke(*view, {10, 200}, {99, 200});
    EXPECT_THAT(calls(), ElementsAre("stg_cell_bounds(0, 0, 220)"));
    EXPECT_THAT(notifications(*view), ElementsAre(_TRACK_RESIZED, _INVALIDATED));
}

TEST_F(ExcelHeaderStrokeTest, ResizeModeDoublesTheHeadersDepth) {
    const auto view = openAt(0, 0, true);
    const auto grabs = [&](int x, int y) {
        view->handlePenDown(x, y);
        const char grabbed = view->mStroke.resizesColumn ? 'c' : view->mStroke.resizesRow ? 'r' : '-';
        view->handlePenUp(x, y);
        return grabbed;
    };
    EXPECT_EQ(grabs(200, 59), 'c');
    EXPECT_EQ(grabs(200, 60), '-');
    EXPECT_EQ(grabs(119, 100), 'r');
    EXPECT_EQ(grabs(120, 100), '-');
    EXPECT_EQ(grabs(61, 31), 'c') << "columns first";
    EXPECT_EQ(grabs(60, 31), 'r');
    EXPECT_EQ(grabs(60, 30), '-');
    EXPECT_EQ(grabs(200, -40), 'c');
    view->setResizeMode(false);
    EXPECT_EQ(grabs(200, 10), '-') << "selects";
    view->handlePenDown(200, 29);
    EXPECT_TRUE(view->mStroke.selectsColumns);
    view->handlePenUp(200, 29);
    view->handlePenDown(200, 30);
    EXPECT_FALSE(anyFlag(*view));
}

TEST_F(ExcelHeaderStrokeTest, GuideFollowsThePenInTheColumnHeaders) {
    const auto view = openAt(0, 0, true);
    view->handlePenDown(150, 10);
    const CpPixmap& strip = *view->mColumnHeaders;
    view->handlePenMove(160, 20);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
    for (const int y : {0, 15, 29}) {
        EXPECT_EQ(pixelOf(strip, 90, y), blended(fakeColumnHeaderPixel(90, y), WIPED));
        EXPECT_EQ(pixelOf(strip, 100, y), blended(fakeColumnHeaderPixel(100, y), GUIDE));
        EXPECT_EQ(pixelOf(strip, 99, y), fakeColumnHeaderPixel(99, y));
    }
    view->handlePenUp(165, 20);
    const uint32_t first = blended(fakeColumnHeaderPixel(100, 5), GUIDE);
    EXPECT_EQ(pixelOf(strip, 100, 5), blended(first, WIPED));
    EXPECT_EQ(pixelOf(strip, 105, 5), blended(fakeColumnHeaderPixel(105, 5), GUIDE));
    EXPECT_EQ(calls().at(1), "stg_resize_column(0, 79, 15)") << "from where it began";
}

TEST_F(ExcelHeaderStrokeTest, GuideFollowsThePenInTheRowHeaders) {
    const auto view = openAt(0, 0, true);
    view->handlePenDown(10, 150);
    const CpPixmap& strip = *view->mRowHeaders;
    view->handlePenMove(20, 160);
    for (const int x : {0, 30, 59}) {
        EXPECT_EQ(pixelOf(strip, x, 120), blended(fakeRowHeaderPixel(x, 120), WIPED));
        EXPECT_EQ(pixelOf(strip, x, 130), blended(fakeRowHeaderPixel(x, 130), GUIDE));
        EXPECT_EQ(pixelOf(strip, x, 129), fakeRowHeaderPixel(x, 129));
    }
    view->handlePenMove(20, 150);
    const uint32_t first = blended(fakeRowHeaderPixel(5, 130), GUIDE);
    EXPECT_EQ(pixelOf(strip, 5, 130), blended(first, WIPED));
}

TEST_F(ExcelHeaderStrokeTest, GuidePlacesAreTakenForPixelsOfTheStrip) {
    const auto view = openAt(1000, 2000, true); // the window of cells begins at 410
    view->handlePenDown(150, 10);
    view->handlePenMove(160, 20);
    EXPECT_EQ(pixelOf(*view->mColumnHeaders, 1100, 3), blended(fakeColumnHeaderPixel(410 + 1100, 3), GUIDE));
}

TEST_F(ExcelHeaderStrokeTest, FlagsAreHonouredWithoutThePenDown) {
    const auto view = openAt(0, 0, true);
    view->handlePenDown(200, 10);
    view->mPenDown = false;
    view->handlePenMove(210, 10);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
    view->handlePenUp(220, 10);
    EXPECT_EQ(calls().at(1), "stg_resize_column(0, 140, 20)");
    view->setResizeMode(false);
    view->handlePenDown(70, 10);
    view->mPenDown = false;
    view->handlePenUp(200, 10);
    EXPECT_TRUE(view->mSelectionActive);
}

TEST_F(ExcelHeaderStrokeTest, PinchDuringAStrokeHoldsTheGuideOnly) {
    const auto view = openAt(0, 0, true);
    view->handlePenDown(200, 10);
    view->handleGestureStart(1.0, 0.0);
    view->handlePenMove(210, 10);
    EXPECT_EQ(pixelOf(*view->mColumnHeaders, 150, 3), fakeColumnHeaderPixel(150, 3));
    view->handlePenUp(220, 10);
    EXPECT_EQ(calls().at(1), "stg_resize_column(0, 140, 20)");
    EXPECT_FALSE(anyFlag(*view));
}

TEST_F(ExcelHeaderStrokeTest, NoWidthAndHugeWidthsAreTheModulesToJudge) {
    const auto view = openAt(0, 0, true);
    stroke(*view, {200, 10}, {120, 10}); // all of the column
    EXPECT_EQ(calls().at(1), "stg_resize_column(0, 140, -80)");
    stroke(*view, {200, 10}, {100200, 10});
    EXPECT_EQ(calls().at(1), "stg_resize_column(0, 140, 100000)");
    stroke(*view, {10, 120}, {10, -99880});
    EXPECT_EQ(calls().at(1), "stg_resize_row(0, 79, -100000)");
    paint(*view);
}

TEST_F(ExcelHeaderStrokeTest, PlacesFarOutsideSaturate) {
    const auto view = openAt(100, 50);
    view->handlePenDown(70, 10);
    view->handlePenUp(INT_MAX, 10);
    EXPECT_EQ(view->mSelection, CpRect(110, 0, INT_MAX, 0));
    view->setResizeMode(true);
    view->handlePenDown(70, 10);
    view->handlePenUp(INT_MIN, 10);
    EXPECT_EQ(calls().end()[-2], "stg_resize_column(0, 79, -2147483648)");
}

} // namespace
