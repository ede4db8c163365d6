// SPDX-License-Identifier: Apache-2.0
// Zooms, their limits, and views that get another size.
#include "tests/unit/touch/TouchExcelTest.h"

#include <cmath>
#include <limits>

namespace {

TEST_F(TouchExcelTest, OpensAtTheSizeOfTheScreensDots) {
    auto view = std::make_unique<TestTouchExcel>(320, 480, 0, 0, 264.0);
    ASSERT_EQ(view->openFile(TestTouchExcel::DOCUMENT, nullptr), 0);
    EXPECT_EQ(view->place().zoom, 1.0);
    EXPECT_EQ(fakeSheet().dpi, 264);
    EXPECT_EQ(view->place().documentWidth, 50 * (40 * 264 / 72));
}

TEST_F(TouchExcelTest, TellsThePlaceWithoutTheModule) {
    const auto view = openView(320, 480);
    view->scrollTo(100, 200);
    calls();
    const ViewPlace place = view->place();
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_EQ(place.documentWidth, 2000);
    EXPECT_EQ(place.documentHeight, 4000);
    EXPECT_EQ(edges(place.view), (std::vector{100, 200, 390, 665})) << "what is beside the headers";
    EXPECT_EQ(place.smallestZoom, 0.25);
    EXPECT_NEAR(place.largestZoom, 320 / 60.0, 1e-6) << "half of the view is left to the cells";
    EXPECT_EQ(place.fit, 1.0);
    EXPECT_EQ(place.part, 0);
    EXPECT_EQ(place.parts, 1);
    EXPECT_EQ(place.hit, -1);
}

TEST_F(TouchExcelTest, AZoomKeepsTheCellUnderThePoint) {
    const auto view = openView(320, 480);
    for (const double zoom : {1.37, 0.4, 3.3, 0.91, 8.0, 0.25, 1.0}) {
        view->scrollTo(view->mSheetWidth / 2, view->mSheetHeight / 2);
        const CpPoint point(170, 250);
        const auto cellOf = [&] {
            const CpPoint place = view->documentPoint(point);
            const int width = 40 * fakeSheet().dpi / 72;
            const int height = 20 * fakeSheet().dpi / 72;
            return std::pair(static_cast<double>(place.x) / width, static_cast<double>(place.y) / height);
        };
        const auto before = cellOf();
        const CpPoint size(40 * fakeSheet().dpi / 72, 20 * fakeSheet().dpi / 72);
        view->zoomTo(zoom, point);
        const auto after = cellOf();
        const int width = std::min(size.x, 40 * fakeSheet().dpi / 72);
        const int height = std::min(size.y, 20 * fakeSheet().dpi / 72);
        EXPECT_NEAR(before.first, after.first, 1.0 / width) << zoom;
        EXPECT_NEAR(before.second, after.second, 1.0 / height) << zoom;
        expectSheet(*view, paint(*view), 11);
    }
}

TEST_F(TouchExcelTest, ZoomsStayInsideTheLimits) {
    const auto view = openView(320, 480);
    for (const double zoom : {0.0001, 1e300, 8.0001, 0.2}) {
        view->zoomTo(zoom, {10, 10});
        EXPECT_GE(view->mScale, 0.25);
        EXPECT_LE(view->mScale, 8.0);
    }
}

TEST_F(TouchExcelTest, TheSmallestZoomShowsTheWholeWidth) {
    fakeSheet().sheets[0].columns = 20; // 800 pixels and the headers: 830
    const auto view = openView(700, 900);
    EXPECT_NEAR(view->place().smallestZoom, 700.0 / 830, 1e-6);
    view->zoomTo(0.1, {0, 0});
    EXPECT_NEAR(view->mScale, 700.0 / 830, 0.01) << "whole dots per inch";
    fakeSheet().sheets[0].columns = 3;
    const auto narrow = openView(700, 900);
    EXPECT_EQ(narrow->place().smallestZoom, 1.0) << "narrower than the view";
}

TEST_F(TouchExcelTest, TheHeadersLeaveRoomForTheCellsAtTheLargestZoom) {
    const auto view = openView(320, 480);
    view->zoomTo(100.0, {0, 0});
    EXPECT_NEAR(view->corner().x, 160, 3);
    expectSheet(*view, paint(*view), 3);
    auto wide = openView(1000, 480);
    EXPECT_EQ(wide->place().largestZoom, 8.0);
}

TEST_F(TouchExcelTest, TheModuleIsToldNoMoreDotsThanItTakes) {
    auto view = std::make_unique<TestTouchExcel>(2400, 1000, 0, 0, 400.0);
    ASSERT_EQ(view->openFile(TestTouchExcel::DOCUMENT, nullptr), 0);
    EXPECT_EQ(view->place().largestZoom, 6.0);
    view->zoomTo(8.0, {0, 0});
    EXPECT_EQ(fakeSheet().dpi, 2400);
}

TEST_F(TouchExcelTest, ADoubleTapShowsTheColumnAsWideAsTheView) {
    const auto view = openView(320, 480);
    view->scrollTo(100, 200);
    doubleTap(*view, 120, 300); // x 190: column 4, from 160 to 200
    const double ratio = 320.0 / (40 + 30);
    EXPECT_NEAR(view->mScale, ratio, 0.01);
    const int width = 40 * fakeSheet().dpi / 72;
    EXPECT_NEAR(view->documentPoint({view->corner().x, 0}).x, 4 * width, 3);
    const double row = static_cast<double>(view->documentPoint({0, 300}).y) / (20 * fakeSheet().dpi / 72);
    EXPECT_NEAR(row, (200 + 300 - 15) / 20.0, 0.05) << "about the tapped row";
    doubleTap(*view, 120, 300);
    EXPECT_EQ(view->mScale, 1.0) << "back to the fit";
}

TEST_F(TouchExcelTest, ADoubleTapShowsAMergedAreaAsWideAsTheView) {
    fakeSheet().merged = {{4, 20, 3, 2}};
    const auto view = openView(320, 480);
    view->scrollTo(100, 200);
    doubleTap(*view, 150, 230);
    EXPECT_NEAR(view->mScale, 320.0 / (120 + 30), 0.01);
}

TEST_F(TouchExcelTest, ADoubleTapShowsADrawingAsWideAsTheView) {
    fakeSheet().drawing = module_rect{150, 250, 400, 100};
    const auto view = openView(320, 480);
    view->scrollTo(100, 200);
    doubleTap(*view, 150, 230);
    EXPECT_NEAR(view->mScale, 320.0 / (400 + 30), 0.01) << "also if that is smaller";
}

TEST_F(TouchExcelTest, ADoubleTapElsewhereZoomsToTwoAndAHalf) {
    fakeSheet().sheets[0].columns = 3;
    const auto view = openView(320, 480);
    doubleTap(*view, 300, 300);
    EXPECT_NEAR(view->mScale, 2.5, 0.01) << "beside the sheet";
    doubleTap(*view, 300, 300);
    doubleTap(*view, 10, 300);
    EXPECT_NEAR(view->mScale, 2.5, 0.01) << "on a header";
    view->loseOptionalFunctions();
    doubleTap(*view, 100, 100);
    doubleTap(*view, 100, 100);
    EXPECT_NEAR(view->mScale, 320.0 / 70, 0.01) << "a cell, without the module's function";
}

TEST_F(TouchExcelTest, AWideCellIsZoomedToTwoAndAHalf) {
    fakeSheet().cellWidth = 285;
    const auto view = openView(320, 480);
    doubleTap(*view, 100, 100);
    EXPECT_NEAR(view->mScale, 2.5, 0.01) << "it is as wide as the view already";
}

TEST_F(TouchExcelTest, AnotherSizeKeepsThePlace) {
    const auto view = openView(320, 480);
    view->scrollTo(300, 700);
    view->resize(480, 320);
    EXPECT_EQ(view->mScroll.x, 300);
    EXPECT_EQ(view->mScroll.y, 700);
    expectSheet(*view, paint(*view));
    view->resize(4096, 4096);
    expectSheet(*view, paint(*view), 31);
    view->resize(64, 48);
    expectSheet(*view, paint(*view));
}

TEST_F(TouchExcelTest, AViewWhoseNewSurfaceIsRefusedKeepsTheOldOne) {
    const auto view = openView(320, 480);
    paint(*view);
    fakeSheet().nextResults["stg_set_offscreen_buffer"] = {MODULE_TOO_LARGE};
    view->resize(2000, 1000);
    EXPECT_EQ(view->mCells->Width(), 1500);
    const Frame picture = paint(*view);
    EXPECT_EQ(picture.at(100, 100), touchSheetPixel(*view, 100, 100));
    EXPECT_EQ(picture.at(1600, 101) | 0x3F3F3F, 0xFFFFFFFFU) << "empty cells where nothing is rendered";
}

TEST_F(TouchExcelTest, HugeAndUndefinedInputsAreHarmless) {
    const auto view = openView(320, 480);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const int far : {INT_MIN, INT_MAX, 0}) {
        const int other = saturatedDifference(0, far);
        view->scrollTo(far, far);
        view->handlePenDown(far, far);
        view->handlePenMove(other, far);
        view->handleFlick(far, far);
        view->handlePenUp(far, other);
        TouchClock::advance(0.1);
        expectSheet(*view, paint(*view), 17);
        tap(*view, far, far);
        doubleTap(*view, far, far);
        for (const double factor : {nan, 1e300, 0.0, -1.0, 1e-300}) {
            pinch(*view, far, far, 1.0, _PINCH_BEGINS);
            pinch(*view, far, far, factor, _PINCH_MOVES);
            paint(*view);
            pinch(*view, far, far, factor, _PINCH_ENDS);
            expectSheet(*view, paint(*view), 17);
        }
        Cell cell;
        view->cell(far, far, cell);
        view->select(SelectUnit::Word, {far, far});
        view->moveSelectionEnd(SelectEnd::End, {far, far});
        view->zoomTo(1.0, {far, far});
    }
}

