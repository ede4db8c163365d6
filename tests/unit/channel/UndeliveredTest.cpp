// SPDX-License-Identifier: Apache-2.0
#include "channel/Undelivered.h"

#include <gtest/gtest.h>

namespace {

constexpr long HERE = 5000;
constexpr long THERE = 6000;

TEST(LeastMissed, RequestsToPaintGoFirstWhoeverTheyAreFor) {
    EXPECT_EQ(LeastMissed({{HERE, _OPENED}, {HERE, _SLIDE_CHANGED}, {THERE, _INVALIDATED}}, HERE), 2U);
}

TEST(LeastMissed, OfThoseTheSameAddresseesFirst) {
    EXPECT_EQ(LeastMissed({{THERE, _INVALIDATED}, {HERE, _INVALIDATED}, {HERE, _INVALIDATED}}, HERE), 1U);
}

TEST(LeastMissed, ThenTheOldest) {
    EXPECT_EQ(LeastMissed({{THERE, _INVALIDATED}, {THERE, _INVALIDATED}}, HERE), 0U);
}

TEST(LeastMissed, AnswersThatSomebodyWaitsForGoLast) {
    EXPECT_EQ(LeastMissed({{HERE, _PAINT_DONE}, {HERE, _OPENED}, {THERE, _CLICK_UNUSED}}, HERE), 2U);
    EXPECT_EQ(LeastMissed({{THERE, _OPENED}, {THERE, _PAINT_DONE}, {HERE, _PAINT_DONE}}, HERE), 2U);
}

TEST(LeastMissed, NotificationsOfAllKindsAreEqual) {
    EXPECT_EQ(LeastMissed({{THERE, _HYPERLINK}, {HERE, _SLIDE_CHANGED}, {HERE, _CLICK_UNUSED}}, HERE), 1U);
}

} // namespace
