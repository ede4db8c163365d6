// SPDX-License-Identifier: Apache-2.0
// Surfaces, the window of cells, and how far the view can go.
#include "tests/unit/excel/ExcelTest.h"

namespace {

class ExcelLayoutTest : public ExcelTest {
protected:
    // Calls clampPosition; compares the resulting position and returns its result.
    static bool clamped(const TestExcel& view, int& x, int& y, int maxX, int maxY) {
        return view.clampPosition(x, y, maxX, maxY);
    }
};

TEST_F(ExcelLayoutTest, SizingAsksTheModuleInOrder) {
    const auto view = openView();
    view->mCurrentSheet = 0;
    view->resizeDocument();
    EXPECT_THAT(calls(),
                ElementsAre("stg_set_offscreen_buffer(0, 1500, 1500)", "stg_set_dpi(144)",
                            "stg_get_sheet_dimensions(0)", "stg_cell_bounds(0, -1, -1)",
                            "stg_get_comment_marks_rects(0)", "stg_set_row_offscreen_buffer(0, 60, 1500)",
                            "stg_set_column_offscreen_buffer(0, 1500, 30)"));
}

TEST_F(ExcelLayoutTest, SizingDoesNotMarkTheCellsStale) {
    const auto view = openView();
    view->mOffscreenDirty = false;
    view->resizeDocument();
    EXPECT_FALSE(view->mOffscreenDirty);
}

TEST_F(ExcelLayoutTest, ResolutionIsCutToWholeDots) {
    const auto view = openView();
    view->mScale = 1.99;
    view->resizeDocument();
    EXPECT_EQ(fakeSheet().dpi, 143); // 143.28
    view->mScale = 3.25;
    view->resizeDocument();
    EXPECT_EQ(fakeSheet().dpi, 234);
}

TEST_F(ExcelLayoutTest, HeaderStripsAreKeptWhileTheirThicknessStays) {
    const auto view = openView();
    const CpPixmap* rows = view->mRowHeaders.get();
    const CpPixmap* columns = view->mColumnHeaders.get();
    const uint32_t* rowPixels = rows->Pixels();
    view->resizeDocument();
    EXPECT_EQ(view->mRowHeaders.get(), rows);
    EXPECT_EQ(view->mRowHeaders->Pixels(), rowPixels);
    EXPECT_EQ(view->mColumnHeaders.get(), columns);
    fakeSheet().rowHeaderWidth = 41;
    view->resizeDocument();
    EXPECT_EQ(view->mRowHeaders->Width(), 82);
    EXPECT_EQ(view->mRowHeaders->Height(), 1500);
    EXPECT_EQ(view->mColumnHeaders.get(), columns);
    fakeSheet().columnHeaderHeight = 20;
    view->resizeDocument();
    EXPECT_EQ(view->mColumnHeaders->Width(), 1500);
    EXPECT_EQ(view->mColumnHeaders->Height(), 40);
}

TEST_F(ExcelLayoutTest, HeadersWithoutSenseStayWithinTheCells) {
    const auto view = openView();
    fakeSheet().rowHeaderWidth = INT_MAX;
    fakeSheet().columnHeaderHeight = -7;
    view->resizeDocument();
    EXPECT_EQ(view->corner(), CpPoint(1500, 1));
    paint(*view);
    fakeSheet().rowHeaderWidth = INT_MIN;
    fakeSheet().columnHeaderHeight = INT_MAX;
    view->resizeDocument();
    EXPECT_EQ(view->corner(), CpPoint(1, 1500));
    paint(*view);
}

TEST_F(ExcelLayoutTest, WindowIsCentredOnTheView) {
    const auto view = openView();
    view->mScroll.set(1000, 2000);
    view->recenterDocument();
    EXPECT_EQ(window(*view), CpRect(410, 1490, 1910, 2990));
    EXPECT_EQ(view->mCells->Width(), 1500);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelLayoutTest, WindowHalvesAreWholeNumbers) {
    const auto view = openView(321, 479);
    view->mScroll.set(1000, 2000);
    view->recenterDocument();
    EXPECT_EQ(window(*view), CpRect(410, 1489, 1910, 2989));
}

TEST_F(ExcelLayoutTest, WindowDoesNotBeginBeforeTheSheet) {
    const auto view = openView();
    view->mScroll.set(589, 511);
    view->recenterDocument();
    EXPECT_EQ(window(*view), CpRect(0, 1, 1500, 1501));
    view->mScroll.set(INT_MIN, -30);
    view->recenterDocument();
    EXPECT_EQ(window(*view), CpRect(0, 0, 1500, 1500));
}

TEST_F(ExcelLayoutTest, WindowKeepsItsSizeAtTheEndOfInt) {
    const auto view = openView();
    view->mScroll.set(INT_MAX, INT_MAX - 10);
    view->recenterDocument();
    EXPECT_EQ(window(*view), CpRect(INT_MAX - 1500, INT_MAX - 1500, INT_MAX, INT_MAX));
}

TEST_F(ExcelLayoutTest, ViewBoundsAreTheScreenInTheDocument) {
    const auto view = openView();
    view->mScroll.set(7, -9);
    CpRect r;
    view->getViewDocBounds(r);
    EXPECT_EQ(r, CpRect(7, -9, 327, 471));
}

TEST_F(ExcelLayoutTest, ClampingKeepsInsideTheRange) {
    const auto view = openView();
    int x = -3;
    int y = 50;
    EXPECT_TRUE(clamped(*view, x, y, 100, 40));
    EXPECT_EQ(CpPoint(x, y), CpPoint(0, 40));
    EXPECT_FALSE(clamped(*view, x, y, 100, 40)) << "nothing left to change";
}

TEST_F(ExcelLayoutTest, ClampingOneAxisIsNotReported) {
    const auto view = openView();
    int x = 101;
    int y = 40;
    EXPECT_FALSE(clamped(*view, x, y, 100, 40));
    EXPECT_EQ(CpPoint(x, y), CpPoint(100, 40));
    y = -1;
    EXPECT_FALSE(clamped(*view, x, y, 100, 40));
    EXPECT_EQ(CpPoint(x, y), CpPoint(100, 0));
}

TEST_F(ExcelLayoutTest, NegativeMaximumMeansTheStart) {
    const auto view = openView();
    int x = -5; // a text document would stay here
    int y = 7;
    EXPECT_TRUE(clamped(*view, x, y, -20, -1));
    EXPECT_EQ(CpPoint(x, y), CpPoint(0, 0));
    EXPECT_FALSE(clamped(*view, x, y, INT_MIN, INT_MIN));
}

TEST_F(ExcelLayoutTest, LastColumnAndRowComeFullyBesideTheHeaders) {
    const auto view = openView();
    int x = 1 << 20;
    int y = 1 << 20;
    EXPECT_TRUE(view->OfficeBase::clampPosition(x, y, 0, 0));
    x = y = 1 << 20;
    EXPECT_TRUE(static_cast<const OfficeBase&>(*view).clampPosition(x, y));
    EXPECT_EQ(x, 4000 - 320 + 60);
    EXPECT_EQ(y, 8000 - 480 + 30);
}

TEST_F(ExcelLayoutTest, SheetSmallerThanTheScreenStaysAtItsTopLeft) {
    fakeSheet().sheets[0].columns = 2;
    fakeSheet().sheets[0].rows = 3;
    const auto view = openView();
    int x = 40;
    int y = -40;
    EXPECT_TRUE(static_cast<const OfficeBase&>(*view).clampPosition(x, y));
    EXPECT_EQ(CpPoint(x, y), CpPoint(0, 0));
}

TEST_F(ExcelLayoutTest, SheetsUpToTheEndOfIntAreSurvived) {
    fakeSheet().sheets[0].columns = INT_MAX;
    fakeSheet().sheets[0].rows = INT_MAX;
    const auto view = openView();
    EXPECT_EQ(view->mSheetWidth, INT_MAX);
    view->restAt(INT_MAX, INT_MAX);
    const Frame picture = paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(INT_MAX - 320 + 60, INT_MAX - 480 + 30));
    EXPECT_EQ(picture.at(0, 0), CORNER_BOX);
    view->handleDoubleClick(300, 470);
    paint(*view);
    view->handleGestureStart(1.0, 0.0);
    view->handleGestureChange(0.5, 0.0);
    paint(*view);
    view->handleGestureEnd(0.0, 0.0);
    paint(*view);
}

} // namespace
