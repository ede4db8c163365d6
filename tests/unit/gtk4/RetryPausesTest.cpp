// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/RetryPauses.h"

#include <gtest/gtest.h>

using lectern::gtk4::RetryPauses;

TEST(RetryPauses, GrowAndThenGiveUp) {
    RetryPauses pauses;
    std::chrono::milliseconds before{0};
    std::chrono::milliseconds together{0};
    while (const auto pause = pauses.next()) {
        EXPECT_GT(*pause, before);
        before = *pause;
        together += *pause;
        ASSERT_LT(together, std::chrono::seconds(60));
    }
    EXPECT_GT(together, std::chrono::seconds(10));
    EXPECT_FALSE(pauses.next());
    pauses.startAgain();
    EXPECT_TRUE(pauses.next());
}
