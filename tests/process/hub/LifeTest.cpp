// SPDX-License-Identifier: Apache-2.0
// Start and end of services: activation, the main loop, the loss of the bus.
#include "tests/process/hub/HubFixture.h"

#include <sys/prctl.h>
#include <sys/wait.h>

#include <string>

namespace {

constexpr const char* INTERFACE = "com.kestrel.hubtest.events";

class Activation : public HubFixture {
protected:
    void SetUp() override {
        HubFixture::SetUp();
        if (HasFatalFailure()) {
            return;
        }
        mBus.addService(SERVICE, HUB_ECHO_SERVICE);
        ASSERT_EQ(mClient
                      .call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ReloadConfig",
                            g_variant_new("()"))
                      .error,
                  "");
        // Processes that outlive the daemon become children of this one, which
        // can wait for them and read their status.
        ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    }

    void TearDown() override {
        mBus.stop();
        while (waitpid(-1, nullptr, 0) > 0) {
        }
    }
};

TEST_F(Activation, CallThatStartsTheServiceIsAnswered) {
    EXPECT_EQ(call("echo", "first"), (Answer{"", "first"}));
    EXPECT_EQ(call("echo", "second"), (Answer{"", "second"}));
}

TEST_F(Activation, ReplySentRightBeforeTheEndArrives) {
    for (int round = 0; round < 20; ++round) {
        const std::string payload(100000, static_cast<char>('a' + round));
        ASSERT_EQ(call("last", payload), (Answer{"", payload}));
        ASSERT_TRUE(mClient.waitUntilUnowned(SERVICE));
    }
}

TEST_F(Activation, ServiceEndsOrderlyWhenTheBusGoesAway) {
    ASSERT_EQ(call("echo", "x").text, "x");
    const std::optional<pid_t> service = mClient.processOf(SERVICE);
    ASSERT_TRUE(service.has_value());
    mBus.stop();
    int status = -1;
    pid_t ended = 0;
    while (ended != *service) {
        ended = waitpid(-1, &status, 0);
        ASSERT_GT(ended, 0) << "the service was no child";
    }
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

class Waiting : public HubFixture {};

TEST_F(Waiting, CallsBeforeTheLoopRunsAreServedWhenItRuns) {
    attachService();
    PendingCall first(mClient.connection(), SERVICE, "/events", INTERFACE, "echo", g_variant_new("(s)", "1"));
    PendingCall second(mClient.connection(), SERVICE, "/events", INTERFACE, "echo",
                       g_variant_new("(s)", "2"));
    // The bus answers a later call after the calls before it were delivered.
    const lectern::GLibHolder<GVariant> ordered(g_dbus_connection_call_sync(
        mClient.connection(), "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId",
        g_variant_new("()"), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
    ASSERT_TRUE(ordered);
    EXPECT_TRUE(gRecord.payloads.empty());
    EXPECT_EQ(first.wait(), (Answer{"", "1"}));
    EXPECT_EQ(second.wait(), (Answer{"", "2"}));
}

class Loss : public HubFixture {
protected:
    // Runs the service's loop; returns false when nothing quits it within ten seconds.
    bool runLoop() const {
        const guint guard = g_timeout_add_seconds(
            10,
            [](gpointer loop) -> gboolean {
                g_main_loop_quit(static_cast<GMainLoop*>(loop));
                return G_SOURCE_REMOVE;
            },
            mLoop);
        g_main_loop_run(mLoop);
        const bool quitInTime = g_main_context_find_source_by_id(nullptr, guard) != nullptr;
        if (quitInTime) {
            g_source_remove(guard);
        }
        return quitInTime;
    }
};

TEST_F(Loss, BusThatGoesAwayQuitsTheLoop) {
    attachService();
    ASSERT_EQ(call("echo", "x").text, "x");
    mBus.stop();
    EXPECT_TRUE(runLoop());
}

TEST_F(Loss, BusGoneBeforeAttachingIsAnError) {
    registerService();
    mBus.stop();
    EXPECT_FALSE(HubGmainAttach(mHandle, mLoop, mError.get()));
    EXPECT_EQ(mError.code(), HUB_ERROR_BUS);
    EXPECT_NE(mError.text().find("can't take the name"), std::string::npos) << mError.text();
}

// Stopped during a call of the service, which then replies.
PrivateBus* gBusToStop;

bool replyWithoutABus(HubHandle* handle, HubMessage* message, void*) {
    gBusToStop->stop();
    ErrorHolder error;
    HubMessageReply(handle, message, "too late", error.get());
    gRecord.replyCodes.push_back(error.code());
    return true;
}

TEST_F(Loss, ReplyAfterTheBusIsGoneIsSurvived) {
    const HubMethod methods[] = {{"late", replyWithoutABus, 0}, {nullptr, nullptr, 0}};
    gBusToStop = &mBus;
    registerService();
    ASSERT_TRUE(HubRegisterCategory(mHandle, "/late", methods, nullptr, nullptr, mError.get()));
    ASSERT_TRUE(HubGmainAttach(mHandle, mLoop, mError.get()));
    PendingCall late(mClient.connection(), SERVICE, "/late", "com.kestrel.hubtest.late", "late",
                     g_variant_new("(s)", ""));
    EXPECT_TRUE(runLoop());
    EXPECT_EQ(gRecord.replyCodes.size(), 1U);
    EXPECT_NE(late.wait().error, "");
}

} // namespace
