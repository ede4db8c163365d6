// SPDX-License-Identifier: Apache-2.0
#include "view/DrawingBudget.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

class DrawingBudgetTest : public testing::Test {
protected:
    const CpPixmap target{100, 50};
    DrawingBudget budget{target};
};

TEST_F(DrawingBudgetTest, CoversTheTargetManyTimesAndThenNoMore) {
    const CpRect all(-10, -10, INT_MAX, INT_MAX);
    for (int64_t i = 0; i < DrawingBudget::COVERS; ++i) {
        EXPECT_TRUE(budget.coversRect(all));
    }
    EXPECT_FALSE(budget.coversRect(all));
    EXPECT_FALSE(budget.coversRect(CpRect(0, 0, 1, 1)));
}

TEST_F(DrawingBudgetTest, WhatLiesOutsideCostsNothing) {
    for (int i = 0; i < 10000; ++i) {
        EXPECT_TRUE(budget.coversRect(CpRect(100, 0, 5000, 50)));
        EXPECT_TRUE(budget.coversRect(CpRect(0, -100, 100, 0)));
        EXPECT_TRUE(budget.coversTriangle(101, 0, 40));
        EXPECT_TRUE(budget.coversTriangle(0, -41, 40));
        EXPECT_TRUE(budget.coversTriangle(0, 0, -1));
    }
    EXPECT_TRUE(budget.coversRect(CpRect(0, 0, 100, 50)));
}

TEST_F(DrawingBudgetTest, ATriangleWhoseRowsAreTooLongIsNotDrawn) {
    EXPECT_TRUE(budget.coversTriangle(-20, -20, 40));
    EXPECT_FALSE(budget.coversTriangle(-700'000'000, -20, 730'000'000));
    EXPECT_TRUE(budget.coversTriangle(10, 10, 40)) << "others still are";
}

} // namespace
