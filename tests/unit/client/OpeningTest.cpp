// SPDX-License-Identifier: Apache-2.0
// Slow opens: progress, cancellation, opens in the background.
#include "base/GLibHolder.h"
#include "client/lib/Json.h"
#include "tests/unit/client/FakeService.h"
#include "tests/unit/client/Told.h"
#include <lectern/Opening.h>

#include <gmock/gmock.h>

namespace {

using namespace lectern;
using namespace std::chrono_literals;

class LongOpen : public testing::Test {
protected:
    LongOpen() : mBus(std::move(*Bus::connect(mService.address()))) {}

    // Leaves the open unanswered.
    void leaveUnanswered() { mService.answer("/events create", std::nullopt); }

    Told mTold;
    FakeService mService;
    Bus mBus;
    OpenOptions mOptions;
};

TEST_F(LongOpen, TellsHowLongItHasTakenOnTheThreadThatOpens) {
    leaveUnanswered();
    std::stop_source stop;
    std::vector<std::chrono::milliseconds> times;
    std::thread::id where;
    mOptions.stop = stop.get_token();
    mOptions.onProgress = [&](std::chrono::milliseconds elapsed) {
        where = std::this_thread::get_id();
        times.push_back(elapsed);
        if (times.size() == 3) {
            stop.request_stop();
        }
    };
    const auto document = Document::open(mBus, "/a.doc", mOptions);
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().kind, Error::Kind::Cancelled);
    EXPECT_EQ(where, std::this_thread::get_id());
    ASSERT_GE(times.size(), 3U);
    EXPECT_GT(times[0], 100ms);
    EXPECT_GT(times[1], times[0]);
    EXPECT_GT(times[2], times[1]);
}

TEST_F(LongOpen, GivenUpIsDestroyedWhenItsAnswerComes) {
    leaveUnanswered();
    mOptions.timeout = 20ms;
    const auto document = Document::open(mBus, "/a.doc", mOptions);
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().kind, Error::Kind::TimedOut);
    mService.answerOpenLate(17);
    EXPECT_EQ(mService.waitForCall("/events destroy"), R"({ "docid": 17 })");
}

TEST_F(LongOpen, GivenUpAndRefusedLeavesNothingToDestroy) {
    leaveUnanswered();
    mOptions.timeout = 20ms;
    ASSERT_FALSE(Document::open(mBus, "/a.doc", mOptions));
    mService.answer("/events create", R"({"errorCode": "errDocType", "errorText": ""})");
    ASSERT_FALSE(Document::open(mBus, "/a.doc", mOptions));
    for (const auto& call : mService.calls()) {
        EXPECT_NE(call.place, "/events destroy");
    }
}

TEST_F(LongOpen, InTheBackgroundEndsOnTheProgramsContext) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    std::unique_ptr<Document> document;
    std::thread::id where;
    const auto opening = Opening::start(mBus, "/a.doc", mOptions, [&](auto opened) {
        where = std::this_thread::get_id();
        ASSERT_TRUE(opened) << opened.error().text;
        document = std::move(*opened);
    });
    while (!document) {
        g_main_context_iteration(context.get(), TRUE);
    }
    EXPECT_EQ(where, std::this_thread::get_id());
    EXPECT_FALSE(document->paint());
}

TEST_F(LongOpen, InTheBackgroundTellsItsProgressAndItsFailure) {
    leaveUnanswered();
    mOptions.timeout = 600ms;
    mOptions.onProgress = [&](std::chrono::milliseconds) { mTold.add("goes on"); };
    const auto opening = Opening::start(
        mBus, "/a.doc", mOptions, [&](auto opened) { mTold.add(opened ? "opened" : opened.error().text); });
    EXPECT_EQ(mTold.waitFor(3).back(), "the service did not answer 'create' in time");
    EXPECT_EQ(mTold.waitFor(1).front(), "goes on");
}

TEST_F(LongOpen, InTheBackgroundEndsWithItsObject) {
    leaveUnanswered();
    {
        const auto opening =
            Opening::start(mBus, "/a.doc", mOptions, [&](auto /*opened*/) { mTold.add("opened"); });
        mService.waitForCall("/events create");
    }
    EXPECT_EQ(mTold.count(), 0U);
    mService.answerOpenLate(3);
    mService.waitForCall("/events destroy");
}

TEST_F(LongOpen, OpenedInTheBackgroundADocumentCanBeReopenedLater) {
    mOptions.onProgress = [](std::chrono::milliseconds) {};
    std::unique_ptr<Document> document;
    {
        const auto opening = Opening::start(mBus, "/a.doc", mOptions, [&](auto opened) {
            document = std::move(*opened);
            mTold.add("opened");
        });
        mTold.waitFor(1);
    }
    EXPECT_FALSE(document->reopen());
    EXPECT_FALSE(document->paint());
}

} // namespace
