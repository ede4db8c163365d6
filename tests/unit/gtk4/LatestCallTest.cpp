// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/LatestCall.h"

#include <gtest/gtest.h>

using lectern::gtk4::LatestCall;

TEST(LatestCall, MakesTheFirstCallAtOnceAndOfTheOthersOnlyTheLast) {
    LatestCall<int> call;
    call.want(1);
    EXPECT_EQ(call.begin(), 1);
    call.want(2);
    EXPECT_FALSE(call.begin());
    call.want(3);
    EXPECT_FALSE(call.begin());
    call.finish();
    EXPECT_EQ(call.begin(), 3);
    call.finish();
    EXPECT_FALSE(call.begin());
}

TEST(LatestCall, IsIdleOnlyWhenNothingIsUnderWayOrWanted) {
    LatestCall<int> call;
    EXPECT_TRUE(call.isIdle());
    call.want(1);
    EXPECT_FALSE(call.isIdle());
    call.begin();
    EXPECT_FALSE(call.isIdle());
    call.finish();
    EXPECT_TRUE(call.isIdle());
    call.want(2);
    call.begin();
    call.giveUp();
    EXPECT_TRUE(call.isIdle());
}
