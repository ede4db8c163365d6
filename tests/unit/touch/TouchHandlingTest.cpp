// SPDX-License-Identifier: Apache-2.0
// The manners that all touch views share, on a sheet of paper of 1000 x 3000 pixels.
#include "PaperView.h"
#include "TouchClock.h"
#include "channel/ServiceQueue.h"
#include "tests/unit/view/IpcTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/msg.h>

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double TIME_CONSTANT = 0.33;

struct Record {
    int id;
    int value;
    int extra;
    bool operator==(const Record&) const = default;
};

class TouchHandlingTest : public IpcTest {
protected:
    void SetUp() override {
        IpcTest::SetUp();
        ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
        paper.emplace(360, 640);
        view().scrollTo(300, 1000);
        records();
    }
    void TearDown() override {
        paper.reset();
        EXPECT_EQ(g_msgQueue.Remove(), 0);
    }

    PaperView& view() { return *paper; }

    // The records that wait for the view's client; they are gone then.
    std::vector<Record> records() {
        const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
        ServerClientMessage message;
        std::vector<Record> taken;
        while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE,
                      static_cast<long>(view().dataStoreShmId()), IPC_NOWAIT) >= 0) {
            taken.push_back({message.id, message.value, message.extra});
        }
        return taken;
    }

    void pinch(int x, int y, double factor, PinchPhase phase) {
        ClientServerMessage message(_PINCH, 0);
        message.x = x;
        message.y = y;
        message.setPinch(static_cast<float>(factor), phase);
        EXPECT_TRUE(view().handleRecord(message));
    }
    void flick(int vx, int vy) {
        view().handlePenDown(100, 100);
        view().handleFlick(vx, vy);
        view().handlePenUp(100, 100);
        records();
    }

    TouchClock clock;
    std::optional<PaperView> paper; // made in the test's IPC namespace
};

TEST_F(TouchHandlingTest, WhatWasUnderTheFingerStaysUnderIt) {
    view().handlePenDown(100, 300);
    const double x = view().paperX(100);
    const double y = view().paperY(300);
    for (const CpPoint& pen : {CpPoint(120, 280), CpPoint(60, 500), CpPoint(300, 20)}) {
        view().handlePenMove(pen.x, pen.y);
        EXPECT_EQ(view().paperX(pen.x), x);
        EXPECT_EQ(view().paperY(pen.y), y);
    }
    view().handlePenUp(200, 200);
    EXPECT_EQ(view().paperX(200), x);
    EXPECT_EQ(view().paperY(200), y);
}

TEST_F(TouchHandlingTest, AStraightDragStaysOnItsAxis) {
    view().handlePenDown(100, 300);
    view().handlePenMove(104, 340);
    EXPECT_EQ(view().mScroll.x, 300);
    EXPECT_EQ(view().mScroll.y, 960);
    view().locksDrags = false;
    view().handlePenDown(100, 300);
    view().handlePenMove(104, 340);
    EXPECT_EQ(view().mScroll.x, 296);
}

TEST_F(TouchHandlingTest, AFlickFollowsTheAxisOfItsDrag) {
    view().handlePenDown(100, 300);
    view().handlePenMove(102, 350);
    view().handleFlick(400, 1200);
    clock.advance(0.1);
    view().tick();
    EXPECT_EQ(view().mScroll.x, 300);
    EXPECT_LT(view().mScroll.y, 950);
}

TEST_F(TouchHandlingTest, AGlideKeepsToItsFormulaAndAsksForAPaintUntilItRests) {
    flick(0, -900);
    for (int frame = 1; frame <= 60; ++frame) {
        clock.advance(1.0 / 60);
        view().tick();
        const double wanted = 1000 + 900 * TIME_CONSTANT * (1 - std::exp(-frame / 60.0 / TIME_CONSTANT));
        ASSERT_NEAR(view().mScroll.y, wanted, 1.0);
        ASSERT_THAT(records(), ElementsAre(Record{_INVALIDATED, 0, 0}));
    }
    clock.advance(1.0);
    view().tick();
    EXPECT_THAT(records(), IsEmpty()) << "it has come to rest";
}

