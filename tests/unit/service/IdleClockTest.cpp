// SPDX-License-Identifier: Apache-2.0
#include "service/IdleClock.h"

#include "ServiceSystemCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A loop that only the idle check can end.
class IdleClockTest : public testing::Test {
protected:
    void SetUp() override {
        g_mainloop = g_main_loop_new(nullptr, FALSE);
        systemCalls.takeLog();
    }
    void TearDown() override {
        g_main_loop_unref(g_mainloop);
        g_mainloop = nullptr;
        systemCalls.now = 0;
        gLastActive = 0;
    }
    // Whether the check at this time quits the loop.
    static bool quitsAt(time_t now) {
        systemCalls.now = now;
        static bool cameAfter;
        cameAfter = false;
        g_idle_add(
            [](void*) -> gboolean {
                prvCheckTimeout(nullptr);
                return G_SOURCE_REMOVE;
            },
            nullptr);
        const guint after = g_idle_add_full(
            G_PRIORITY_LOW,
            [](void*) -> gboolean {
                cameAfter = true;
                g_main_loop_quit(g_mainloop);
                return G_SOURCE_CONTINUE;
            },
            nullptr, nullptr);
        g_main_loop_run(g_mainloop);
        g_source_remove(after);
        return !cameAfter;
    }
};

TEST_F(IdleClockTest, UpdateTakesTheWallClock) {
    systemCalls.now = 123456;
    prvUpdateTimer();
    EXPECT_EQ(gLastActive, 123456);
}

TEST_F(IdleClockTest, ThirtySecondsAreNotTooLong) {
    systemCalls.now = 1000;
    prvUpdateTimer();
    for (const time_t now : {1000, 1029, 1030}) {
        EXPECT_FALSE(quitsAt(now));
    }
    EXPECT_THAT(systemCalls.takeLog(), IsEmpty());
}

TEST_F(IdleClockTest, ThirtyOneSecondsEndTheService) {
    systemCalls.now = 1000;
    prvUpdateTimer();
    EXPECT_TRUE(quitsAt(1031));
    EXPECT_THAT(systemCalls.takeLog(), ElementsAre("<6> Stopping LecternServer: timeout"));
}

TEST_F(IdleClockTest, NeverIsLongAgo) {
    gLastActive = 0;
    EXPECT_TRUE(quitsAt(10));
    EXPECT_THAT(systemCalls.takeLog(), ElementsAre("<6> Stopping LecternServer: timeout"));
}

TEST_F(IdleClockTest, TheCheckStaysInstalledAlsoAfterItHasQuitTheLoop) {
    gLastActive = 0;
    EXPECT_EQ(prvCheckTimeout(nullptr), TRUE);
    systemCalls.takeLog();
}

TEST_F(IdleClockTest, AClockThatWasSetBackDoesNotEndTheService) {
    systemCalls.now = 1000;
    prvUpdateTimer();
    systemCalls.now = 500;
    EXPECT_EQ(prvCheckTimeout(nullptr), TRUE);
    EXPECT_THAT(systemCalls.takeLog(), IsEmpty());
}

TEST_F(IdleClockTest, TheClockRunsOnAfter2038) {
    systemCalls.now = 0x7FFFFFFFL;
    prvUpdateTimer();
    systemCalls.now = 0x80000005L;
    prvCheckTimeout(nullptr);
    EXPECT_THAT(systemCalls.takeLog(), IsEmpty());
    systemCalls.now = 0x80000020L;
    prvCheckTimeout(nullptr);
    EXPECT_THAT(systemCalls.takeLog(), ElementsAre("<6> Stopping LecternServer: timeout"));
}

} // namespace
