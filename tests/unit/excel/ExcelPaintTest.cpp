// SPDX-License-Identifier: Apache-2.0
// The parts of a painted picture.
#include "tests/unit/excel/ExcelTest.h"

#include <cstring>

namespace {

class ExcelPaintTest : public ExcelTest {};
using ExcelPaintDeathTest = ExcelPaintTest;

TEST_F(ExcelPaintTest, HeadersAndCellsAtTheStart) {
    const auto view = openView();
    const Frame picture = paint(*view);
    expectSheet(*view, picture);
    EXPECT_THAT(calls(), ElementsAre("stg_render_sheet(0, 0, 0)"));
}

TEST_F(ExcelPaintTest, ModulesCodeOfTheLastRenderingIsKept) {
    const auto view = openView();
    fakeSheet().nextResults["stg_render_sheet"] = {9};
    paint(*view);
    EXPECT_EQ(view->renderResult(), 9);
    paint(*view);
    EXPECT_EQ(view->renderResult(), 9) << "the same picture";
    view->handleDoubleClick(100, 100);
    paint(*view);
    EXPECT_EQ(view->renderResult(), 0);
}

TEST_F(ExcelPaintTest, HeadersStayAtTheEdgesOfAScrolledView) {
    const auto view = openView();
    view->restAt(1011, 2017);
    const Frame picture = paint(*view);
    expectSheet(*view, picture);
    EXPECT_THAT(calls(), ElementsAre("stg_render_sheet(0, 421, 1507)"));
}

TEST_F(ExcelPaintTest, EveryScrollInsideTheWindowIsOnlyACopy) {
    const auto view = openView();
    paint(*view);
    calls();
    for (const CpPoint at : {CpPoint(1, 1), CpPoint(15, 700), CpPoint(1180, 1020)}) {
        view->mScroll = at;
        expectSheet(*view, paint(*view));
    }
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(ExcelPaintTest, PositionIsClamped) {
    const auto view = openView();
    view->mScroll.set(-40, 90000);
    paint(*view);
    EXPECT_EQ(view->mScroll, CpPoint(0, 7550));
}

TEST_F(ExcelPaintTest, GroundShowsWhereTheWindowEnds) {
    const auto view = openView();
    paint(*view);
    view->mScroll.set(1305, 1107);
    const Frame picture = paint(*view);
    // 195 columns and 393 rows of the window are left, headers included.
    for (int row = 0; row < 480; ++row) {
        for (int column = 0; column < 320; ++column) {
            const bool covered = (row < COLUMN_HEADER_HEIGHT || row < 393) && column < 195;
            const bool box = row < COLUMN_HEADER_HEIGHT && column < ROW_HEADER_WIDTH;
            const uint32_t expected =
                covered || box ? sheetPixel(*view, column, row) : ground(1305 + column, 1107 + row);
            ASSERT_EQ(picture.at(column, row), expected) << column << ", " << row;
        }
    }
}

TEST_F(ExcelPaintTest, GroundScrollsWithTheSheet) {
    const auto view = openView();
    for (const CpPoint at : {CpPoint(0, 0), CpPoint(1, 0), CpPoint(0, 1), CpPoint(15, 16), CpPoint(33, 7),
                             CpPoint(-1, -1), CpPoint(-20, 5)}) {
        view->mScroll.set(at.x + 1600, at.y + 1600); // beside the window
        const Frame picture = draw(*view);
        for (int row = COLUMN_HEADER_HEIGHT; row < 480; row += 7) {
            for (int column = 0; column < 320; ++column) {
                ASSERT_EQ(picture.at(column, row), ground(at.x + 1600 + column, at.y + 1600 + row));
            }
        }
    }
}

TEST_F(ExcelPaintTest, WindowBelowTheViewLeavesGroundAboveIt) {
    const auto view = openView();
    view->restAt(1000, 2000); // window from 410, 1490
    paint(*view);
    view->mScroll.set(1000, 1300);
    const Frame picture = draw(*view);
    EXPECT_EQ(picture.at(100, 5), fakeColumnHeaderPixel(1040, 5)) << "always at the top";
    EXPECT_EQ(picture.at(100, 30), ground(1100, 1330));
    EXPECT_EQ(picture.at(100, 219), ground(1100, 1519));
    EXPECT_EQ(picture.at(100, 220), fakeCellPixel(1040, 1490));
    EXPECT_EQ(picture.at(5, 219), ground(1005, 1519));
    EXPECT_EQ(picture.at(5, 220), fakeRowHeaderPixel(5, 1490));
    EXPECT_EQ(picture.at(5, 479), fakeRowHeaderPixel(5, 1749));
    EXPECT_EQ(picture.at(100, 479), fakeCellPixel(1040, 1749));
}

TEST_F(ExcelPaintTest, RowHeadersGiveWayWhenLessIsSeenThanIsFree) {
    const auto view = openView();
    view->restAt(1000, 2000);
    paint(*view);
    // The strip would begin at row 30 + d and have 450 - d rows; both are 240
    // at d = 210.
    view->mScroll.set(1000, 1490 - 209);
    EXPECT_EQ(draw(*view).at(5, 300), fakeRowHeaderPixel(5, 1490 + 300 - 239));
    view->mScroll.set(1000, 1490 - 210);
    EXPECT_EQ(draw(*view).at(5, 300), ground(1005, 1280 + 300));
    EXPECT_EQ(draw(*view).at(100, 300), fakeCellPixel(1040, 1490 + 300 - 240)) << "not the cells";
}

TEST_F(ExcelPaintTest, WindowBesideTheViewLeavesGroundLeftOfIt) {
    const auto view = openView();
    view->restAt(1000, 2000);
    paint(*view);
    view->mScroll.set(310, 2000);
    const Frame picture = draw(*view);
    EXPECT_EQ(picture.at(159, 5), ground(469, 2005));
    EXPECT_EQ(picture.at(160, 5), fakeColumnHeaderPixel(410, 5));
    EXPECT_EQ(picture.at(5, 100), fakeRowHeaderPixel(5, 2070)) << "always at the left";
    EXPECT_EQ(picture.at(159, 100), ground(469, 2100));
    EXPECT_EQ(picture.at(160, 100), fakeCellPixel(410, 2070));
}

TEST_F(ExcelPaintTest, CornerBoxMovesWithASheetOffItsEdge) {
    const auto view = openView();
    paint(*view);
    view->mScroll.set(-40, -50);
    const Frame picture = draw(*view);
    EXPECT_EQ(picture.at(39, 60), ground(-1, 10));
    EXPECT_EQ(picture.at(39, 50), ground(-1, 0));
    EXPECT_EQ(picture.at(40, 50), CORNER_BOX);
    EXPECT_EQ(picture.at(99, 79), CORNER_BOX);
    EXPECT_EQ(picture.at(40, 49), ground(0, -1));
    EXPECT_EQ(picture.at(100, 50), ground(60, 0)) << "the strip above the cells is at the top";
    EXPECT_EQ(picture.at(100, 0), fakeColumnHeaderPixel(0, 0));
    EXPECT_EQ(picture.at(100, 80), fakeCellPixel(0, 0));
    EXPECT_EQ(picture.at(0, 80), fakeRowHeaderPixel(0, 0));
    EXPECT_EQ(picture.at(5, 10), ground(-35, -40));
}

TEST_F(ExcelPaintTest, PositionsFarBeforeTheSheetShowTheGroundOnly) {
    const auto view = openView();
    paint(*view);
    for (const int far : {-100000, INT_MIN}) {
        view->mScroll.set(far, far);
        EXPECT_EQ(draw(*view).at(319, 479), ground(static_cast<int>(static_cast<unsigned>(far) + 319),
                                                   static_cast<int>(static_cast<unsigned>(far) + 479)));
    }
}

TEST_F(ExcelPaintTest, BesideASmallSheetTheModulePaints) {
    fakeSheet().sheets[0].columns = 2;
    fakeSheet().sheets[0].rows = 2;
    const auto view = openView();
    const Frame picture = paint(*view);
    EXPECT_EQ(picture.at(60 + 159, 30 + 79), fakeCellPixel(159, 79));
    EXPECT_EQ(picture.at(60 + 160, 30 + 79), FAKE_BESIDE_SHEET);
    EXPECT_EQ(picture.at(60 + 160, 5), FAKE_BESIDE_SHEET);
}

TEST_F(ExcelPaintTest, ScreensLargerThanTheLargestWindowHaveGroundAround) {
    const auto view = openView(1700, 16384);
    const Frame picture = paint(*view);
    EXPECT_EQ(window(*view), CpRect(0, 6144, 1700, 10240)) << "the middle of the view";
    EXPECT_EQ(picture.at(160, 6173), ground(160, 6173));
    EXPECT_EQ(picture.at(160, 6174), fakeCellPixel(100, 6144));
    EXPECT_EQ(picture.at(1699, 7000), fakeCellPixel(1639, 6970));
    EXPECT_EQ(picture.at(160, 10240), ground(160, 10240));
}

// Headers larger than the screen are cut at its end, and nothing after the
// frame is written.
TEST_F(ExcelPaintTest, TinyScreensAreNotOverrun) {
    for (const CpPoint size : {CpPoint(1, 1), CpPoint(2, 300), CpPoint(300, 2), CpPoint(60, 30),
                               CpPoint(61, 31), CpPoint(59, 100), CpPoint(100, 29)}) {
        const auto view = openView(size.x, size.y);
        view->setResizeMode(true);
        const auto area = static_cast<size_t>(size.x) * static_cast<size_t>(size.y);
        std::vector<uint32_t> memory(3 * area + 20000, 7);
        uint32_t* frame = memory.data() + area + 10000;
        view->setDirty();
        view->handlePaintRouter(frame);
        for (size_t i = 0; i < memory.size(); ++i) {
            const bool inside = i >= area + 10000 && i < 2 * area + 10000;
            ASSERT_EQ(memory[i] == 7, !inside) << size << " at " << i;
        }
    }
}

TEST_F(ExcelPaintTest, CommentsHaveARedCorner) {
    fakeSheet().comments = {{{1, 2}, u"note"}}; // the cell at 80, 80 of 80 x 40
    const auto view = openView();
    const Frame picture = paint(*view);
    const auto expectMark = [&](int x, int y, bool marked) {
        const uint32_t plain = fakeCellPixel(x, y);
        EXPECT_EQ(picture.at(60 + x, 30 + y), marked ? blended(plain, 0x80FF0000) : plain) << x << ", " << y;
    };
    expectMark(139, 80, false);
    expectMark(140, 80, true);
    expectMark(159, 80, true);
    expectMark(160, 80, false);
    expectMark(140, 81, false);
    expectMark(141, 81, true);
    expectMark(158, 99, false);
    expectMark(159, 99, true);
    expectMark(159, 100, false);
    expectMark(150, 79, false);
}

TEST_F(ExcelPaintTest, CommentMarksAreRelativeToTheWindow) {
    fakeSheet().comments = {{{12, 50}, u"note"}}; // the cell at 960, 2000
    const auto view = openView();
    view->restAt(900, 1950);
    const Frame picture = paint(*view);
    EXPECT_EQ(picture.at(60 + 139, 30 + 50), blended(fakeCellPixel(1039, 2000), 0x80FF0000));
    EXPECT_EQ(picture.at(60 + 119, 30 + 50), fakeCellPixel(1019, 2000));
}

TEST_F(ExcelPaintTest, CommentMarksWithoutSenseAreSurvived) {
    const auto view = openView();
    fakeSheet().marks = {{{0, INT_MAX, INT_MAX, INT_MAX, INT_MAX},
                          {0, INT_MIN, INT_MIN, INT_MIN, INT_MIN},
                          {0, 100, 100, 0, 0},
                          {0, 100, 100, -50, -50}}};
    view->resizeDocument();
    expectSheet(*view, paint(*view));
    fakeSheet().nullArrays = true;
    view->resizeDocument();
    view->mOffscreenDirty = true;
    expectSheet(*view, paint(*view));
    fakeSheet().nullArrays = false;
    fakeSheet().arrayCount = -4;
    view->resizeDocument();
    view->mOffscreenDirty = true;
    expectSheet(*view, paint(*view));
}

TEST_F(ExcelPaintTest, ResizeModeVeilsTheCellsOnly) {
    const auto view = openView();
    paint(*view);
    view->mDirty = false;
    view->setResizeMode(true);
    Frame picture(320, 480);
    view->handlePaintRouter(picture.pixels()); // nothing else has requested it
    for (int row = 0; row < 480; row += 3) {
        for (int column = 0; column < 320; ++column) {
            const uint32_t plain = sheetPixel(*view, column, row);
            const bool cells = column >= ROW_HEADER_WIDTH && row >= COLUMN_HEADER_HEIGHT;
            ASSERT_EQ(picture.at(column, row), cells ? blended(plain, 0x77555555) : plain);
        }
    }
    view->setResizeMode(false);
    expectSheet(*view, paint(*view));
}

TEST_F(ExcelPaintTest, FinishedScreenIsKept) {
    const auto view = openView();
    view->setResizeMode(true);
    const Frame picture = paint(*view);
    EXPECT_TRUE(std::equal(view->mLastFrame.Pixels(), view->mLastFrame.Pixels() + picture.size(),
                           Frame(picture).pixels()));
}

TEST_F(ExcelPaintTest, SecondPaintWithoutAChangeDoesNothing) {
    const auto view = openView();
    paint(*view);
    Frame picture(320, 480);
    const Frame before = picture;
    view->handlePaintRouter(picture.pixels());
    EXPECT_EQ(picture, before);
}

TEST_F(ExcelPaintTest, StaleCellsAreRenderedOnce) {
    const auto view = openView();
    paint(*view);
    paint(*view);
    EXPECT_EQ(fakeSheet().renders, 1);
    view->mOffscreenDirty = true;
    paint(*view);
    EXPECT_EQ(fakeSheet().renders, 2);
}

TEST_F(ExcelPaintTest, TheSheetShownIsRendered) {
    fakeSheet().sheets.resize(3);
    const auto view = openView();
    view->jumpToSheet(2);
    EXPECT_EQ(paint(*view).at(100, 100), fakeCellPixel(40, 70, 2));
}

TEST_F(ExcelPaintTest, PaintHoldsTheViewsMutex) {
    const auto view = openView();
    pthread_mutex_lock(view->mutex());
    pthread_mutex_unlock(view->mutex());
    paint(*view);
    EXPECT_EQ(pthread_mutex_trylock(view->mutex()), 0) << "and gives it back";
    pthread_mutex_unlock(view->mutex());
}

TEST_F(ExcelPaintDeathTest, OtherDrawModesAreAnInvariantBroken) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto view = openView();
    Frame picture(320, 480);
    EXPECT_DEATH(
        {
            view->mDrawMode = _LEFT;
            view->handlePaint(picture.pixels());
        },
        "mDrawMode ==_NORMAL");
}

TEST_F(ExcelPaintTest, WhatCannotBeRenderedLeavesTheLastFrame) {
    const auto view = openView();
    Frame before = paint(*view);
    fakeSheet().results["stg_render_sheet"] = 10;
    view->handleDoubleClick(100, 100);
    Frame after = paint(*view);
    EXPECT_EQ(view->renderResult(), 10);
    EXPECT_EQ(std::memcmp(after.pixels(), before.pixels(), before.size() * 4), 0);
    view->handleDoubleClick(100, 100);
    after = paint(*view);
    EXPECT_EQ(std::memcmp(after.pixels(), before.pixels(), before.size() * 4), 0);

    fakeSheet().results["stg_render_sheet"] = 0;
    after = paint(*view);
    EXPECT_EQ(view->renderResult(), 0);
    EXPECT_NE(std::memcmp(after.pixels(), before.pixels(), before.size() * 4), 0) << "both zooms";
}

TEST_F(ExcelPaintTest, HugeCommentMarksOfABrokenModuleAreNotDrawn) {
    const auto view = openView();
    // Rows of such a mark would cover the rest of the surface, each for 1,500 rows.
    fakeSheet().marks =
        std::vector<stg_region>(1000, {0, -1'000'000'000, -100, 1'000'000'500, 1'460'000'000});
    view->resizeDocument();
    view->mOffscreenDirty = true;
    expectSheet(*view, paint(*view));
}

} // namespace