TEST_F(TouchHandlingTest, EachAxisOfAGlideStopsAtItsOwnEdge) {
    flick(-2000, -2100);
    clock.advance(0.3);
    view().tick();
    EXPECT_EQ(view().mScroll.x, 640) << "the right edge";
    const int y = view().mScroll.y;
    clock.advance(0.1);
    view().tick();
    EXPECT_GT(view().mScroll.y, y);
    clock.advance(5);
    view().tick();
    records();
    view().tick();
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(TouchHandlingTest, APenStopsAGlideAndDoesNotClick) {
    flick(0, -2000);
    clock.advance(0.1);
    view().tick();
    view().handlePenDown(100, 100);
    const int y = view().mScroll.y;
    records();
    clock.advance(0.1);
    EXPECT_FALSE(view().tick());
    EXPECT_EQ(view().mScroll.y, y);
    EXPECT_TRUE(view().handleClick(100, 100)) << "used up";
    view().handlePenUp(100, 100);
    view().handlePenDown(100, 100);
    EXPECT_FALSE(view().handleClick(100, 100)) << "the next contact clicks again";
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(TouchHandlingTest, TheRestOfAFlickedContactDoesNotDrag) {
    view().handlePenDown(100, 100);
    view().handleFlick(0, -1000);
    view().handlePenMove(100, 600);
    view().handlePenUp(100, 600);
    EXPECT_EQ(view().mScroll.y, 1000);
    clock.advance(0.1);
    EXPECT_TRUE(view().tick());
}

TEST_F(TouchHandlingTest, TellsHowFarTheFingerIsBeyondTheEdge) {
    view().scrollTo(0, 0);
    records();
    view().handlePenDown(100, 100);
    view().handlePenMove(100, 150);
    view().handlePenMove(100, 150);
    EXPECT_THAT(records(), ElementsAre(Record{_OVERSCROLL, 0, -50}));
    view().handlePenMove(100, 130);
    EXPECT_THAT(records(), ElementsAre(Record{_OVERSCROLL, 0, -30}));
    EXPECT_EQ(view().mScroll.y, 0);
    view().handlePenUp(100, 130);
    EXPECT_THAT(records(), ElementsAre(Record{_OVERSCROLL, 0, 0}));
    view().handlePenDown(100, 100);
    view().handlePenMove(100, 90);
    view().handlePenUp(100, 90);
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(TouchHandlingTest, APinchKeepsThePointUnderTheFingers) {
    pinch(100, 200, 1.0, _PINCH_BEGINS);
    const double x = view().paperX(100);
    const double y = view().paperY(200);
    pinch(120, 260, 1.5, _PINCH_MOVES);
    pinch(150, 240, 2.0, _PINCH_ENDS);
    EXPECT_EQ(view().mScale, 2.0);
    EXPECT_NEAR(view().paperX(150), x, 0.6);
    EXPECT_NEAR(view().paperY(240), y, 0.6);
    EXPECT_THAT(records(), ElementsAre(Record{_INVALIDATED, 0, 0}));
}

TEST_F(TouchHandlingTest, APinchThatIsGivenUpLeavesTheZoom) {
    pinch(100, 200, 1.0, _PINCH_BEGINS);
    pinch(100, 200, 3.0, _PINCH_MOVES);
    pinch(100, 200, 3.0, _PINCH_GIVEN_UP);
    EXPECT_EQ(view().mScale, 1.0);
    EXPECT_EQ(view().mScroll.y, 1000);
}

TEST_F(TouchHandlingTest, APinchEndsInsideTheLimitsOfTheZoom) {
    pinch(100, 200, 1.0, _PINCH_BEGINS);
    pinch(100, 200, 100.0, _PINCH_ENDS);
    EXPECT_EQ(view().mScale, 8.0);
    pinch(100, 200, 1.0, _PINCH_BEGINS);
    pinch(100, 200, 0.001, _PINCH_ENDS);
    EXPECT_EQ(view().mScale, 0.25);
}

TEST_F(TouchHandlingTest, PensDuringAPinchDoNotDrag) {
    pinch(100, 200, 1.0, _PINCH_BEGINS);
    view().handlePenDown(10, 10);
    view().handlePenMove(200, 200);
    pinch(100, 200, 1.0, _PINCH_ENDS);
    view().handlePenMove(300, 300);
    EXPECT_EQ(view().mScroll.y, 1000);
}

TEST_F(TouchHandlingTest, MovesOfAPinchThatDidNotBeginAreIgnored) {
    pinch(100, 200, 3.0, _PINCH_MOVES);
    pinch(100, 200, 3.0, _PINCH_ENDS);
    EXPECT_EQ(view().mScale, 1.0);
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(TouchHandlingTest, PinchesWithoutAPlaceAreAboutTheCentre) {
    const double x = view().paperX(180);
    const double y = view().paperY(320);
    view().handleGestureStart(1.0, 0.0);
    view().handleGestureChange(2.0, 0.0);
    view().handleGestureEnd(0.0, 0.0);
    EXPECT_EQ(view().mScale, 2.0);
    EXPECT_NEAR(view().paperX(180), x, 0.6);
    EXPECT_NEAR(view().paperY(320), y, 0.6);
}

TEST_F(TouchHandlingTest, ADoubleTapZoomsAboutThePointAndFromAnywhereElseBackToTheFit) {
    const double x = view().paperX(100);
    view().handleDoubleClick(100, 300);
    EXPECT_EQ(view().mScale, 2.5);
    EXPECT_NEAR(view().paperX(100), x, 0.5);
    view().handleDoubleClick(100, 300);
    EXPECT_EQ(view().mScale, 1.0);
    view().zoomTo(0.7, {0, 0});
    view().handleDoubleClick(100, 300);
    EXPECT_EQ(view().mScale, 1.0);
}

TEST_F(TouchHandlingTest, WheelsAndKeysMoveTheViewInsideTheDocument) {
    ClientServerMessage wheel(_SCROLL_BY, 0);
    wheel.x = -20;
    wheel.y = 50;
    EXPECT_TRUE(view().handleRecord(wheel));
    EXPECT_EQ(view().mScroll.x, 280);
    EXPECT_EQ(view().mScroll.y, 1050);
    wheel.y = std::numeric_limits<int>::max();
    view().handleRecord(wheel);
    EXPECT_EQ(view().mScroll.y, 3000 - 640);
    view().handleKeyDown('s', 0);
    EXPECT_EQ(view().mScroll.y, 3000 - 640);
    view().handleKeyDown('w', 0);
    EXPECT_EQ(view().mScroll.y, 3000 - 640 - 5);
}

TEST_F(TouchHandlingTest, OtherRecordsAreNotUsed) {
    for (long type = 13; type <= 98; ++type) {
        EXPECT_FALSE(view().handleRecord(ClientServerMessage(type, 0))) << type;
    }
    EXPECT_THAT(records(), IsEmpty());
}

TEST_F(TouchHandlingTest, AnotherSizeEndsWhatWasGoingOn) {
    flick(0, -2000);
    pinch(10, 10, 1.0, _PINCH_BEGINS);
    view().resize(800, 480);
    EXPECT_FALSE(view().tick());
    EXPECT_EQ(view().layouts, 1);
    EXPECT_EQ(view().mLastFrame.Width(), 800);
    EXPECT_EQ(view().mLastFrame.Height(), 480);
    pinch(10, 10, 2.0, _PINCH_ENDS);
    EXPECT_EQ(view().mScale, 1.0);
}

TEST_F(TouchHandlingTest, ComesBackToTheZoomOfItsStateSegment) {
    view().zoomTo(0.5, {0, 0});
    view().SaveStateToDataStore();
    const PaperView again(360, 640, view().dataStoreShmId());
    EXPECT_EQ(again.mScale, 0.5);
    EXPECT_EQ(again.mScroll.y, view().mScroll.y);
    const PaperView fresh(360, 640);
    EXPECT_EQ(fresh.mScale, 1.0);
}

TEST_F(TouchHandlingTest, ExtremeInputIsHarmless) {
    constexpr int MOST = std::numeric_limits<int>::max();
    constexpr int LEAST = std::numeric_limits<int>::min();
    view().handlePenDown(LEAST, MOST);
    view().handlePenMove(MOST, LEAST);
    view().handleFlick(LEAST, MOST);
    clock.advance(1e9);
    view().tick();
    view().handlePenUp(LEAST, LEAST);
    pinch(LEAST, MOST, std::nan(""), _PINCH_BEGINS);
    pinch(MOST, MOST, -1.0, _PINCH_MOVES);
    pinch(MOST, LEAST, std::numeric_limits<double>::infinity(), _PINCH_ENDS);
    view().handleDoubleClick(LEAST, MOST);
    EXPECT_TRUE(std::isfinite(view().mScale));
    EXPECT_GE(view().mScroll.y, 0);
    EXPECT_LE(view().mScroll.y, 3000 * view().mScale);
}

} // namespace
