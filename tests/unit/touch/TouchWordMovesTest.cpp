// SPDX-License-Identifier: Apache-2.0
// Drags, glides and other moves of a touch view of a text, and its place in it.
#include "tests/unit/touch/TouchWordTest.h"

namespace {

std::vector<ServerClientMessage> recordsOf(const TestTouchWord& view) {
    const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
    ServerClientMessage message;
    std::vector<ServerClientMessage> records;
    while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE, static_cast<long>(view.dataStoreShmId()),
                  IPC_NOWAIT) >= 0) {
        records.push_back(message);
    }
    return records;
}

TEST_F(TouchWordTest, TheTextStaysUnderTheFinger) {
    const auto view = openView();
    view->handlePenDown(100, 500);
    for (const int y : {480, 300, 12, 400, 20, -300}) {
        view->handlePenMove(130, y);
        EXPECT_EQ(view->firstTextRow(), 500 - y);
        EXPECT_EQ(view->place().view.Left(), 0);
        EXPECT_EQ(view->whiteRows(), 0);
    }
    view->handlePenUp(100, 600);
    EXPECT_EQ(view->firstTextRow(), 0);
}

TEST_F(TouchWordTest, TellsHowFarTheFingerIsBeyondTheEdge) {
    const auto view = openView();
    view->handlePenDown(100, 100);
    recordsOf(*view);
    view->handlePenMove(150, 130);
    view->handlePenMove(150, 130);
    view->handlePenUp(150, 130);
    const std::vector<ServerClientMessage> records = recordsOf(*view);
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].id, _OVERSCROLL);
    EXPECT_EQ(records[0].value, 0) << "a text does not move sideways";
    EXPECT_EQ(records[0].extra, -30);
    EXPECT_EQ(records[1].extra, 0);
}

TEST_F(TouchWordTest, AFlickGlidesAsTheFormulaSays) {
    for (const double frame : {0.004, 0.016, 0.1}) {
        const auto view = openView();
        view->scrollTo(0, 200);
        view->handlePenDown(100, 500);
        view->handleFlick(300, -1500);
        view->handlePenUp(100, 500);
        const double start = touchTime();
        bool moving = true;
        while (moving) {
            TouchClock::advance(frame);
            moving = view->tick();
            const double time = std::min(touchTime() - start, 0.33 * std::log(150.0));
            EXPECT_NEAR(static_cast<double>(view->firstTextRow()),
                        200.0 + 1500.0 * 0.33 * (1.0 - std::exp(-time / 0.33)), 1.0);
            EXPECT_EQ(view->whiteRows(), 0);
        }
        recordsOf(*view);
        view->tick();
        EXPECT_TRUE(recordsOf(*view).empty()) << "nothing is asked for at rest";
    }
}

TEST_F(TouchWordTest, AGlideUpwardsAfterAJumpIsNotDisturbedByNewNumbersOfRows) {
    const auto view = openView();
    view->forgetOptional(); // so that rows are guessed after a jump
    fakeWord().click = {7, 0, 6000, 0};
    view->handleClick(10, 10);
    const int64_t from = view->firstTextRow();
    ASSERT_GT(from, 600);
    view->handlePenDown(10, 10);
    view->handlePenUp(10, 10);
    view->handleFlick(0, 9000);
    const double start = touchTime();
    for (bool moving = true; moving;) {
        TouchClock::advance(0.016);
        moving = view->tick();
        const double time = touchTime() - start;
        const double way = 9000.0 * 0.33 * (1.0 - std::exp(-time / 0.33));
        EXPECT_NEAR(static_cast<double>(view->firstTextRow()), std::max(0.0, static_cast<double>(from) - way),
                    1.0);
    }
    EXPECT_EQ(view->firstTextRow(), 0);
    EXPECT_EQ(view->place().view.Top(), 0);
}

TEST_F(TouchWordTest, AShortTextStaysAtTheTop) {
    fakeWord().rows = 100;
    const auto view = openView();
    view->handlePenDown(100, 500);
    view->handlePenMove(100, 100);
    EXPECT_EQ(view->firstTextRow(), 0);
    view->handlePenMove(100, 600);
    EXPECT_EQ(view->firstTextRow(), 0);
    view->zoomTo(2.0, CpPoint(100, 600));
    EXPECT_EQ(view->firstTextRow(), 0);
}

TEST_F(TouchWordTest, WheelsAndKeysMoveTheText) {
    const auto view = openView();
    ClientServerMessage record(_SCROLL_BY, 0);
    record.x = 50;
    record.y = 120;
    EXPECT_TRUE(view->handleRecord(record));
    EXPECT_EQ(view->firstTextRow(), 120);
    EXPECT_EQ(view->place().view.Left(), 0);
    view->handleKeyDown('s', 0);
    EXPECT_EQ(view->firstTextRow(), 125);
    record.y = -1000;
    view->handleRecord(record);
    EXPECT_EQ(view->firstTextRow(), 0);
}

TEST_F(TouchWordTest, ReachesFarPlacesWithoutRenderingWhatLiesBetween) {
    fakeWord().rows = 200000;
    fakeWord().characters = 2000000;
    const auto view = openView();
    ASSERT_GT(view->place().documentHeight, 150000);
    const auto far = static_cast<int>(view->place().documentHeight / 2);
    const int64_t repaints = fakeWord().repaints;
    view->scrollTo(0, far);
    EXPECT_NEAR(static_cast<double>(view->firstTextRow()), far, 50.0);
    EXPECT_EQ(view->place().view.Top(), view->firstTextRow());
    view->scrollTo(0, INT32_MAX);
    EXPECT_EQ(view->firstTextRow(), TestTouchWord::lastTop(640));
    EXPECT_EQ(view->place().view.Bottom(), view->place().documentHeight);
    view->scrollTo(0, 0);
    EXPECT_EQ(view->firstTextRow(), 0);
    EXPECT_LT(fakeWord().repaints - repaints, 20);
}

