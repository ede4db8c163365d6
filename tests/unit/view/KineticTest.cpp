// SPDX-License-Identifier: Apache-2.0
#include "TestClock.h"
#include "view/NewtonianMotion.h"
#include "view/NewtonianSmoothScroll.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <ctime>

namespace {

TEST(NewtonianMotion, SlowsDownEvenlyUntilRest) {
    NewtonianMotion motion;
    motion.Initialize(5.0, 100.0, 431.0, 22.0);
    EXPECT_DOUBLE_EQ(motion.duration(), 431.0 / 215.6);
    EXPECT_DOUBLE_EQ(motion.getSpeed(0.0), 431.0);
    EXPECT_NEAR(motion.getSpeed(1.0), 431.0 - 215.6, 1e-9);
    EXPECT_NEAR(motion.getPosition(1.0), 100.0 + 431.0 - 107.8, 1e-9);
}

TEST(NewtonianMotion, HasNoSpeedFromTheEndOn) {
    NewtonianMotion motion;
    motion.Initialize(0.0, 0.0, 431.0, 22.0);
    EXPECT_EQ(motion.getSpeed(motion.duration()), 0.0);
    EXPECT_EQ(motion.getSpeed(motion.duration() + 1.0), 0.0);
}

TEST(NewtonianMotion, StaysAtItsFinalPosition) {
    NewtonianMotion motion;
    motion.Initialize(0.0, 7.0, -300.0, -22.0);
    const double end = motion.getPosition(motion.duration());
    EXPECT_NEAR(end, 7.0 - 300.0 * 300.0 / (2 * 215.6), 1e-9);
    EXPECT_EQ(motion.getPosition(motion.duration() + 0.001), end);
    EXPECT_EQ(motion.getPosition(1e9), end);
}

TEST(NewtonianMotion, OffsetMovesThePathAndNotTheTiming) {
    NewtonianMotion motion;
    motion.Initialize(0.0, 7.0, 100.0, 22.0);
    const double before = motion.getPosition(0.25);
    motion.Offset(1000.0);
    EXPECT_NEAR(motion.getPosition(0.25), before + 1000.0, 1e-9);
    EXPECT_DOUBLE_EQ(motion.duration(), 100.0 / 215.6);
}

class SmoothScroll : public testing::Test {
protected:
    TestClock clock;
    NewtonianSmoothScroll scroll;
    int x = 0;
    int y = 0;
};

TEST_F(SmoothScroll, StandsStillAtFirst) {
    EXPECT_FALSE(scroll.isMoving());
    x = 3;
    y = 4;
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, 3);
    EXPECT_EQ(y, 4);
}

TEST_F(SmoothScroll, MovesTheDocumentAgainstTheFinger) {
    scroll.Setup(0, 100, 0, -862);
    EXPECT_TRUE(scroll.isMoving());
    clock.advance(1.0);
    EXPECT_FALSE(scroll.tick(x, y));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 423); // 100 + 431 - 107.8
    clock.advance(0.999);
    EXPECT_FALSE(scroll.tick(x, y));
    clock.advance(0.001);
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 530);
    EXPECT_FALSE(scroll.isMoving());
}

TEST_F(SmoothScroll, LateTickLandsOnTheFinalPoint) {
    scroll.Setup(33, 100, 0, -862);
    clock.advance(100.0);
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, 33);
    EXPECT_EQ(y, 530);
}

TEST_F(SmoothScroll, EndsAtTheVeryInstantOfRest) {
    NewtonianMotion vertical;
    vertical.Initialize(0.0, 0.0, 431.0, 22.0);
    clock.advance(-1000.0); // to 0, where the following sum is exact
    scroll.Setup(0, 0, 0, -862);
    clock.advance(vertical.duration());
    EXPECT_TRUE(scroll.tick(x, y));
}

TEST_F(SmoothScroll, TicksAfterTheEndWriteNothing) {
    scroll.Setup(0, 100, 0, -862);
    clock.advance(100.0);
    scroll.tick(x, y);
    x = -1;
    y = -2;
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, -1);
    EXPECT_EQ(y, -2);
}

