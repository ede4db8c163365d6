// SPDX-License-Identifier: Apache-2.0
#include "touch/Glide.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double START = 5.0; // s

double formula(double start, double velocity, double seconds) {
    return start + velocity * 0.33 * (1 - std::exp(-seconds / 0.33));
}

// A glide that started at (100, 200).
Glide startedGlide(double vx, double vy) {
    Glide glide;
    glide.start({100, 200}, vx, vy, START);
    return glide;
}

TEST(Glide, IsOnItsFormulaAtAnyFrameRate) {
    for (const double rate : {7.0, 30.0, 60.0, 144.0}) {
        Glide glide = startedGlide(-1500, 4000);
        for (double t = 0.0; t < 1.2; t += 1.0 / rate) {
            const CpPoint place = glide.at(START + t);
            ASSERT_NEAR(place.x, formula(100, -1500, t), 0.51) << rate;
            ASSERT_NEAR(place.y, formula(200, 4000, t), 0.51) << rate;
        }
    }
}

TEST(Glide, StartsAtTheSpeedOfTheFinger) {
    Glide glide = startedGlide(0, 1000);
    EXPECT_NEAR(glide.at(START + 0.01).y - 200, 10, 1);
}

TEST(Glide, StopsBelowTenPixelsASecond) {
    Glide glide = startedGlide(0, 1000);
    const double duration = 0.33 * std::log(1000 / 10.0);
    glide.at(START + duration - 0.01);
    EXPECT_TRUE(glide.isMoving());
    const CpPoint end = glide.at(START + duration + 0.01);
    EXPECT_FALSE(glide.isMoving());
    EXPECT_EQ(glide.at(START + 100).y, end.y);
    EXPECT_NEAR(end.y, 200 + 0.33 * (1000 - 10), 0.51);
}

TEST(Glide, DoesNotBeginBelowTenPixelsASecond) {
    EXPECT_FALSE(startedGlide(9, -9).isMoving());
    EXPECT_TRUE(startedGlide(0, -11).isMoving());
}

TEST(Glide, StopsEachAxisForItself) {
    Glide glide = startedGlide(1000, 1000);
    glide.stopX(150);
    EXPECT_TRUE(glide.isMoving());
    EXPECT_EQ(glide.at(START + 0.5).x, 150);
    EXPECT_NEAR(glide.at(START + 0.5).y, formula(200, 1000, 0.5), 0.51);
    glide.stopY(300);
    EXPECT_FALSE(glide.isMoving());
}

TEST(Glide, MovesItsWholeWayWhenPixelsAreRenumbered) {
    Glide glide = startedGlide(1000, 1000);
    const CpPoint before = glide.at(START + 0.2);
    glide.shift(7, -50);
    EXPECT_EQ(glide.at(START + 0.2).x, before.x + 7);
    EXPECT_EQ(glide.at(START + 0.2).y, before.y - 50);
}

TEST(Glide, StandsWhenTheClockIsSetBack) {
    Glide glide = startedGlide(1000, 1000);
    EXPECT_EQ(glide.at(START - 3).x, 100);
}

TEST(Glide, DoesNotMoveAtAVelocityThatIsNoNumber) {
    EXPECT_FALSE(startedGlide(NAN, INFINITY).isMoving());
}

} // namespace
