// SPDX-License-Identifier: Apache-2.0
// The pictures of a sheet: at rest, while moving, and in the preview of a zoom.
#include "tests/unit/touch/TouchExcelTest.h"

#include <cmath>

namespace {

constexpr uint32_t PAPER = 0xFFFFFFFF;
constexpr uint32_t GRID = 0xFFC0C0C0;

TEST_F(TouchExcelTest, ShowsCellsAndHeadersAtEveryPlace) {
    const auto view = openView(320, 480);
    for (const CpPoint& place : {CpPoint(0, 0), CpPoint(1, 0), CpPoint(333, 777), CpPoint(1710, 3535)}) {
        view->scrollTo(place.x, place.y);
        expectSheet(*view, paint(*view));
    }
    EXPECT_EQ(view->mScroll.x, 1710) << "the end of the sheet, beside the headers";
    EXPECT_EQ(view->mScroll.y, 3535);
}

TEST_F(TouchExcelTest, ShowsWhatTheModulePaintsBesideASmallSheet) {
    fakeSheet().sheets[0].columns = 3;
    fakeSheet().sheets[0].rows = 4;
    const auto view = openView(320, 480);
    view->scrollTo(1000, 1000);
    EXPECT_EQ(view->mScroll.x, 0);
    EXPECT_EQ(view->mScroll.y, 0);
    expectSheet(*view, paint(*view));
}

TEST_F(TouchExcelTest, IsCoveredInEachFrameOfAGlide) {
    const auto view = openView(320, 480);
    paint(*view);
    for (const CpPoint& speed :
         {CpPoint(0, -9000), CpPoint(-9000, 0), CpPoint(3000, 30000), CpPoint(7000, 1)}) {
        view->handlePenDown(100, 200);
        view->handleFlick(speed.x, speed.y);
        view->handlePenUp(100, 200);
        for (int frame = 0; frame < 200 && view->place().isMoving; ++frame) {
            TouchClock::advance(1.0 / 60.0);
            expectSheet(*view, paint(*view), 7);
        }
        EXPECT_FALSE(view->place().isMoving);
    }
}

TEST_F(TouchExcelTest, RendersFarLessOftenThanItPaintsWhileGliding) {
    const auto view = openView(320, 480);
    paint(*view);
    fakeSheet().renders = 0;
    view->handlePenDown(100, 200);
    view->handleFlick(0, -9000);
    view->handlePenUp(100, 200);
    int frames = 0;
    for (; view->place().isMoving; ++frames) {
        TouchClock::advance(1.0 / 60.0);
        paint(*view);
    }
    EXPECT_GT(frames, 100);
    EXPECT_LE(fakeSheet().renders, 4) << "about 2970 pixels, 900 to a window";
}

TEST_F(TouchExcelTest, RendersNothingWhileTheWindowCoversTheView) {
    const auto view = openView(320, 480);
    paint(*view);
    fakeSheet().renders = 0;
    view->handlePenDown(100, 400);
    for (int y = 400; y > 0; y -= 10) {
        view->handlePenMove(100, y);
        paint(*view);
    }
    EXPECT_EQ(fakeSheet().renders, 0);
}

TEST_F(TouchExcelTest, ShowsWhatItHasAndEmptyCellsIfRenderingFails) {
    const auto view = openView(320, 480);
    view->scrollTo(0, 0);
    paint(*view);
    fakeSheet().results["stg_render_sheet"] = MODULE_FAILED;
    view->scrollTo(0, 1300); // the window ends at row 1500
    const Frame picture = paint(*view);
    EXPECT_EQ(view->renderResult(), MODULE_FAILED);
    for (int y = 15; y < 480; ++y) {
        const int row = 1300 + y - 15;
        for (int x = 30; x < 320; ++x) {
            if (row < 1500) {
                ASSERT_EQ(picture.at(x, y), fakeCellPixel(x - 30, row)) << x << ", " << y;
            } else {
                ASSERT_TRUE(picture.at(x, y) == PAPER || picture.at(x, y) == GRID) << x << ", " << y;
            }
        }
    }
    fakeSheet().results.clear();
    expectSheet(*view, paint(*view));
}

TEST_F(TouchExcelTest, ShowsEmptyCellsIfNothingWasEverRendered) {
    const auto view = openView(320, 480);
    fakeSheet().results["stg_render_sheet"] = MODULE_FAILED;
    const Frame picture = paint(*view);
    int lines = 0;
    for (int x = 30; x < 320; ++x) {
        ASSERT_TRUE(picture.at(x, 100) == PAPER || picture.at(x, 100) == GRID);
        lines += picture.at(x, 100) == GRID ? 1 : 0;
    }
    EXPECT_GE(lines, 2);
    EXPECT_LE(lines, 20);
}

// The pixel of the sheet that is shown at a point of the preview must be the one that the
// final picture shows there: the fake's pixels tell both.
TEST_F(TouchExcelTest, ThePreviewAgreesWithTheFinalPicture) {
    fakeSheet().cellWidth = 72; // the sizes grow by whole pixels with the dots per inch
    fakeSheet().cellHeight = 72;
    fakeSheet().rowHeaderWidth = 36;
    fakeSheet().columnHeaderHeight = 36;
    for (const double factor : {0.5, 0.75, 1.5, 2.0, 3.0}) {
        const auto view = openView(320, 480);
        view->scrollTo(700, 900);
        paint(*view);
        pinch(*view, 150, 200, 1.0, _PINCH_BEGINS);
        pinch(*view, 160, 230, factor, _PINCH_MOVES);
        const Frame preview = paint(*view);
        pinch(*view, 160, 230, factor, _PINCH_ENDS);
        const Frame last = paint(*view);
        expectSheet(*view, last, 5);
        for (int y = 130; y < 480; y += 13) {
            for (int x = 130; x < 320; x += 13) {
                if (preview.at(x, y) >> 28 != 1) {
                    continue; // not rendered yet
                }
                const double shown = (preview.at(x, y) >> 12 & 0xFFF) * factor;
                const double shownRow = (preview.at(x, y) & 0xFFF) * factor;
                ASSERT_NEAR(shown, last.at(x, y) >> 12 & 0xFFF, 1.0 + factor) << factor;
                ASSERT_NEAR(shownRow, last.at(x, y) & 0xFFF, 1.0 + factor) << factor;
            }
        }
    }
}

TEST_F(TouchExcelTest, ThePreviewShowsMoreWhenZoomingOut) {
    const auto view = openView(320, 480);
    view->scrollTo(600, 800);
    paint(*view);
    fakeSheet().renders = 0;
    pinch(*view, 160, 240, 1.0, _PINCH_BEGINS);
    for (const double factor : {0.9, 0.8, 0.7, 0.6}) {
        pinch(*view, 160, 240, factor, _PINCH_MOVES);
        paint(*view);
    }
    pinch(*view, 160, 240, 0.5, _PINCH_MOVES);
    const Frame preview = paint(*view);
    EXPECT_LE(fakeSheet().renders, 1) << "once, about the view";
    for (const CpPoint& place : {CpPoint(20, 20), CpPoint(319, 20), CpPoint(20, 479), CpPoint(319, 479)}) {
        EXPECT_EQ(preview.at(place.x, place.y) >> 28, 1U) << "a pixel of cells";
    }
    EXPECT_EQ(preview.at(5, 100) >> 28, 3U) << "row headers";
    EXPECT_EQ(preview.at(100, 5) >> 28, 2U) << "column headers";
}

TEST_F(TouchExcelTest, APinchThatIsGivenUpChangesNothing) {
    const auto view = openView(320, 480);
    view->scrollTo(600, 800);
    const Frame before = paint(*view);
    pinch(*view, 160, 240, 1.0, _PINCH_BEGINS);
    pinch(*view, 160, 240, 2.0, _PINCH_MOVES);
    paint(*view);
    pinch(*view, 160, 240, 2.0, _PINCH_GIVEN_UP);
    EXPECT_EQ(view->mScale, 1.0);
    EXPECT_TRUE(paint(*view) == before);
}

} // namespace