TEST_F(TouchWordTest, KnowsTheHeightOfTheText) {
    const auto view = openView();
    EXPECT_EQ(view->place().documentHeight, fakeWord().layout.rows);
    fakeWord().laidOutRows = 1700;
    view->zoomTo(1.5, view->middle());
    EXPECT_NEAR(static_cast<double>(view->place().documentHeight),
                static_cast<double>(fakeWord().layout.rows), 100.0);
    fakeWord().laidOutRows = -1;
    fakeWord().calls.clear();
    view->place();
    EXPECT_TRUE(fakeWord().calls.empty()) << "the place is known without the module";
    TouchClock::advance(1.0);
    view->tick();
    EXPECT_EQ(view->place().documentHeight, fakeWord().layout.rows);
}

TEST_F(TouchWordTest, EstimatesTheHeightWithoutTheModulesHelp) {
    fakeWord().rows = 30000;
    const auto view = openView();
    view->forgetOptional();
    view->scrollTo(0, 1500);
    EXPECT_NEAR(static_cast<double>(view->place().documentHeight),
                static_cast<double>(fakeWord().layout.rows), 500.0);
    view->scrollTo(0, INT32_MAX);
    EXPECT_EQ(view->firstTextRow(), TestTouchWord::lastTop(640));
    view->scrollTo(0, INT32_MIN);
    EXPECT_EQ(view->firstTextRow(), 0);
}

TEST_F(TouchWordTest, ATappedLinkTellsItsAddress) {
    const auto view = openView();
    EXPECT_EQ(view->lastLink(), "");
    fakeWord().click = {6, 0, 0, 0};
    EXPECT_TRUE(view->handleClick(10, 10));
    EXPECT_EQ(view->lastLink(), "http://example.com/");
    EXPECT_EQ(notifications(*view), std::vector<int>{_HYPERLINK});
}

TEST_F(TouchWordTest, APenDownStopsAGlideAndDoesNotClick) {
    const auto view = openView();
    view->handleFlick(0, -1500);
    TouchClock::advance(0.1);
    view->tick();
    fakeWord().calls.clear();
    view->handlePenDown(10, 10);
    EXPECT_FALSE(view->place().isMoving);
    EXPECT_TRUE(view->handleClick(10, 10));
    EXPECT_TRUE(fakeWord().calls.empty());
}

TEST_F(TouchWordTest, APopupIsDraggedAndClosed) {
    const auto view = openView();
    view->scrollTo(0, 300);
    fakeWord().click = {2, 1, 2, 3};
    ASSERT_TRUE(view->handleClick(10, 10));
    ASSERT_TRUE(view->mPopupShown);
    paint(*view);
    view->handlePenDown(100, 400);
    view->handlePenMove(100, 100);
    EXPECT_EQ(view->mScroll.y, 600);
    view->handlePenUp(100, 100);
    EXPECT_EQ(view->place().view.Top(), 300) << "the page stays";
    paint(*view);
    EXPECT_TRUE(view->handleClick(10, 10));
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_EQ(view->firstTextRow(), 300);
}

TEST_F(TouchWordTest, ZoomsClosePopups) {
    const auto view = openView();
    view->scrollTo(0, 300);
    fakeWord().click = {2, 1, 2, 3};
    view->handleClick(10, 10);
    view->handleDoubleClick(10, 10);
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_DOUBLE_EQ(view->place().zoom, 1.0);
    view->handleClick(10, 10);
    view->handleRecord(pinchRecord(50, 50, 1.0F, _PINCH_BEGINS));
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_EQ(view->mScroll.y, 300);
    view->handleRecord(pinchRecord(50, 50, 1.0F, _PINCH_ENDS));
    view->handleClick(10, 10);
    view->resize(640, 360);
    EXPECT_FALSE(view->mPopupShown);
    EXPECT_TRUE(view->handleClick(10, 10));
    paint(*view);
}

TEST_F(TouchWordTest, AViewWhoseFileDidNotOpenIsHarmless) {
    TestTouchWord view(360, 640);
    EXPECT_EQ(view.openFile("/d/code-8.doc", nullptr), 8);
    fakeWord().calls.clear();
    HitPlace hit;
    Selection selection;
    std::vector<TextLine> lines;
    std::vector<OutlineEntry> entries;
    view.scrollTo(5, 5);
    view.zoomTo(2.0, CpPoint(5, 5));
    view.resize(640, 360);
    view.setWideMode(true);
    view.handleDoubleClick(5, 5);
    pinch(view, 5, 5, 2.0F, 5, 5);
    view.tick();
    EXPECT_EQ(view.search("x", {}, hit), TouchResult::Failed);
    EXPECT_EQ(view.stepToHit(1, hit), TouchResult::NothingThere);
    EXPECT_EQ(view.select(SelectUnit::Word, CpPoint(5, 5)), TouchResult::Failed);
    EXPECT_EQ(view.moveSelectionEnd(SelectEnd::End, CpPoint(5, 5)), TouchResult::Failed);
    EXPECT_EQ(view.selection(selection), TouchResult::Failed);
    EXPECT_EQ(view.visibleText(lines), TouchResult::Failed);
    EXPECT_EQ(view.outline(entries), TouchResult::Failed);
    EXPECT_EQ(view.goTo(0), TouchResult::Failed);
    EXPECT_EQ(view.place().documentHeight, 0);
    EXPECT_TRUE(fakeWord().calls.empty());
}

} // namespace
