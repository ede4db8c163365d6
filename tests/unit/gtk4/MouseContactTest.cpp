// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/MouseContact.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace lectern::gtk4;
using testing::InSequence;
using testing::StrictMock;

namespace {

struct Receiver : MouseReceiver {
    MOCK_METHOD(void, click, (Point), (override));
    MOCK_METHOD(void, pressTwice, (Point), (override));
    MOCK_METHOD(void, pressThrice, (Point), (override));
    MOCK_METHOD(void, dragBegins, (Point), (override));
    MOCK_METHOD(void, dragMoves, (Point), (override));
    MOCK_METHOD(void, dragEnds, (Point), (override));
};

struct MouseContactTest : testing::Test {
    StrictMock<Receiver> receiver;
    InSequence inOrder;
    MouseContact mouse{receiver, {}};
    Milliseconds now{1000};

    void click(Point at) {
        mouse.press(at, now);
        mouse.release(at);
        now += Milliseconds(100);
    }
};

constexpr Point AT{50, 60};

} // namespace

TEST_F(MouseContactTest, APressAndAReleaseAreAClick) {
    EXPECT_CALL(receiver, click(AT));
    click(AT);
}

TEST_F(MouseContactTest, TheSecondAndThirdPressCountAtOnceAndAreNoClicks) {
    EXPECT_CALL(receiver, click(AT));
    EXPECT_CALL(receiver, pressTwice(AT));
    EXPECT_CALL(receiver, pressThrice(AT));
    EXPECT_CALL(receiver, click(AT));
    for (int i = 0; i < 4; ++i) {
        click(AT);
    }
}

TEST_F(MouseContactTest, PressesThatAreLateOrElsewhereAreClicksOfTheirOwn) {
    EXPECT_CALL(receiver, click(testing::_)).Times(3);
    click(AT);
    click(AT + Point{30, 0});
    now += Milliseconds(500);
    click(AT + Point{30, 0});
}

TEST_F(MouseContactTest, AMoveBeyondTheThresholdDragsFromWhereItBegan) {
    EXPECT_CALL(receiver, dragBegins(AT));
    EXPECT_CALL(receiver, dragMoves(AT + Point{9, 0}));
    EXPECT_CALL(receiver, dragMoves(AT + Point{1, 0}));
    EXPECT_CALL(receiver, dragEnds(AT + Point{2, 0}));
    mouse.press(AT, now);
    mouse.move(AT + Point{8, 0});
    mouse.move(AT + Point{9, 0});
    mouse.move(AT + Point{1, 0});
    mouse.release(AT + Point{2, 0});
}

TEST_F(MouseContactTest, ACancelledDragEndsWhereItWasAndACancelledPressIsNoClick) {
    EXPECT_CALL(receiver, dragBegins(AT));
    EXPECT_CALL(receiver, dragMoves(AT + Point{20, 0}));
    EXPECT_CALL(receiver, dragEnds(AT + Point{20, 0}));
    mouse.press(AT, now);
    mouse.move(AT + Point{20, 0});
    mouse.cancel();
    mouse.press(AT, now + Milliseconds(1000));
    mouse.cancel();
}
