// SPDX-License-Identifier: Apache-2.0
// Double taps.
#include "tests/unit/excel/ExcelTest.h"

namespace {

class ExcelZoomTest : public ExcelTest {};

TEST_F(ExcelZoomTest, StepsGoRoundWithoutTheFirstZoom) {
    const auto view = openView();
    for (const double scale : {3.25, 1.75, 2.5, 3.25, 1.75}) {
        EXPECT_TRUE(view->handleDoubleClick(100, 100));
        EXPECT_EQ(view->mScale, scale);
        EXPECT_TRUE(view->mClicked);
    }
    EXPECT_EQ(view->mScaleLevel, 0);
}

TEST_F(ExcelZoomTest, TappedPointComesToTheMiddleOfTheCells) {
    const auto view = openView();
    view->mScroll.set(1000, 2000);
    view->handleDoubleClick(200, 130);
    // ratio 1.625: 1.625 * (1000 + 200 - 60) - 0.5 * (320 - 97.5), and so on
    EXPECT_EQ(view->mScroll, CpPoint(1741, 3196));
    EXPECT_EQ(view->corner(), CpPoint(97, 48));
    // Its new place: the middle of the area beside the headers.
    EXPECT_NEAR(1140 * 1.625 - view->mScroll.x + 97, 97 + (320 - 97) / 2, 1.0);
    EXPECT_NEAR(2100 * 1.625 - view->mScroll.y + 48, 48 + (480 - 48) / 2, 1.0);
}

TEST_F(ExcelZoomTest, PositionIsCutTowardZero) {
    const auto view = openView();
    view->mScroll.set(1001, 2001);
    view->handleDoubleClick(200, 130);
    EXPECT_EQ(view->mScroll, CpPoint(1742, 3198)); // 1742.875, 3198.5
}

TEST_F(ExcelZoomTest, TapNearTheStartStaysAtTheStart) {
    const auto view = openView();
    view->handleDoubleClick(70, 40);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
}

TEST_F(ExcelZoomTest, LimitsAreThoseOfTheZoomedSheet) {
    const auto view = openView();
    view->mScroll.set(3740, 7550);
    view->handleDoubleClick(319, 479);
    EXPECT_EQ(view->mScroll, CpPoint(97 + 6500 - 320, 48 + 13000 - 480)) << "97.5 and 48.75 are cut";
}

TEST_F(ExcelZoomTest, SheetThatBecomesSmallerThanTheScreenGoesToItsStart) {
    fakeSheet().sheets[0].columns = 4; // 320 pixels
    const auto view = openView();
    view->mScaleLevel = 2;
    view->mScroll.set(30, 100);
    view->handleDoubleClick(319, 100);
    EXPECT_EQ(view->mScale, 1.75);
    EXPECT_EQ(view->mScroll.x, 12) << "52.5 + 280 - 320";
    fakeSheet().sheets[0].columns = 1;
    view->resizeDocument();
    view->mScroll.set(30, 100);
    view->handleDoubleClick(319, 100);
    EXPECT_EQ(view->mScroll.x, 0);
}

TEST_F(ExcelZoomTest, WindowIsMovedBeforeTheModuleIsToldTheZoom) {
    const auto view = openView();
    view->mOffscreenDirty = false;
    view->mScroll.set(1000, 2000);
    view->handleDoubleClick(200, 130);
    EXPECT_THAT(calls(),
                ElementsAre("stg_set_offscreen_buffer(0, 1500, 1500)", "stg_set_dpi(234)",
                            "stg_get_sheet_dimensions(0)", "stg_cell_bounds(0, -1, -1)",
                            "stg_get_comment_marks_rects(0)", "stg_set_row_offscreen_buffer(0, 97, 1500)",
                            "stg_set_column_offscreen_buffer(0, 1500, 48)"));
    EXPECT_EQ(window(*view), CpRect(1151, 2686, 2651, 4186));
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
}

TEST_F(ExcelZoomTest, HitsAreFetchedAgain) {
    fakeSheet().hits = {{0, 100, 100, 40, 20}};
    const auto view = openView();
    view->doSearch("x");
    calls();
    view->handleDoubleClick(200, 130);
    EXPECT_EQ(calls().back(), "stg_get_found_regions()");
}

TEST_F(ExcelZoomTest, NothingDuringAPinch) {
    const auto view = openView();
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handleDoubleClick(100, 100));
    EXPECT_EQ(view->mScale, 2.0);
    EXPECT_FALSE(view->mClicked);
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

} // namespace
