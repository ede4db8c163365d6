// SPDX-License-Identifier: Apache-2.0
// Strokes that begin on the cells.
#include "tests/unit/excel/ExcelTest.h"

namespace {

class ExcelScrollTest : public ExcelTest {
protected:
    static void drag(TestExcel& view, const CpPoint& from, const CpPoint& to) {
        view.handlePenDown(from.x, from.y);
        view.handlePenUp(to.x, to.y);
    }
};

TEST_F(ExcelScrollTest, SheetFollowsThePen) {
    const auto view = openView();
    view->mScroll.set(1000, 2000);
    EXPECT_TRUE(view->handlePenDown(200, 300));
    EXPECT_TRUE(view->mPenDown);
    EXPECT_EQ(view->mPenDownPoint, CpPoint(200, 300));
    EXPECT_EQ(view->mPenDownScroll, CpPoint(1000, 2000));
    EXPECT_TRUE(view->handlePenMove(150, 320));
    EXPECT_EQ(view->mScroll, CpPoint(1050, 1980));
    EXPECT_TRUE(view->handlePenMove(190, 290));
    EXPECT_EQ(view->mScroll, CpPoint(1010, 2010)) << "from where it went down";
    EXPECT_TRUE(view->handlePenUp(100, 100));
    EXPECT_EQ(view->mScroll, CpPoint(1100, 2200));
    EXPECT_FALSE(view->mPenDown);
    EXPECT_THAT(calls(), IsEmpty());
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(ExcelScrollTest, StopsAtTheSheetsEdges) {
    const auto view = openView();
    view->handlePenDown(100, 100);
    view->handlePenMove(300, 400);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
    view->handlePenUp(300, 400);
    EXPECT_EQ(view->mScroll, CpPoint(0, 0));
    view->mScroll.set(3700, 7500);
    view->handlePenDown(300, 400);
    view->handlePenMove(100, 100);
    EXPECT_EQ(view->mScroll, CpPoint(3740, 7550));
}

TEST_F(ExcelScrollTest, EdgesBetweenHeadersAndCellsBelongToTheCells) {
    for (const CpPoint at : {CpPoint(60, 10), CpPoint(61, 30), CpPoint(10, 30), CpPoint(60, 31),
                             CpPoint(10, 10), CpPoint(0, 0)}) {
        const auto view = openView();
        view->mScroll.set(500, 500);
        view->handlePenDown(at.x, at.y);
        EXPECT_THAT(calls(), IsEmpty()) << at;
        view->handlePenMove(at.x - 10, at.y - 20);
        EXPECT_EQ(view->mScroll, CpPoint(510, 520)) << at;
    }
}

TEST_F(ExcelScrollTest, MovesWithoutThePenDownDoNothing) {
    const auto view = openView();
    view->mScroll.set(500, 500);
    view->mPenDownPoint.set(100, 100);
    EXPECT_TRUE(view->handlePenMove(50, 50));
    EXPECT_TRUE(view->handlePenUp(50, 50));
    EXPECT_EQ(view->mScroll, CpPoint(500, 500));
}

TEST_F(ExcelScrollTest, PinchesHoldTheSheet) {
    const auto view = openView();
    view->mScroll.set(500, 500);
    view->handlePenDown(100, 100);
    view->handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view->handlePenMove(50, 50));
    EXPECT_TRUE(view->handlePenUp(50, 50));
    EXPECT_EQ(view->mScroll, CpPoint(500, 500));
    EXPECT_FALSE(view->mPenDown) << "the contact has ended all the same";
    EXPECT_FALSE(view->handlePenDown(100, 100));
    EXPECT_FALSE(view->mPenDown);
}

TEST_F(ExcelScrollTest, TapsAndFlicksLeaveThePlaceToThemselves) {
    const auto view = openView();
    view->mScroll.set(500, 500);
    for (bool TestExcel::*flag : {&TestExcel::mClicked, &TestExcel::mFlicking}) {
        view->handlePenDown(100, 100);
        (*view).*flag = true;
        EXPECT_TRUE(view->handlePenUp(50, 50));
        EXPECT_EQ(view->mScroll, CpPoint(500, 500));
        EXPECT_FALSE((*view).*flag) << "over with the contact";
    }
    drag(*view, {100, 100}, {90, 80});
    EXPECT_EQ(view->mScroll, CpPoint(510, 520));
}

TEST_F(ExcelScrollTest, WindowStaysWhereTheContactBeganInsideIt) {
    const auto view = openView();
    view->restAt(1000, 2000); // window (410, 1490, 1910, 2990)
    view->mOffscreenDirty = false;
    drag(*view, {300, 470}, {-2000, -3000});
    EXPECT_EQ(view->mScroll, CpPoint(3300, 5470)) << "far outside of the window";
    EXPECT_EQ(window(*view), CpRect(410, 1490, 1910, 2990));
    EXPECT_FALSE(view->mOffscreenDirty);
    drag(*view, {200, 200}, {199, 198});
    EXPECT_EQ(window(*view), CpRect(2711, 4962, 4211, 6462)) << "about the new place";
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_THAT(calls(), IsEmpty()) << "the next paint renders";
    EXPECT_THAT(notifications(*view), IsEmpty());
}

TEST_F(ExcelScrollTest, WindowsEdgesCountAsInside) {
    const auto view = openView();
    for (const auto& [at, moved] : {std::pair(CpPoint(1910, 2990), false),
                                    {CpPoint(1911, 2000), true},
                                    {CpPoint(1000, 2991), true},
                                    {CpPoint(410, 1490), false},
                                    {CpPoint(409, 2000), true},
                                    {CpPoint(1000, 1489), true}}) {
        view->restAt(1000, 2000);
        view->mOffscreenDirty = false;
        view->mScroll = at;
        drag(*view, {200, 200}, {200, 200});
        EXPECT_EQ(view->mOffscreenDirty, moved) << at;
    }
}

TEST_F(ExcelScrollTest, KeysMoveByFivePixels) {
    const auto view = openView();
    view->mScroll.set(100, 100);
    view->handleKeyDown('d', 0);
    view->handleKeyDown('s', 0);
    EXPECT_EQ(view->mScroll, CpPoint(105, 105));
}

} // namespace
