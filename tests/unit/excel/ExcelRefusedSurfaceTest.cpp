// SPDX-License-Identifier: Apache-2.0
// A module that refuses a surface, for example without a free descriptor.
#include "tests/unit/excel/ExcelTest.h"

namespace {

constexpr int NO_ROOM = 15;

class ExcelRefusedSurfaceTest : public ExcelTest {};

TEST_F(ExcelRefusedSurfaceTest, OfAHeaderStripLeavesTheStripBefore) {
    const auto view = openView();
    fakeSheet().nextResults["stg_set_row_offscreen_buffer"] = {NO_ROOM};
    fakeSheet().nextResults["stg_set_column_offscreen_buffer"] = {NO_ROOM};
    view->handleDoubleClick(100, 100);
    EXPECT_EQ(view->corner(), CpPoint(ROW_HEADER_WIDTH, COLUMN_HEADER_HEIGHT));
    paint(*view);
    EXPECT_EQ(view->mRowHeaders->Pixels()[0] >> 28, 3U) << "painted";
    EXPECT_EQ(view->mColumnHeaders->Pixels()[0] >> 28, 2U);

    view->handleDoubleClick(100, 100);
    EXPECT_LT(view->corner().x, ROW_HEADER_WIDTH) << "the next one is tried again";
    paint(*view);
    EXPECT_EQ(view->mRowHeaders->Pixels()[0] >> 28, 3U);
}

TEST_F(ExcelRefusedSurfaceTest, EverySecondOneIsSurvived) {
    const auto view = openView();
    for (int i = 0; i < 6; ++i) {
        if (i % 2 == 0) {
            fakeSheet().nextResults["stg_set_row_offscreen_buffer"] = {NO_ROOM};
            fakeSheet().nextResults["stg_set_column_offscreen_buffer"] = {NO_ROOM};
        }
        view->handleDoubleClick(100, 100);
        paint(*view);
        EXPECT_EQ(view->mRowHeaders->Pixels()[0] >> 28, 3U);
    }
}

TEST_F(ExcelRefusedSurfaceTest, OfTheCellsAtOpenIsReportedAndTheViewWorksWithoutIt) {
    fakeSheet().nextResults["stg_set_offscreen_buffer"] = {NO_ROOM};
    const auto view = makeView();
    EXPECT_EQ(view->openFile("/d/book.xls", nullptr), NO_ROOM);
    EXPECT_EQ(view->mDocPixmap, nullptr);
    view->handleDoubleClick(100, 100);
    view->handleFlick(0, -500);
    view->tick();
    EXPECT_EQ(view->doSearch("x"), "{ \"resultcount\": 0 }");
    Frame picture = paint(*view);
    view->SaveStateToDataStore();
}

} // namespace
