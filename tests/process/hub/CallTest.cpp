// SPDX-License-Identifier: Apache-2.0
#include "tests/process/hub/HubFixture.h"

#include <atomic>
#include <deque>
#include <string>

namespace {

constexpr const char* INTERFACE = "com.kestrel.hubtest.events";
constexpr const char* INVALID_ARGUMENTS = "org.freedesktop.DBus.Error.InvalidArgs";

class Call : public HubFixture {
protected:
    void SetUp() override {
        HubFixture::SetUp();
        if (!HasFatalFailure()) {
            attachService();
        }
    }

    Answer callAt(const char* path, const char* interface, const char* method, GVariant* parameters) const {
        return mClient.call(SERVICE, path, interface, method, parameters);
    }

    Answer replyTo(const std::string& rawReply) const {
        gRecord.rawReply = rawReply;
        return call("raw", "");
    }

    // Makes a call that requests no reply.
    void post(const char* method) const {
        const lectern::GLibHolder<GDBusMessage> message(
            g_dbus_message_new_method_call(SERVICE, "/events", INTERFACE, method));
        g_dbus_message_set_body(message.get(), g_variant_new("(s)", "posted"));
        g_dbus_message_set_flags(message.get(), G_DBUS_MESSAGE_FLAGS_NO_REPLY_EXPECTED);
        g_dbus_connection_send_message(mClient.connection(), message.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE,
                                       nullptr, nullptr);
    }
};

TEST_F(Call, HandlerSeesThePayloadAndItsReplyComesBack) {
    const std::string payload = R"({"filename":"/a/b.doc","name":"Grüße 𝄞"})";
    EXPECT_EQ(call("echo", payload), (Answer{"", payload}));
    EXPECT_EQ(gRecord.payloads, std::vector{payload});
}

TEST_F(Call, EmptyPayloadIsAnEmptyText) {
    EXPECT_EQ(call("echo", ""), (Answer{"", ""}));
    EXPECT_EQ(gRecord.payloads, std::vector<std::string>{""});
}

TEST_F(Call, MegabytePayloadCrossesUnchanged) {
    std::string payload(1U << 20U, '\0');
    for (size_t i = 0; i < payload.size(); ++i) {
        payload[i] = static_cast<char>('!' + i % 90);
    }
    const Answer answer = call("echo", payload);
    EXPECT_EQ(answer.error, "");
    EXPECT_TRUE(answer.text == payload);
}

TEST_F(Call, HandledWithoutReplyEndsAtOnceWithNoReply) {
    const Answer answer = call("silent", "x");
    EXPECT_EQ(answer.error, NO_REPLY);
    EXPECT_EQ(answer.text, "silent sends no reply");
    EXPECT_EQ(gRecord.payloads, std::vector<std::string>{"x"});
}

TEST_F(Call, RefusedByItsHandlerEndsWithFailed) {
    const Answer answer = call("refuse", "x");
    EXPECT_EQ(answer.error, "org.freedesktop.DBus.Error.Failed");
    EXPECT_EQ(answer.text, "refuse did not handle the call");
}

TEST_F(Call, ReplyOfARefusingHandlerStands) {
    EXPECT_EQ(call("replyAndRefuse", ""), (Answer{"", "answered"}));
}

TEST_F(Call, CallersThatAskedForNoReplyGetNothing) {
    // Counted on GDBus's own thread. The bus preserves the order, so everything
    // sent for a posted call has arrived before the answer to the next call.
    std::atomic<int> received = 0;
    const guint filter = g_dbus_connection_add_filter(
        mClient.connection(),
        [](GDBusConnection*, GDBusMessage* message, gboolean incoming, gpointer count) {
            const GDBusMessageType type = g_dbus_message_get_message_type(message);
            if (incoming && type != G_DBUS_MESSAGE_TYPE_SIGNAL) {
                ++*static_cast<std::atomic<int>*>(count);
            }
            return message;
        },
        &received, nullptr);
    for (const char* method : {"silent", "refuse", "echo", "twice"}) {
        post(method);
    }
    EXPECT_EQ(call("echo", "last").text, "last");
    EXPECT_EQ(received, 1);
    EXPECT_EQ(gRecord.payloads, (std::vector<std::string>{"posted", "posted", "posted", "last"}));
    EXPECT_EQ(gRecord.replyCodes, (std::vector<int>{0, 0, HUB_ERROR_REPLIED, 0}))
        << "replying to such a call succeeds, once";
    g_dbus_connection_remove_filter(mClient.connection(), filter);
}

TEST_F(Call, SecondReplyFailsAndTheFirstStands) {
    EXPECT_EQ(call("twice", ""), (Answer{"", "first"}));
    EXPECT_EQ(gRecord.replyCodes, (std::vector<int>{0, HUB_ERROR_REPLIED}));
}

TEST_F(Call, RepliesWithoutTextHandleOrMessageFailAndLeaveTheCallOpen) {
    EXPECT_EQ(call("badReplies", ""), (Answer{"", "good"}));
    EXPECT_EQ(gRecord.replyCodes,
              (std::vector<int>{HUB_ERROR_INVALID, HUB_ERROR_INVALID, HUB_ERROR_INVALID, 0}));
}

TEST_F(Call, BurstIsServedAndAnsweredInOrder) {
    constexpr int COUNT = 500;
    std::deque<PendingCall> calls;
    std::vector<std::string> sent;
    for (int i = 0; i < COUNT; ++i) {
        sent.push_back(std::to_string(i));
        calls.emplace_back(mClient.connection(), SERVICE, "/events", INTERFACE, "echo",
                           g_variant_new("(s)", sent.back().c_str()));
    }
    for (size_t i = 0; i < sent.size(); ++i) {
        ASSERT_EQ(calls[i].wait(), (Answer{"", sent[i]}));
    }
    EXPECT_EQ(gRecord.payloads, sent);
}

TEST_F(Call, BurstAcrossCategoriesKeepsItsOrder) {
    std::deque<PendingCall> calls;
    std::vector<std::string> sent;
    for (int i = 0; i < 100; ++i) {
        sent.push_back(std::to_string(i));
        calls.emplace_back(mClient.connection(), SERVICE, i % 2 == 0 ? "/events" : "/common",
                           i % 2 == 0 ? INTERFACE : "com.kestrel.hubtest.common", "echo",
                           g_variant_new("(s)", sent.back().c_str()));
    }
    for (PendingCall& pending : calls) {
        pending.wait();
    }
    EXPECT_EQ(gRecord.payloads, sent);
}

TEST_F(Call, UnknownMethodIsAnError) {
    EXPECT_EQ(call("missing", "x").error, UNKNOWN_METHOD);
    EXPECT_EQ(call("Echo", "x").error, UNKNOWN_METHOD) << "names are case-sensitive";
    EXPECT_TRUE(gRecord.payloads.empty());
}

TEST_F(Call, UnknownInterfaceIsAnError) {
    EXPECT_EQ(callAt("/events", "com.kestrel.other", "echo", g_variant_new("(s)", "x")).error,
              UNKNOWN_METHOD);
}

TEST_F(Call, UnknownObjectIsAnError) {
    EXPECT_EQ(callAt("/nowhere", INTERFACE, "echo", g_variant_new("(s)", "x")).error, UNKNOWN_METHOD);
}

TEST_F(Call, WrongSignaturesAreErrors) {
    EXPECT_EQ(callAt("/events", INTERFACE, "echo", g_variant_new("()")).error, INVALID_ARGUMENTS);
    EXPECT_EQ(callAt("/events", INTERFACE, "echo", g_variant_new("(i)", 5)).error, INVALID_ARGUMENTS);
    EXPECT_EQ(callAt("/events", INTERFACE, "echo", g_variant_new("(ss)", "a", "b")).error, INVALID_ARGUMENTS);
    EXPECT_EQ(callAt("/events", INTERFACE, "echo", g_variant_new("(o)", "/")).error, INVALID_ARGUMENTS);
    EXPECT_TRUE(gRecord.payloads.empty());
}

TEST_F(Call, ReplyCutInsideItsLastCharacterLosesThatCharacter) {
    EXPECT_EQ(replyTo("\"gr\xC3\xBC\xC3"), (Answer{"", "\"gr\xC3\xBC"}));
}

TEST_F(Call, ReplyWithInvalidBytesCarriesReplacementCharacters) {
    EXPECT_EQ(replyTo("a\xFF\x80z"), (Answer{"", "a\xEF\xBF\xBD\xEF\xBF\xBDz"}));
}

TEST_F(Call, ServiceGoesOnAfterEveryKindOfError) {
    call("missing", "x");
    call("refuse", "x");
    call("silent", "x");
    replyTo("\xFF");
    EXPECT_EQ(call("echo", "still here").text, "still here");
}

} // namespace
