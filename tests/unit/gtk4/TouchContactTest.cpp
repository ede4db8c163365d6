// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/TouchContact.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace lectern::gtk4;
using testing::_;
using testing::AllOf;
using testing::Field;
using testing::Gt;
using testing::InSequence;
using testing::NiceMock;
using testing::StrictMock;

namespace {

struct Receiver : TouchReceiver {
    MOCK_METHOD(void, penDown, (Point), (override));
    MOCK_METHOD(void, penMove, (Point), (override));
    MOCK_METHOD(void, penUp, (Point), (override));
    MOCK_METHOD(void, flick, (Point), (override));
    MOCK_METHOD(void, tap, (Point), (override));
    MOCK_METHOD(void, doubleTap, (Point), (override));
    MOCK_METHOD(void, holdBegins, (Point), (override));
    MOCK_METHOD(void, holdMoves, (Point), (override));
    MOCK_METHOD(void, holdEnds, (Point), (override));
    MOCK_METHOD(void, pinch, (Point, double, LecternPinchPhase), (override));
};

constexpr Point AT{100, 200};
constexpr Point AWAY{100, 100};

struct TouchContactTest : testing::Test {
    StrictMock<Receiver> receiver;
    InSequence inOrder;
    TouchContact touch{receiver, 160};
    Milliseconds now{5000};

    void pass(int milliseconds) { now += Milliseconds(milliseconds); }
    void tap(Point at) {
        touch.down(at, now);
        pass(50);
        touch.up(at, now);
        pass(100);
    }
    void expectTap(Point at, bool isSecond) {
        EXPECT_CALL(receiver, penDown(at));
        EXPECT_CALL(receiver, penUp(at));
        if (isSecond) {
            EXPECT_CALL(receiver, doubleTap(at));
        } else {
            EXPECT_CALL(receiver, tap(at));
        }
    }
    // A finger that moves up by `way` in steps of 10 milliseconds.
    void drag(double way, int steps) {
        touch.down(AT, now);
        for (int i = 1; i <= steps; ++i) {
            pass(10);
            touch.move(AT - Point{0, way * i / steps}, now);
        }
    }
};

} // namespace

TEST_F(TouchContactTest, AShortTouchIsATap) {
    expectTap(AT, false);
    tap(AT);
}

TEST_F(TouchContactTest, TwoTapsSoonAndNearAreADoubleTap) {
    expectTap(AT, false);
    expectTap(AT + Point{20, 10}, true);
    tap(AT);
    tap(AT + Point{20, 10});
}

TEST_F(TouchContactTest, TheThirdTapIsAFirstOneAgain) {
    expectTap(AT, false);
    expectTap(AT, true);
    expectTap(AT, false);
    for (int i = 0; i < 3; ++i) {
        tap(AT);
    }
}

TEST_F(TouchContactTest, TapsThatAreLateOrFarApartAreTwo) {
    expectTap(AT, false);
    expectTap(AT, false);
    expectTap(AT + Point{30, 0}, false);
    tap(AT);
    pass(300);
    tap(AT);
    tap(AT + Point{30, 0});
}

TEST_F(TouchContactTest, DistancesGrowWithTheDotsPerInch) {
    TouchContact dense(receiver, 320);
    expectTap(AT, false);
    expectTap(AT + Point{40, 0}, true);
    for (const Point at : {AT, AT + Point{40, 0}}) {
        dense.down(at, now);
        dense.move(at, now);
        dense.up(at, now);
    }
}

TEST_F(TouchContactTest, AFingerThatMovesDragsAndDoesNotTap) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penMove(AT - Point{0, 20}));
    EXPECT_CALL(receiver, penUp(AT - Point{0, 20}));
    touch.down(AT, now);
    touch.move(AT - Point{0, 4}, now);
    touch.move(AT - Point{0, 20}, now);
    pass(200);
    touch.up(AT - Point{0, 20}, now);
}

TEST_F(TouchContactTest, AFastDragEndsInAFlickBeforeThePenUp) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penMove(_)).Times(testing::AtLeast(5));
    // 120 pixels in 100 milliseconds, up.
    EXPECT_CALL(receiver, flick(AllOf(Field(&Point::x, 0), Field(&Point::y, testing::DoubleNear(-1200, 1)))));
    EXPECT_CALL(receiver, penUp(_));
    drag(120, 10);
    touch.up(AT - Point{0, 120}, now);
}

TEST_F(TouchContactTest, AFingerThatRestsBeforeItLeavesDoesNotFlick) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penMove(_)).Times(testing::AtLeast(5));
    EXPECT_CALL(receiver, penUp(_));
    drag(120, 10);
    pass(150);
    touch.up(AT - Point{0, 120}, now);
}

TEST_F(TouchContactTest, AFingerThatHoldsStillSelectsAndNoLongerDrags) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penUp(AT));
    EXPECT_CALL(receiver, holdBegins(AT));
    EXPECT_CALL(receiver, holdMoves(AWAY));
    EXPECT_CALL(receiver, holdEnds(AWAY));
    touch.down(AT, now);
    touch.hold();
    touch.move(AWAY, now);
    touch.up(AWAY, now);
}

TEST_F(TouchContactTest, AFingerThatDragsDoesNotHold) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penMove(AWAY));
    EXPECT_CALL(receiver, penUp(AWAY));
    touch.down(AT, now);
    touch.move(AWAY, now);
    touch.hold();
    touch.cancel();
}

TEST_F(TouchContactTest, ASecondFingerEndsTheDragAndPinches) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penUp(AT));
    EXPECT_CALL(receiver, pinch(AT, 1, LECTERN_PINCH_BEGINS));
    EXPECT_CALL(receiver, pinch(AWAY, 1.5, LECTERN_PINCH_MOVES));
    EXPECT_CALL(receiver, pinch(AWAY, 1.5, LECTERN_PINCH_ENDS));
    touch.down(AT, now);
    touch.pinchBegins(AT);
    touch.up(AT, now); // of the first finger, which GTK tells late
    touch.pinchMoves(AWAY, 1.5);
    touch.pinchEnds(false);
}

TEST_F(TouchContactTest, TheFingerThatStaysAfterAPinchMeansNothing) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penUp(AT));
    EXPECT_CALL(receiver, pinch(_, _, _)).Times(2);
    touch.down(AT, now);
    touch.pinchBegins(AT);
    touch.pinchEnds(false);
    touch.move(AWAY, now);
    touch.up(AWAY, now);
    expectTap(AT, false);
    tap(AT);
}

TEST_F(TouchContactTest, AContactThatAnotherGestureTakesHasNoEffect) {
    EXPECT_CALL(receiver, penDown(AT));
    EXPECT_CALL(receiver, penUp(AT));
    EXPECT_CALL(receiver, pinch(AT, 1, LECTERN_PINCH_BEGINS));
    EXPECT_CALL(receiver, pinch(AT, 1, LECTERN_PINCH_GIVEN_UP));
    touch.down(AT, now);
    touch.cancel();
    touch.up(AT, now);
    touch.pinchBegins(AT);
    touch.pinchEnds(true);
}
