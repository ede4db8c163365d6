// SPDX-License-Identifier: Apache-2.0
// Invalid payloads, and replies that the bus refuses.
#include "ServiceTest.h"
#include "service/BusCall.h"
#include "service/IdleClock.h"

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class ReplyTest : public ServiceTest {};

TEST_F(ReplyTest, APayloadThatIsNoJsonHasNoMembers) {
    for (const char* payload : {"", "{", "no json", "{\"docid\": }", "[]", "null", "7"}) {
        EXPECT_EQ(call("/common", "getDocProperties", payload), NO_DOCID_TEXT) << payload;
    }
    EXPECT_EQ(fakeHub.call("/common", "getDocProperties", nullptr), NO_DOCID_TEXT);
}

TEST_F(ReplyTest, ARefusedReplyIsReportedAndForgotten) {
    addView();
    fakeHub.replyFailure = "caller has gone";
    CaptureStderr();
    EXPECT_EQ(call("/common", "closeSearch", R"({"docid": 0})"), std::nullopt);
    EXPECT_EQ(GetCapturedStderr(), "1: caller has gone\n");
    EXPECT_THAT(trace, testing::ElementsAre("stopFind"));
}

TEST_F(ReplyTest, ItsSenderLearnsWhetherItWasSent) {
    static std::vector<bool> results;
    const HubMethod methods[] = {{"answer",
                                  [](HubHandle* handle, HubMessage* message, void*) {
                                      results.push_back(HubMessageReplyWrapper(handle, message, "text"));
                                      return true;
                                  },
                                  0},
                                 {nullptr, nullptr, 0}};
    fakeHub.categories.emplace_back("/test", methods);
    EXPECT_EQ(call("/test", "answer", ""), "text");
    fakeHub.replyFailure = "caller has gone";
    CaptureStderr();
    call("/test", "answer", "");
    EXPECT_EQ(GetCapturedStderr(), "1: caller has gone\n");
    EXPECT_EQ(results, (std::vector{true, false}));
}

TEST_F(ReplyTest, TheIdleClockIsSetBeforeThePayloadIsRead) {
    int payloads = 0;
    fakeHub.onPayload = [&] {
        ++payloads;
        EXPECT_EQ(gLastActive, 5000);
        gLastActive = 1; // the next call must set it again
    };
    systemCalls.now = 5000;
    for (const auto& [category, methods] : fakeHub.categories) {
        for (const HubMethod* method = methods; method->name != nullptr; ++method) {
            gLastActive = 1;
            call(category, method->name, "{}");
        }
    }
    EXPECT_GE(payloads, 18);
    systemCalls.now = 0;
}

TEST_F(ReplyTest, TheRegistryIsHeldForErrorsOfDocumentsAloneAndFreeAfterAll) {
    for (const auto& [category, methods] : fakeHub.categories) {
        for (const HubMethod* method = methods; method->name != nullptr; ++method) {
            fakeHub.onReply = [&](const std::string& text) {
                EXPECT_EQ(registryIsHeld(), text == NO_DOCUMENT) << method->name << text;
            };
            call(category, method->name, "{}");
            EXPECT_FALSE(registryIsHeld()) << method->name;
            call(
                category, method->name,
                R"({"docid": 9, "search": "", "sheet": 0, "slide": 0, "mode": "", "column": "", "xCoord": 0,)"
                R"( "yCoord": 0, "chr": 0, "modifiers": 0, "wideMode": false})");
            EXPECT_FALSE(registryIsHeld()) << method->name;
        }
    }
    fakeHub.onReply = nullptr;
}

TEST_F(ReplyTest, TheIdleClockIsSetWhenACallBeginsAndWhenItEnds) {
    const int docid = addView();
    systemCalls.now = 1000;
    view(docid).onCall = [] {
        EXPECT_EQ(gLastActive, 1000);
        systemCalls.now = 1040; // a call that takes long
    };
    call("/common", "getDocProperties", R"({"docid": 0})");
    EXPECT_EQ(gLastActive, 1040);
    view(docid).onCall = nullptr;
    systemCalls.now = 0;
}

TEST_F(ReplyTest, EveryMethodKeepsTheServiceAlive) {
    for (const auto& [category, methods] : fakeHub.categories) {
        for (const HubMethod* method = methods; method->name != nullptr; ++method) {
            gLastActive = 1;
            systemCalls.now = 5000;
            call(category, method->name, "{}");
            EXPECT_EQ(gLastActive, 5000) << method->name;
        }
    }
    systemCalls.now = 0;
}

} // namespace
