// SPDX-License-Identifier: Apache-2.0
// Calls and work of a document that do not block the program.
#include "base/GLibHolder.h"
#include "client/lib/ClientQueue.h"
#include "tests/unit/client/FakeService.h"
#include "tests/unit/client/LibraryThreads.h"
#include "tests/unit/client/Told.h"
#include <lectern/CommonCalls.h>
#include <lectern/Document.h>
#include <lectern/TouchCalls.h>

#include <gmock/gmock.h>

#include <future>

namespace {

using namespace lectern;
using namespace std::chrono_literals;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Not;

class Lanes : public testing::Test {
protected:
    Lanes() : mBus(std::move(*Bus::connect(mService.address()))) {
        mOptions.width = 20;
        mOptions.height = 10;
    }

    std::unique_ptr<Document> open() {
        auto document = Document::open(mBus, "/letter.docx", mOptions);
        EXPECT_TRUE(document) << document.error().text;
        return std::move(*document);
    }
    // A callback that records its name and, after a failure, its kind.
    std::function<void(const Failure&)> tell(const std::string& name) {
        return [this, name](const Failure& failure) {
            mTold.add(!failure                                  ? name
                      : failure->kind == Error::Kind::Cancelled ? name + " cancelled"
                                                                : name + " failed: " + failure->name);
        };
    }
    std::vector<std::string> places() {
        std::vector<std::string> places;
        for (const auto& call : mService.calls()) {
            places.push_back(call.place);
        }
        return places;
    }

    Told mTold; // outlives the documents
    FakeService mService;
    Bus mBus;
    OpenOptions mOptions;
};

TEST_F(Lanes, CallsAreMadeAndAnsweredInTheirOrder) {
    mService.answer("/touch search", R"({"hit": 2, "hits": 9, "part": 1})");
    const auto document = open();
    document->ask(touch::scrollTo({3, 4}), tell("scroll"));
    document->ask(touch::search("boat"), [&](const Result<touch::Hit>& hit) {
        mTold.add(hit ? "hit " + std::to_string(hit->hit) : hit.error().text);
    });
    document->ask(touch::goTo(5), tell("go"));
    EXPECT_THAT(mTold.waitFor(3), ElementsAre("scroll", "hit 2", "go"));
    EXPECT_THAT(places(), ElementsAre("/events create", "/touch scrollTo", "/touch search", "/touch goTo"));
    EXPECT_EQ(mService.waitForCall("/touch goTo"), R"({ "docid": 3, "entry": 5 })");
}

TEST_F(Lanes, OneDoesNotWaitForAnother) {
    mService.answer("/touch getOutline", std::nullopt);
    mService.answer("/events handleClick", std::nullopt);
    const auto document = open();
    document->ask(touch::getOutline(), [](const auto&) { FAIL() << "it is not answered"; });
    mService.waitForCall("/touch getOutline");
    document->later(
        Lane::Input, [](Document& on, const auto&) { return on.penDown(1, 2); }, tell("pen"));
    EXPECT_THAT(mTold.waitFor(1), ElementsAre("pen"));
    document->later(Lane::Input, [](Document& on, const auto&) { return on.click(1, 2); });
    mService.waitForCall("/events handleClick");
    document->later(
        Lane::Paint, [](Document& on, const auto&) { return on.paint(); }, tell("paint"));
    EXPECT_THAT(mTold.waitFor(2), ElementsAre("pen", "paint"));
}

TEST_F(Lanes, WorkIsDoneInItsOrder) {
    const auto document = open();
    for (int x = 0; x < 5; ++x) {
        document->later(Lane::Input, [x](Document& on, const auto&) { return on.penMove(x, 0); });
    }
    mService.view().waitForTaken(5);
    std::vector<int> moved;
    for (const ClientServerMessage& move : mService.view().takenOf(_PEN_MOVE)) {
        moved.push_back(move.x);
    }
    EXPECT_THAT(moved, ElementsAre(0, 1, 2, 3, 4));
}

TEST_F(Lanes, EachHasAThreadFromItsFirstWorkOn) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    const auto document = open();
    EXPECT_THAT(libraryThreads(), ElementsAre("lectern-pings", "lectern-records"));
    document->ask(touch::goTo(1), tell("told"));
    document->later(Lane::Input, [](Document& on, const auto&) { return on.penDown(1, 1); });
    document->later(Lane::Paint, [](Document& on, const auto&) { return on.paint(); });
    mService.view().waitForTaken(2);
    EXPECT_THAT(libraryThreads(), ElementsAre("lectern-calls", "lectern-frames", "lectern-input",
                                              "lectern-pings", "lectern-records"));
}

