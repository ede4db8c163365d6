// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/Give.h"

#include <gtest/gtest.h>

using namespace lectern::gtk4;

namespace {

constexpr Size VIEW{400, 800};

double givenBelow(double beyond) {
    Give give;
    give.pull({0, beyond}, VIEW);
    return give.offset().y;
}

} // namespace

TEST(Give, MovesThePictureAgainstTheEdgeThatTheFingerHasPassed) {
    EXPECT_LT(givenBelow(40), 0);
    EXPECT_GT(givenBelow(-40), 0);
    EXPECT_DOUBLE_EQ(givenBelow(40), -givenBelow(-40));
}

TEST(Give, FollowsLessAndLessAndNeverFurtherThanAPartOfTheView) {
    EXPECT_NEAR(givenBelow(2), -1, 0.1);
    EXPECT_LT(givenBelow(200) - givenBelow(400), 200 - 100);
    EXPECT_GT(givenBelow(1e6), -VIEW.height / 8.0);
}

TEST(Give, ReturnsToItsPlaceWithinATimeThatNobodyWaitsFor) {
    Give give;
    give.pull({-300, 300}, VIEW);
    double passed = 0;
    for (; give.offset() != Point() && passed < 10; passed += 1.0 / 60) {
        const double before = std::abs(give.offset().y);
        give.relax(1.0 / 60);
        EXPECT_LT(std::abs(give.offset().y), before);
    }
    EXPECT_LT(passed, 0.5);
}
