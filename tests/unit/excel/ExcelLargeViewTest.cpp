// SPDX-License-Identifier: Apache-2.0
// The cells' surface of views that 1500 pixels cannot cover.
#include "tests/unit/excel/ExcelTest.h"

namespace {

class ExcelLargeViewTest : public ExcelTest {
protected:
    static CpPoint cellsOf(int width, int height) {
        const auto view = openView(width, height);
        return {view->mCells->Width(), view->mCells->Height()};
    }
};

TEST_F(ExcelLargeViewTest, OnlyTheAxisThatIsTooLongGetsALongerSurface) {
    EXPECT_EQ(cellsOf(1500, 1500), CpPoint(1500, 1500));
    EXPECT_EQ(cellsOf(1080, 1920), CpPoint(1500, 2400));
    EXPECT_EQ(cellsOf(1920, 1080), CpPoint(2400, 1500));
    EXPECT_EQ(cellsOf(2160, 3840), CpPoint(2700, 4800));
}

TEST_F(ExcelLargeViewTest, SurfaceIsAQuarterLongerThanTheViewAndEven) {
    EXPECT_EQ(cellsOf(1501, 100), CpPoint(1878, 1500)); // 1876.25
    EXPECT_EQ(cellsOf(1600, 100), CpPoint(2000, 1500));
    EXPECT_EQ(cellsOf(1601, 100), CpPoint(2002, 1500)); // 2001.25
}

TEST_F(ExcelLargeViewTest, SurfaceTakes64MebibytesAtMost) {
    EXPECT_EQ(cellsOf(4096, 4096), CpPoint(4096, 4096)) << "covers the view, without room around it";
    EXPECT_EQ(cellsOf(6000, 1000), CpPoint(7500, 1500));
    EXPECT_EQ(cellsOf(10000, 1000), CpPoint(10000, 1500)) << "12500 x 1500 is too large";
    EXPECT_EQ(cellsOf(16384, 1000), CpPoint(4096, 1500)) << "cannot be covered";
}

TEST_F(ExcelLargeViewTest, WindowIsCentredOnTheView) {
    const auto view = openView(1080, 1920);
    view->restAt(3000, 4000);
    EXPECT_EQ(window(*view), CpRect(3000 - 750 + 540, 4000 - 1200 + 960, 4290, 6160));
}

TEST_F(ExcelLargeViewTest, ModuleGetsTheSizesOfBothAxes) {
    const auto view = openView(1080, 1920);
    calls();
    view->resizeDocument();
    const auto asked = calls();
    EXPECT_THAT(asked, testing::Contains("stg_set_offscreen_buffer(0, 1500, 2400)"));
    EXPECT_THAT(asked, testing::Contains("stg_set_row_offscreen_buffer(0, 60, 2400)"));
    EXPECT_THAT(asked, testing::Contains("stg_set_column_offscreen_buffer(0, 1500, 30)"));
}

TEST_F(ExcelLargeViewTest, ViewIsPaintedFromEdgeToEdge) {
    for (const CpPoint size : {CpPoint(1086, 1926), CpPoint(1926, 1086), CpPoint(2164, 3844)}) {
        const auto view = openView(size.x, size.y);
        for (const CpPoint at : {CpPoint(0, 0), CpPoint(1011, 2017), CpPoint(1800, 4000)}) {
            view->restAt(at.x, at.y);
            expectSheet(*view, paint(*view), 7); // the last row and column included
        }
    }
}

} // namespace
