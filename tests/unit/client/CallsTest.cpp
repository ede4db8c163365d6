// SPDX-License-Identifier: Apache-2.0
#include "client/lib/KeepAlive.h"
#include "client/lib/ViewCalls.h"
#include "tests/unit/client/CallsFixture.h"
#include "tests/unit/client/LibraryThreads.h"
#include <lectern/CommonCalls.h>
#include <lectern/WordCalls.h>

namespace {

using namespace lectern;
using namespace std::chrono_literals;

TEST_F(CallsTest, CommonMethodsNameTheDocument) {
    using Method = Call<void> (*)();
    const std::pair<const char*, Method> methods[] = {{"/common nextResult", common::nextResult},
                                                      {"/common previousResult", common::previousResult},
                                                      {"/common closeSearch", common::closeSearch},
                                                      {"/common clearSelection", common::clearSelection}};
    for (const auto& [name, method] : methods) {
        EXPECT_FALSE(ask(method(), 7));
        EXPECT_EQ(place(), name);
        EXPECT_EQ(payload().integer("docid"), 7);
    }
}

TEST_F(CallsTest, SearchGivesTheNumberOfHits) {
    mService.answer("/common Search", R"({"resultcount": 12})");
    const auto hits = ask(common::search("Größe"));
    ASSERT_TRUE(hits);
    EXPECT_EQ(*hits, 12);
    EXPECT_EQ(payload().string("search"), "Größe");
    mService.answer("/common Search", "{}");
    EXPECT_FALSE(ask(common::search("x")));
}

TEST_F(CallsTest, PropertiesAndMimeInfoComeAsTheyAre) {
    mService.answer("/common getDocProperties", R"({ "name": "A" })");
    mService.answer("/common getMimeInfo", "");
    EXPECT_EQ(*ask(common::getDocProperties(), 0), R"({ "name": "A" })");
    EXPECT_EQ(*ask(common::getMimeInfo(), 0), "");
}

TEST_F(CallsTest, PropertiesHaveValuesAndNoUnsetDates) {
    mService.answer("/common getDocProperties",
                    R"({"name": "A", "author": "B", "description": "C", "lastsave": "Mon May 04, 2020, 10:00",
                        "createdate": "Thu Jan 01, 1970, 00:00", "wordcnt": 7})");
    const auto properties = ask(common::getProperties(), 3);
    ASSERT_TRUE(properties);
    EXPECT_EQ(payload().integer("docid"), 3);
    EXPECT_EQ(properties->name + properties->author + properties->description, "ABC");
    EXPECT_EQ(properties->saved, "Mon May 04, 2020, 10:00");
    EXPECT_EQ(properties->created, "");
    EXPECT_EQ(properties->words, 7);
    mService.answer("/common getDocProperties", "{}");
    EXPECT_EQ(ask(common::getProperties())->words, std::nullopt);
}

TEST_F(CallsTest, ErrorsOfTheServiceComeThrough) {
    mService.answer("/common nextResult",
                    R"({"errorCode": "errDoesNotExist", "errorText": "Document does not exist"})");
    const auto failure = ask(common::nextResult(), 9);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->name, "errDoesNotExist");
}

TEST_F(CallsTest, CreateSendsIdentifiersAsTextAndReadsThemBack) {
    mService.answer("/events create", R"({"docid": 2, "doctype": 3, "datastoreshmid": "40000"})");
    const auto reply = events::create(mBus, {"/a.ppt", 320, 480, 17, 614404, 5, "secret"}, {});
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->docid, 2);
    EXPECT_EQ(reply->kind, 3);
    EXPECT_EQ(reply->state, 40000U);
    const JsonMembers sent = payload();
    EXPECT_EQ(sent.string("filename"), "/a.ppt");
    EXPECT_EQ(sent.integer("width"), 320);
    EXPECT_EQ(sent.integer("height"), 480);
    EXPECT_EQ(sent.string("shmid"), "17");
    EXPECT_EQ(sent.integer("size"), 614404);
    EXPECT_EQ(sent.string("datastoreshmid"), "5");
    EXPECT_EQ(sent.string("password"), "secret");
}

TEST_F(CallsTest, CreateSendsNoPasswordWhereNoneIsGiven) {
    mService.answer("/events create", R"({"docid": 0, "doctype": 2, "datastoreshmid": "40000"})");
    ASSERT_TRUE(events::create(mBus, {"/a.doc", 1, 1, 1, 8, 0, {}}, {}));
    EXPECT_FALSE(payload().has("password"));
}

TEST_F(CallsTest, CreateMissesNothingInTheReply) {
    for (const char* reply : {"", "{}", R"({"docid": 0, "doctype": 2})",
                              R"({"docid": 0, "doctype": 2, "datastoreshmid": 40000})"}) {
        mService.answer("/events create", reply);
        EXPECT_FALSE(events::create(mBus, {"/a.doc", 1, 1, 1, 8, 0, {}}, {})) << reply;
    }
}

TEST_F(CallsTest, PointerEventsCarryTheirPlace) {
    using Method = Call<void> (*)(int, int);
    const std::pair<const char*, Method> methods[] = {
        {"/events handleClick", events::handleClick},
        {"/events handleFlick", events::handleFlick},
        {"/events handleDoubleClick", events::handleDoubleClick}};
    for (const auto& [name, method] : methods) {
        EXPECT_FALSE(ask(method(20, -30)));
        EXPECT_EQ(place(), name);
        EXPECT_EQ(payload().integer("xCoord"), 20);
        EXPECT_EQ(payload().integer("yCoord"), -30);
    }
}

TEST_F(CallsTest, AFlickIsNeverPurelySideways) {
    EXPECT_FALSE(ask(events::handleFlick(500, 0)));
    EXPECT_EQ(payload().integer("xCoord"), 500);
    EXPECT_EQ(payload().integer("yCoord"), 1);
}

TEST_F(CallsTest, WideModeIsAFlag) {
    EXPECT_FALSE(ask(word::wideMode(true)));
    EXPECT_EQ(mService.calls().back(),
              (FakeService::Call{"/word wideMode", R"({ "docid": 1, "wideMode": true })"}));
}

TEST_F(CallsTest, DestroyAndPingAreNotWaitedFor) {
    EXPECT_FALSE(events::destroy(mBus, 4));
    EXPECT_EQ(mService.waitForCall("/events destroy"), R"({ "docid": 4 })");
    EXPECT_FALSE(events::ping(mBus));
    mService.waitForCall("/events ping");
}

TEST_F(CallsTest, KeepAlivePingsAgainAndAgainUntilItGoes) {
    {
        const KeepAlive alive(mBus, 1ms);
        mService.waitForCall("/events ping", 3);
    }
    const KeepAlive quiet(mBus, 1h); // its destruction does not wait for the period
}

TEST_F(CallsTest, OneThreadPingsForAllThatShareAConnection) {
    const KeepAlive first(mBus, 1h);
    const Bus copy = mBus;
    {
        const KeepAlive second(copy, 1h);
        EXPECT_EQ(libraryThreads(), std::vector<std::string>{"lectern-pings"});
    }
    EXPECT_EQ(libraryThreads(), std::vector<std::string>{"lectern-pings"}) << "for the first";
}

} // namespace
