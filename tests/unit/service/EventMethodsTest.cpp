// SPDX-License-Identifier: Apache-2.0
// The category "/events" without opening and closing.
#include "ServiceTest.h"

namespace {

using testing::ElementsAre;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr char REPLY_DONE[] = "reply { \"returnValue\": true }";

const std::vector<std::string> POINT_METHODS = {"handlePenUp", "handlePenDown", "handlePenMove",
                                                "handleClick", "handleFlick",   "handleDoubleClick"};
const std::vector<std::string> KEY_METHODS = {"handleKeyUp", "handleKeyDown"};

class EventMethodsTest : public ServiceTest {
protected:
    std::vector<std::string> traceOf(const std::string& method) {
        return ServiceTest::traceOf("/events", method, COMPLETE);
    }
    static constexpr char COMPLETE[] =
        R"({"docid": 0, "xCoord": 11, "yCoord": -12, "chr": 97, "modifiers": 3})";
};

TEST_F(EventMethodsTest, PensAreNeitherLockedNorInvalidating) {
    const int docid = addView();
    view(docid).mDirty = false;
    EXPECT_THAT(traceOf("handlePenDown"), ElementsAre("handlePenDown(11, -12)", REPLY_DONE));
    EXPECT_THAT(traceOf("handlePenMove"), ElementsAre("handlePenMove(11, -12)", REPLY_DONE));
    EXPECT_THAT(traceOf("handlePenUp"), ElementsAre("handlePenUp(11, -12)", REPLY_DONE));
    EXPECT_FALSE(view(docid).mDirty);
}

TEST_F(EventMethodsTest, KeysAreNeitherLockedNorInvalidating) {
    const int docid = addView();
    view(docid).mDirty = false;
    EXPECT_THAT(traceOf("handleKeyDown"), ElementsAre("handleKeyDown(97, 3)", REPLY_DONE));
    EXPECT_THAT(traceOf("handleKeyUp"), ElementsAre("handleKeyUp(97, 3)", REPLY_DONE));
    EXPECT_FALSE(view(docid).mDirty);
}

TEST_F(EventMethodsTest, AClickThatTheViewUsedInvalidatesBeforeTheReply) {
    addView();
    EXPECT_THAT(traceOf("handleClick"), ElementsAre("handleClick(11, -12) locked", "message 0", REPLY_DONE));
}

TEST_F(EventMethodsTest, AClickThatTheViewHadNoUseForIsToldFirst) {
    const int docid = addView();
    view(docid).clickResult = false;
    EXPECT_THAT(traceOf("handleClick"),
                ElementsAre("handleClick(11, -12) locked", "message 3", "message 0", REPLY_DONE));
}

TEST_F(EventMethodsTest, AFlickHoldsTheViewsMutexAndInvalidatesBeforeTheReply) {
    addView();
    EXPECT_THAT(traceOf("handleFlick"), ElementsAre("handleFlick(11, -12) locked", "message 0", REPLY_DONE));
}

TEST_F(EventMethodsTest, ADoubleClickLocksForItself) {
    addView();
    EXPECT_THAT(traceOf("handleDoubleClick"),
                ElementsAre("handleDoubleClick(11, -12)", "message 0", REPLY_DONE));
}

TEST_F(EventMethodsTest, ViewsMessagesAndRepliesHaveTheRegistryHeld) {
    const int docid = addView();
    int replies = 0;
    int messages = 0;
    view(docid).onCall = [] { EXPECT_TRUE(registryIsHeld()); };
    view(docid).clickResult = false;
    systemCalls.onSend = [&](long) {
        EXPECT_TRUE(registryIsHeld());
        ++messages;
    };
    fakeHub.onReply = [&](const std::string&) {
        EXPECT_TRUE(registryIsHeld());
        ++replies;
    };
    for (const auto& methods : {POINT_METHODS, KEY_METHODS}) {
        for (const std::string& method : methods) {
            call("/events", method, COMPLETE);
            EXPECT_FALSE(registryIsHeld()) << method;
        }
    }
    EXPECT_EQ(replies, 8);
    EXPECT_EQ(messages, 4);
    view(docid).onCall = nullptr;
}

TEST_F(EventMethodsTest, TheViewsMutexIsFreeAgainAtMessagesAndReplies) {
    const int docid = addView();
    view(docid).clickResult = false;
    systemCalls.onSend = [&](long) { EXPECT_FALSE(viewIsHeld(docid)); };
    fakeHub.onReply = [&](const std::string&) { EXPECT_FALSE(viewIsHeld(docid)); };
    for (const std::string& method : POINT_METHODS) {
        EXPECT_EQ(call("/events", method, COMPLETE), DONE);
    }
    EXPECT_EQ(waiting(), 4U);
}

TEST_F(EventMethodsTest, PingIsNotAnswered) {
    EXPECT_EQ(call("/events", "ping", "{}"), std::nullopt);
}

TEST_F(EventMethodsTest, EveryParameterIsRequired) {
    addView();
    for (const std::string& method : POINT_METHODS) {
        for (const char* payload : {"{}", R"({"xCoord": 1, "yCoord": 1})", R"({"docid": 0, "yCoord": 1})",
                                    R"({"docid": 0, "xCoord": 1})"}) {
            EXPECT_EQ(call("/events", method, payload), NO_PARAMETER_TEXT) << method << payload;
        }
    }
    for (const std::string& method : KEY_METHODS) {
        for (const char* payload : {"{}", R"({"docid": 0, "modifiers": 1})", R"({"docid": 0, "chr": 1})",
                                    R"({"modifiers": 0, "chr": 1})"}) {
            EXPECT_EQ(call("/events", method, payload), NO_PARAMETER_TEXT) << method << payload;
        }
    }
    EXPECT_TRUE(trace.empty());
}

TEST_F(EventMethodsTest, DocumentsThatDoNotExistAreTold) {
    for (const auto& methods : {POINT_METHODS, KEY_METHODS}) {
        for (const std::string& method : methods) {
            EXPECT_EQ(call("/events", method, COMPLETE), NO_DOCUMENT) << method;
        }
    }
}

TEST_F(EventMethodsTest, ParametersComeBeforeTheRegistryAndWithoutItThereIsNoReply) {
    const StuckRegistry stuck;
    for (const auto& methods : {POINT_METHODS, KEY_METHODS}) {
        for (const std::string& method : methods) {
            EXPECT_EQ(call("/events", method, "{}"), NO_PARAMETER_TEXT) << method;
            CaptureStderr();
            EXPECT_EQ(call("/events", method, COMPLETE), std::nullopt) << method;
            EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
        }
    }
}

} // namespace
