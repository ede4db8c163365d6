// SPDX-License-Identifier: Apache-2.0
// A document's callbacks, the threads they run on, and the paints that it makes
// by itself.
#include "base/GLibHolder.h"
#include "tests/unit/client/FakeService.h"
#include "tests/unit/client/LibraryThreads.h"
#include "tests/unit/client/Told.h"
#include <lectern/Document.h>

#include <gmock/gmock.h>

#include <future>

namespace {

using namespace lectern;
using testing::Each;
using testing::ElementsAre;

class DocumentEvents : public testing::Test {
protected:
    DocumentEvents() : mBus(std::move(*Bus::connect(mService.address()))) {
        mOptions.width = 20;
        mOptions.height = 10;
    }

    std::unique_ptr<Document> open() {
        auto document = Document::open(mBus, "/letter.docx", mOptions);
        EXPECT_TRUE(document) << document.error().text;
        return std::move(*document);
    }
    void paintByItself() {
        mOptions.events.onFrame = [this](const FrameBuffer& frame) {
            mTold.add(frame.pixels()[199] == FakeView::COLOUR ? "frame" : "no frame");
        };
    }
    long paintsTaken() {
        const std::vector<long> taken = mService.view().taken();
        return std::count(taken.begin(), taken.end(), static_cast<long>(_PAINT));
    }

    Told mTold; // outlives the documents
    FakeService mService;
    Bus mBus;
    OpenOptions mOptions;
};

TEST_F(DocumentEvents, NotificationsAreToldInTheirOrder) {
    mOptions.events.onOpened = [&](int result) { mTold.add("opened " + std::to_string(result)); };
    mOptions.events.onSlideChanged = [&](int slide) { mTold.add("slide " + std::to_string(slide)); };
    mOptions.events.onLinkTapped = [&] { mTold.add("link"); };
    const auto document = open();
    mService.view().notify(_SLIDE_CHANGED, 4, 0);
    mService.view().notify(_HYPERLINK, 0, 0);
    EXPECT_THAT(mTold.waitFor(3), ElementsAre("opened 0", "slide 4", "link"));
}

TEST_F(DocumentEvents, AreToldOnTheProgramsContextAndNowhereElse) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    std::thread::id where;
    mOptions.events.onTrackResized = [&] { where = std::this_thread::get_id(); };
    const auto document = open();
    mService.view().notify(_TRACK_RESIZED, 0, 0);
    while (where == std::thread::id()) {
        g_main_context_iteration(context.get(), TRUE);
    }
    EXPECT_EQ(where, std::this_thread::get_id());
}

TEST_F(DocumentEvents, ManyInvalidationsBeforeTheCallAreToldAsOne) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    int invalidations = 0;
    bool linked = false;
    mOptions.events.onInvalidated = [&] { ++invalidations; };
    mOptions.events.onLinkTapped = [&] { linked = true; };
    const auto document = open();
    for (int i = 0; i < 2'000; ++i) { // more than the queue holds; read although without a callback
        mService.view().notify(_INVALIDATED, 0, 0);
    }
    mService.view().notify(_HYPERLINK, 0, 0);
    document->settle(); // the reader has read all but perhaps the last records
    while (!linked) {
        g_main_context_iteration(context.get(), TRUE);
    }
    EXPECT_GE(invalidations, 1);
    EXPECT_LE(invalidations, 3);
    const int before = invalidations;
    mService.view().notify(_INVALIDATED, 0, 0);
    while (invalidations == before) {
        g_main_context_iteration(context.get(), TRUE);
    }
}

TEST_F(DocumentEvents, ACallbackMayEndTheDocument) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    for (GMainContext* where : {context.get(), static_cast<GMainContext*>(nullptr)}) {
        mOptions.context = where;
        std::unique_ptr<Document> document;
        std::promise<void> ended;
        mOptions.events.onFrame = [](const FrameBuffer&) {};
        mOptions.events.onLinkTapped = [&] {
            document.reset();
            ended.set_value();
        };
        document = open();
        mService.view().notify(_HYPERLINK, 0, 0);
        auto done = ended.get_future();
        while (done.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
            g_main_context_iteration(context.get(), FALSE);
        }
        mService.waitForCall("/events destroy", where != nullptr ? 1 : 2);
    }
}

TEST_F(DocumentEvents, ThePictureIsToldAfterTheOpenAndWhenTheViewHasChanged) {
    paintByItself();
    const auto document = open();
    EXPECT_THAT(mTold.waitFor(1), Each("frame"));
    mService.view().notify(_INVALIDATED, 0, 0);
    EXPECT_THAT(mTold.waitFor(2), Each("frame"));
}

TEST_F(DocumentEvents, ADocumentThatPaintsByItselfRunsThreeThreadsAndItsConnectionOne) {
    paintByItself();
    const auto document = open();
    EXPECT_THAT(libraryThreads(),
                ElementsAre("lectern-events", "lectern-paints", "lectern-pings", "lectern-records"));
}

TEST_F(DocumentEvents, ADocumentThatIsPaintedOnTheProgramsLoopRunsOneThread) {
    const GLibHolder<GMainContext> context(g_main_context_new());
    mOptions.context = context.get();
    const auto document = open();
    EXPECT_THAT(libraryThreads(), ElementsAre("lectern-pings", "lectern-records"));
}

TEST_F(DocumentEvents, ThePictureAfterInputShowsIt) {
    paintByItself();
    const auto document = open();
    mTold.waitFor(1);
    {
        const auto held = mService.view().holdUp();
        ASSERT_FALSE(document->penDown(0, 9));
        ASSERT_FALSE(document->penUp(0, 2));
    }
    // A paint requested at once would overtake the pen up and be the last one.
    for (size_t frames = 2; document->state().scrollY != 7; ++frames) {
        mTold.waitFor(frames);
    }
    EXPECT_EQ(document->state().scrollY, 7);
}

TEST_F(DocumentEvents, NothingIsPaintedWhileThePictureIsLookedAt) {
    std::promise<void> looking;
    std::promise<void> seen;
    std::shared_future<void> mayGoOn(seen.get_future());
    bool first = true;
    mOptions.events.onFrame = [&](const FrameBuffer&) {
        if (std::exchange(first, false)) {
            looking.set_value();
            mayGoOn.wait();
        }
        mTold.add("frame");
    };
    const auto document = open();
    looking.get_future().wait();
    for (int i = 0; i < 10; ++i) {
        mService.view().notify(_INVALIDATED, 0, 0);
        document->requestPaint();
    }
    document->settle();
    EXPECT_EQ(paintsTaken(), 1);
    seen.set_value();
    mTold.waitFor(2);
    EXPECT_EQ(paintsTaken(), 2) << "all changes meanwhile are one paint";
}

TEST_F(DocumentEvents, APaintThatFailsIsTold) {
    paintByItself();
    mOptions.events.onPaintFailed = [&](const Error& error) { mTold.add(error.name); };
    const auto document = open();
    mTold.waitFor(1);
    mService.view().paintResult = -4;
    document->requestPaint();
    EXPECT_THAT(mTold.waitFor(2), ElementsAre("frame", "errDoesNotExist"));
}

} // namespace