TEST_F(SmoothScroll, FollowsAStraightLineAndStopsBothAxesTogether) {
    scroll.Setup(0, 0, -6000, -8000); // speed 5000
    const double duration = 5000.0 / 215.6;
    for (int step = 1; step < 10; ++step) {
        clock.advance(duration / 10);
        EXPECT_FALSE(scroll.tick(x, y));
        EXPECT_NEAR(static_cast<double>(x) / y, 0.75, 0.001);
    }
    clock.advance(duration / 10 + 0.001);
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, static_cast<int>(0.6 * 5000.0 * 5000.0 / (2 * 215.6)));
    EXPECT_EQ(y, static_cast<int>(0.8 * 5000.0 * 5000.0 / (2 * 215.6)));
}

TEST_F(SmoothScroll, SidewaysGlideComesToRestButKeepsMoving) {
    scroll.Setup(10, 77, -862, 0);
    clock.advance(1000.0);
    EXPECT_FALSE(scroll.tick(x, y));
    EXPECT_EQ(x, 440);
    EXPECT_EQ(y, 77);
    clock.advance(1000.0);
    EXPECT_FALSE(scroll.tick(x, y));
    EXPECT_EQ(x, 440);
    EXPECT_EQ(y, 77);
    EXPECT_TRUE(scroll.isMoving());
    scroll.Stop();
    EXPECT_FALSE(scroll.isMoving());
}

TEST_F(SmoothScroll, FlickWithoutVelocityEndsAtOnce) {
    scroll.Setup(0, 0, -100, -100);
    scroll.Setup(50, 60, 0, 0);
    EXPECT_FALSE(scroll.isMoving());
    x = 50;
    y = 60;
    clock.advance(0.5);
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, 50);
    EXPECT_EQ(y, 60);
}

TEST_F(SmoothScroll, DoesNotTravelBackWhenTheClockIsSetBack) {
    scroll.Setup(0, 100, 0, -862);
    clock.advance(-3600.0);
    EXPECT_FALSE(scroll.tick(x, y));
    EXPECT_EQ(y, 100);
    EXPECT_TRUE(scroll.isMoving());
}

TEST_F(SmoothScroll, StopFreezesThePosition) {
    scroll.Setup(0, 100, 0, -862);
    clock.advance(1.0);
    scroll.tick(x, y);
    scroll.Stop();
    clock.advance(1.0);
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(y, 423);
}

TEST_F(SmoothScroll, ANewFlickReplacesTheGlide) {
    scroll.Setup(0, 100, 0, -862);
    clock.advance(1.0);
    scroll.tick(x, y);
    scroll.Setup(x, y, 0, 431);
    clock.advance(0.5);
    EXPECT_FALSE(scroll.tick(x, y));
    EXPECT_EQ(y, static_cast<int>(423 - 215.5 * 0.5 + 107.8 * 0.25));
}

TEST_F(SmoothScroll, OffsetCarriesARunningGlideAlong) {
    scroll.Setup(0, 100, 0, -862);
    scroll.Offset(7, 2000);
    clock.advance(100.0);
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, 7);
    EXPECT_EQ(y, 2530);
}

TEST_F(SmoothScroll, TruncatesPositionsTowardZero) {
    scroll.Setup(0, 0, 0, 862);
    clock.advance(100.0);
    scroll.tick(x, y);
    EXPECT_EQ(y, -430); // -430.8
}

TEST_F(SmoothScroll, ScrollToMovesNothing) {
    x = 5;
    y = 6;
    scroll.ScrollTo(x, y);
    EXPECT_EQ(x, 5);
    EXPECT_EQ(y, 6);
    EXPECT_FALSE(scroll.isMoving());
}

TEST_F(SmoothScroll, WildVelocitiesStopAtTheEndsOfInt) {
    scroll.Setup(INT_MAX, INT_MIN, INT_MIN, INT_MAX);
    clock.advance(1e7);
    EXPECT_TRUE(scroll.tick(x, y));
    EXPECT_EQ(x, INT_MAX);
    EXPECT_EQ(y, INT_MIN);
}

TEST(GlideClock, TellsWallClockTimeInWholeMilliseconds) {
    const auto before = static_cast<double>(time(nullptr));
    const double now = NewtonianSmoothScroll::getTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, before + 60.0);
    EXPECT_NEAR(now * 1000.0, std::round(now * 1000.0), 1e-3);
}

} // namespace
