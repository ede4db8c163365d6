// SPDX-License-Identifier: Apache-2.0
#include "touch/TapTarget.h"

#include <gtest/gtest.h>

namespace {

TEST(TapTarget, MakesAnAreaAsWideAsTheViewAboutTheTappedRow) {
    const TapTarget target = TapTarget::widthOf(CpRect(100, 0, 300, 50), {120, 400}, 1.5, 800);
    EXPECT_DOUBLE_EQ(target.zoom, 6.0);
    EXPECT_EQ(target.from.x, 200);
    EXPECT_EQ(target.to.x, 400);
    EXPECT_EQ(target.from.y, 400);
    EXPECT_EQ(target.to.y, 400);
}

} // namespace
