// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/PaintPacing.h"

#include <gtest/gtest.h>

using lectern::gtk4::PaintPacing;

namespace {

struct PaintPacingTest : testing::Test {
    PaintPacing pacing;
    void SetUp() override { pacing.show(true); }
};

} // namespace

TEST_F(PaintPacingTest, PaintsAtOnceWhenSomethingHasChanged) {
    EXPECT_FALSE(pacing.begin());
    pacing.want();
    EXPECT_TRUE(pacing.begin());
}

TEST_F(PaintPacingTest, PaintsOneAtATime) {
    pacing.want();
    EXPECT_TRUE(pacing.begin());
    pacing.want();
    EXPECT_FALSE(pacing.begin());
}

TEST_F(PaintPacingTest, PaintsAtMostOnceInAFrame) {
    pacing.want();
    EXPECT_TRUE(pacing.begin());
    pacing.want();
    pacing.finish();
    EXPECT_FALSE(pacing.begin());
    pacing.tick();
    EXPECT_TRUE(pacing.begin());
}

TEST_F(PaintPacingTest, PaintsNothingAtRest) {
    pacing.want();
    EXPECT_TRUE(pacing.begin());
    pacing.finish();
    pacing.tick();
    EXPECT_FALSE(pacing.begin());
}

TEST_F(PaintPacingTest, PaintsNothingThatNobodySeesAndCatchesUpWhenShown) {
    pacing.show(false);
    pacing.want();
    EXPECT_FALSE(pacing.begin());
    pacing.show(true);
    EXPECT_TRUE(pacing.begin());
}

TEST_F(PaintPacingTest, PaintsAnotherDocumentWithoutWaitingForThePaintOfTheOneBefore) {
    pacing.want();
    EXPECT_TRUE(pacing.begin());
    pacing.giveUp();
    pacing.want();
    EXPECT_TRUE(pacing.begin());
}