TEST_F(Lanes, AnswersAndProgressAreToldOnTheProgramsLoop) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    mService.answer("/touch getLink", std::nullopt);
    const auto document = open();
    std::vector<std::thread::id> where;
    std::stop_source stop;
    bool done = false;
    document->ask(touch::getLink(),
                  [&](const Result<std::string>& link) {
                      EXPECT_FALSE(link);
                      where.push_back(std::this_thread::get_id());
                      done = true;
                  },
                  {.stop = stop.get_token(), .onProgress = [&](std::chrono::milliseconds) {
                       where.push_back(std::this_thread::get_id());
                       stop.request_stop();
                   }});
    while (!done) {
        g_main_context_iteration(context.get(), TRUE);
    }
    EXPECT_GE(where.size(), 2U);
    EXPECT_THAT(where, Each(std::this_thread::get_id()));
}

TEST_F(Lanes, WorkAndItsCallbackAreDestroyedOnTheProgramsLoop) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    const auto document = open();
    std::vector<std::thread::id> where;
    const auto held = [&] {
        return std::shared_ptr<int>(new int, [&](const int* any) {
            where.push_back(std::this_thread::get_id());
            delete any;
        });
    };
    document->later(Lane::Call, [inWork = held()](Document&, const auto&) { return Failure(); });
    document->ask(touch::goTo(1), [inCallback = held()](const auto&) {});
    while (where.size() < 2) {
        g_main_context_iteration(context.get(), TRUE);
    }
    EXPECT_THAT(where, Each(std::this_thread::get_id()));
}

TEST_F(Lanes, AStopTokenCancelsTheCallThatGoesOnAndNoOther) {
    mService.answer("/touch getLink", std::nullopt);
    const auto document = open();
    std::stop_source stop;
    document->ask(touch::getLink(),
                  [&](const Result<std::string>& link) {
                      mTold.add(link.error().kind == Error::Kind::Cancelled ? "cancelled"
                                                                            : link.error().text);
                  },
                  {.stop = stop.get_token()});
    document->ask(touch::goTo(1), tell("next"));
    mService.waitForCall("/touch getLink");
    stop.request_stop();
    EXPECT_THAT(mTold.waitFor(2), ElementsAre("cancelled", "next"));
}

TEST_F(Lanes, ACallThatIsCancelledBeforeItsTurnIsNotMade) {
    const auto document = open();
    std::promise<void> go;
    std::stop_source stop;
    document->later(
        Lane::Call,
        [&](Document&, const std::stop_token&) {
            go.get_future().wait();
            return Failure();
        },
        tell("first"));
    document->ask(touch::goTo(1), tell("second"), {.stop = stop.get_token()});
    stop.request_stop();
    go.set_value();
    EXPECT_THAT(mTold.waitFor(2), ElementsAre("first", "second cancelled"));
    EXPECT_THAT(places(), Not(Contains("/touch goTo")));
}

TEST_F(Lanes, ErrorsOfTheServiceAndOfTheDocumentAreTold) {
    mService.answer("/touch goTo", R"({"errorCode": "errOutOfRange", "errorText": "no such entry"})");
    const auto document = open();
    document->ask(touch::goTo(99), tell("go"));
    EXPECT_THAT(mTold.waitFor(1), ElementsAre("go failed: errOutOfRange"));
    mService.answer("/touch getView", "{}");
    document->ask(touch::getView(), [&](const auto& place) { mTold.add(place.error().text); });
    EXPECT_THAT(mTold.waitFor(2).back(), testing::HasSubstr("incomplete"));
}