TEST_F(TouchExcelTest, AViewWithoutADocumentDoesNothing) {
    const auto view = failedView();
    HitPlace hit;
    Cell cell;
    Selection selection;
    std::vector<TextLine> lines;
    std::vector<OutlineEntry> entries;
    tap(*view, 100, 100);
    doubleTap(*view, 100, 100);
    view->scrollTo(5, 5);
    view->zoomTo(2.0, {5, 5});
    view->resize(100, 100);
    view->handlePenMove(50, 50);
    EXPECT_NE(view->search("a", {}, hit), TouchResult::Ok);
    EXPECT_NE(view->stepToHit(1, hit), TouchResult::Ok);
    EXPECT_NE(view->select(SelectUnit::All, {0, 0}), TouchResult::Ok);
    EXPECT_NE(view->moveSelectionEnd(SelectEnd::End, {0, 0}), TouchResult::Ok);
    EXPECT_NE(view->selection(selection), TouchResult::Ok);
    EXPECT_NE(view->cell(-1, -1, cell), TouchResult::Ok);
    EXPECT_NE(view->visibleText(lines), TouchResult::Ok);
    EXPECT_NE(view->outline(entries), TouchResult::Ok);
    EXPECT_NE(view->goTo(0), TouchResult::Ok);
    view->jumpToSheet(3);
    EXPECT_THAT(calls(), IsEmpty());
}

} // namespace
