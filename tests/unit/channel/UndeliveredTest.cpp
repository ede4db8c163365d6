// SPDX-License-Identifier: Apache-2.0
#include "channel/Undelivered.h"

#include <gtest/gtest.h>

namespace {

constexpr long kHere = 5000;
constexpr long kThere = 6000;

TEST(LeastMissed, RequestsToPaintGoFirstWhoeverTheyAreFor) {
    EXPECT_EQ(LeastMissed({{kHere, _OPENED}, {kHere, _SLIDE_CHANGED}, {kThere, _INVALIDATED}}, kHere), 2U);
}

TEST(LeastMissed, OfThoseTheSameAddresseesFirst) {
    EXPECT_EQ(LeastMissed({{kThere, _INVALIDATED}, {kHere, _INVALIDATED}, {kHere, _INVALIDATED}}, kHere), 1U);
}

TEST(LeastMissed, ThenTheOldest) {
    EXPECT_EQ(LeastMissed({{kThere, _INVALIDATED}, {kThere, _INVALIDATED}}, kHere), 0U);
}

TEST(LeastMissed, AnswersThatSomebodyWaitsForGoLast) {
    EXPECT_EQ(LeastMissed({{kHere, _PAINT_DONE}, {kHere, _OPENED}, {kThere, _CLICK_UNUSED}}, kHere), 2U);
    EXPECT_EQ(LeastMissed({{kThere, _OPENED}, {kThere, _PAINT_DONE}, {kHere, _PAINT_DONE}}, kHere), 2U);
}

TEST(LeastMissed, NotificationsOfAllKindsAreEqual) {
    EXPECT_EQ(LeastMissed({{kThere, _HYPERLINK}, {kHere, _SLIDE_CHANGED}, {kHere, _CLICK_UNUSED}}, kHere),
              1U);
}

} // namespace