TEST_F(Lanes, ACallOfALostServiceFailsWithoutStartingIt) {
    std::promise<void> gone;
    mOptions.events.onServiceGone = [&] { gone.set_value(); };
    const auto document = open();
    mService.vanish();
    gone.get_future().wait();
    const Failure failure = document->ask(common::closeSearch());
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, Error::Kind::Gone);
    EXPECT_THAT(places(), Not(Contains("/common closeSearch")));
}

TEST_F(Lanes, AnyMethodCanBeCalled) {
    mService.answer("/touch newMethod", R"({"new": true})");
    const auto document = open();
    EXPECT_EQ(*document->ask(Request{"/touch", "newMethod", R"({"a": 1})"}), R"({"new": true})");
    EXPECT_EQ(mService.waitForCall("/touch newMethod"), R"({ "docid": 3, "a": 1 })");
    EXPECT_EQ(document->ask(Request{"/touch", "newMethod", "1"}).error().kind, Error::Kind::Argument);
}

// The last callback of a document that is destroyed inside it, with work in every lane.
TEST_F(Lanes, TheDocumentMayEndInsideACallback) {
    mService.answer("/touch getLink", std::nullopt);
    mService.answer("/events handleClick", std::nullopt);
    auto document = open();
    document->ask(touch::goTo(1), [&](const Failure&) {
        mService.waitForCall("/touch getLink");
        mService.waitForCall("/events handleClick");
        document.reset();
        mTold.add("ended");
    });
    document->ask(touch::getLink(), [&](const auto&) { mTold.add("link"); });
    document->ask(touch::goTo(2), tell("go"));
    document->later(
        Lane::Input, [](Document& on, const auto&) { return on.click(1, 1); }, tell("click"));
    mTold.waitFor(1);
    mService.waitForCall("/events destroy");
    EXPECT_THAT(mTold.waitFor(1), ElementsAre("ended"));
    EXPECT_THAT(libraryThreads(), Not(Contains("lectern-calls")));
}

TEST_F(Lanes, TheEndOfTheDocumentCancelsWorkAndDropsTheRest) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    mService.answer("/touch getLink", std::nullopt);
    auto document = open();
    mService.view().answersPaints = false;
    const auto kept = std::make_shared<int>();
    Failure painted;
    document->ask(touch::getLink(), [&, kept](const auto&) { mTold.add("link"); });
    document->later(
        Lane::Paint,
        [&](Document& on, const std::stop_token&) { return painted = on.paint(); }, // ignores its token
        tell("paint"));
    document->later(
        Lane::Paint, [kept](Document& on, const auto&) { return on.paint(); }, tell("second"));
    mService.waitForCall("/touch getLink");
    mService.view().waitForTaken(1);
    document.reset();
    EXPECT_TRUE(painted);
    EXPECT_EQ(kept.use_count(), 1) << "all is released";
    while (g_main_context_iteration(context.get(), FALSE)) {
    }
    EXPECT_EQ(mTold.count(), 0U);
}

TEST_F(Lanes, TheEndOfTheDocumentEndsAWaitForRoomInTheQueue) {
    auto document = open();
    const auto hungService = mService.view().holdUp();
    ClientQueue queue;
    ASSERT_FALSE(queue.connect());
    while (queue.tryPost(ServerClientMessage(9'999, _INVALIDATED))) {
    }
    std::promise<void> begun;
    Failure failure;
    document->later(Lane::Input, [&](Document& on, const auto&) {
        begun.set_value();
        return failure = on.penMove(1, 1);
    });
    begun.get_future().wait();
    document.reset();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, Error::Kind::Gone) << failure->text;
    queue.Drain();
}

} // namespace
