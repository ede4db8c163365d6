// SPDX-License-Identifier: Apache-2.0
// The category "/common": calls of views, replies and records, and their order.
#include "ServiceTest.h"

namespace {

using testing::ElementsAre;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr char REPLY_DONE[] = "reply { \"returnValue\": true }";

class CommonMethodsTest : public ServiceTest {
protected:
    std::vector<std::string> traceOf(const std::string& method,
                                     const std::string& payload = R"({"docid": 0})") {
        return ServiceTest::traceOf("/common", method, payload);
    }
    static std::vector<std::string> docidMethods() {
        return {"getDocProperties", "nextResult",     "previousResult",
                "closeSearch",      "clearSelection", "getMimeInfo"};
    }
    static std::vector<std::string> allMethods() {
        std::vector<std::string> methods = docidMethods();
        methods.emplace_back("Search");
        return methods;
    }
    // A payload with the parameters of all methods.
    static constexpr char COMPLETE[] = R"({"docid": 0, "search": "x"})";
};

TEST_F(CommonMethodsTest, GetDocPropertiesAnswersTheViewsText) {
    addView();
    EXPECT_THAT(traceOf("getDocProperties"),
                ElementsAre("getDocProperties", R"(reply { "title": "the view's text" })"));
}

TEST_F(CommonMethodsTest, GetMimeInfoAnswersTheViewsText) {
    const int docid = addView();
    EXPECT_THAT(traceOf("getMimeInfo"), ElementsAre("reply "));
    view(docid).mMimeInfo = "text/plain";
    EXPECT_THAT(traceOf("getMimeInfo"), ElementsAre("reply text/plain"));
}

TEST_F(CommonMethodsTest, SearchRepliesAndThenInvalidates) {
    addView();
    EXPECT_THAT(traceOf("Search", R"({"docid": 0, "search": "needle"})"),
                ElementsAre("doSearch(needle)", R"(reply { "resultcount": 3 })", "message 0"));
}

TEST_F(CommonMethodsTest, SteppingHoldsTheViewsMutexAndInvalidatesBeforeTheReply) {
    addView();
    EXPECT_THAT(traceOf("nextResult"), ElementsAre("nextResult locked", "message 0", REPLY_DONE));
    EXPECT_THAT(traceOf("previousResult"), ElementsAre("previousResult locked", "message 0", REPLY_DONE));
}

TEST_F(CommonMethodsTest, ClosingAndClearingInvalidateBeforeTheReply) {
    addView();
    EXPECT_THAT(traceOf("closeSearch"), ElementsAre("stopFind", "message 0", REPLY_DONE));
    EXPECT_THAT(traceOf("clearSelection"), ElementsAre("clearSelection", "message 0", REPLY_DONE));
}

TEST_F(CommonMethodsTest, InvalidatingMarksTheViewDirty) {
    const int docid = addView();
    for (const char* method : {"nextResult", "previousResult", "closeSearch", "clearSelection"}) {
        view(docid).mDirty = false;
        traceOf(method);
        EXPECT_TRUE(view(docid).mDirty) << method;
    }
    for (const char* method : {"getDocProperties", "getMimeInfo"}) {
        view(docid).mDirty = false;
        traceOf(method);
        EXPECT_FALSE(view(docid).mDirty) << method;
    }
}

TEST_F(CommonMethodsTest, TheDocidIsRequired) {
    for (const std::string& method : docidMethods()) {
        EXPECT_EQ(call("/common", method, R"({"doc": 0})"), NO_DOCID_TEXT) << method;
    }
}

TEST_F(CommonMethodsTest, SearchTellsWhichParameterIsMissingTheDocidFirst) {
    EXPECT_EQ(call("/common", "Search", "{}"), NO_DOCID_TEXT);
    EXPECT_EQ(call("/common", "Search", R"({"search": "x"})"), NO_DOCID_TEXT);
    EXPECT_EQ(call("/common", "Search", R"({"docid": 0})"),
              R"({ "errorCode": "errParamFailed", "errorText": "failed to get search query" })");
}

TEST_F(CommonMethodsTest, DocumentsThatDoNotExistAreTold) {
    const int docid = addView();
    addView();
    gDocuments[static_cast<size_t>(docid)].view.reset();
    for (const char* number : {"0", "2", "-1", "2147483647", "-2147483648"}) {
        for (const std::string& method : docidMethods()) {
            EXPECT_EQ(call("/common", method, std::string(R"({"docid": )") + number + "}"), NO_DOCUMENT)
                << method << number;
        }
        EXPECT_EQ(call("/common", "Search", std::string(R"({"search": "x", "docid": )") + number + "}"),
                  NO_DOCUMENT);
    }
}

TEST_F(CommonMethodsTest, ParametersAreCheckedBeforeTheRegistryIsLocked) {
    const StuckRegistry stuck;
    for (const std::string& method : allMethods()) {
        EXPECT_EQ(call("/common", method, "{}"), NO_DOCID_TEXT) << method;
    }
}

TEST_F(CommonMethodsTest, WithoutTheRegistryThereIsNoReply) {
    const StuckRegistry stuck;
    for (const std::string& method : allMethods()) {
        CaptureStderr();
        EXPECT_EQ(call("/common", method, COMPLETE), std::nullopt) << method;
        EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    }
}

TEST_F(CommonMethodsTest, ARegistryThatCannotBeUnlockedIsReportedAfterTheReply) {
    addView();
    systemCalls.failingUnlock = &gDocumentsMutex;
    CaptureStderr();
    EXPECT_EQ(call("/common", "closeSearch", R"({"docid": 0})"), DONE);
    EXPECT_EQ(GetCapturedStderr(), "Unable to release mutex: 1.");
    systemCalls.failingUnlock = nullptr;
}

TEST_F(CommonMethodsTest, ViewsMessagesAndRepliesHaveTheRegistryHeld) {
    const int docid = addView();
    int replies = 0;
    int messages = 0;
    view(docid).onCall = [] { EXPECT_TRUE(registryIsHeld()); };
    systemCalls.onSend = [&](long) {
        EXPECT_TRUE(registryIsHeld());
        ++messages;
    };
    fakeHub.onReply = [&](const std::string&) {
        EXPECT_TRUE(registryIsHeld());
        ++replies;
    };
    for (const std::string& method : allMethods()) {
        call("/common", method, COMPLETE);
        EXPECT_FALSE(registryIsHeld()) << method;
    }
    EXPECT_EQ(replies, 7);
    EXPECT_EQ(messages, 5);
    view(docid).onCall = nullptr;
}

TEST_F(CommonMethodsTest, TheViewsMutexIsFreeAgainAtMessagesAndReplies) {
    const int docid = addView();
    systemCalls.onSend = [&](long) { EXPECT_FALSE(viewIsHeld(docid)); };
    fakeHub.onReply = [&](const std::string&) { EXPECT_FALSE(viewIsHeld(docid)); };
    for (const std::string& method : allMethods()) {
        EXPECT_NE(call("/common", method, COMPLETE), std::nullopt);
    }
    EXPECT_EQ(waiting(), 5U);
}

TEST_F(CommonMethodsTest, DocidsConvertAsJsonDoes) {
    addView();
    addView();
    EXPECT_EQ(call("/common", "getMimeInfo", R"({"docid": "1"})"), "");
    EXPECT_EQ(call("/common", "getMimeInfo", R"({"docid": true})"), "");
    EXPECT_EQ(call("/common", "getMimeInfo", R"({"docid": "2"})"), NO_DOCUMENT);
}

} // namespace
