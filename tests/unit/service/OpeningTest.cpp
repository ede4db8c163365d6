// SPDX-License-Identifier: Apache-2.0
// Files that are opened while everything else goes on.
#include "service/Opening.h"

#include "ClientSide.h"
#include "service/ModuleWaits.h"
#include "service/QueueReaders.h"
#include "service/RenderWorker.h"
#include "tests/fakes/word/FakeWordModule.h"
#include "touch/TouchView.h"

#include <poll.h>

#include <deque>
#include <semaphore>
#include <thread>

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr char STILL_OPENING[] =
    R"({ "errorCode": "errNotOpen", "errorText": "Document is still being opened" })";
constexpr int GIVEN_UP = 19;

// A module's open: it ends when it is told to, or given up.
struct SlowOpen {
    std::counting_semaphore<> asked{0};
    std::counting_semaphore<> end{0};
    bool hearsCancel = true;
    int result = 0;
    bool sawCancel = false;

    int run(const TouchView::OpenWatch& watch) {
        beginModuleWait();
        asked.release();
        const int code = await(watch);
        endModuleWait();
        return code;
    }

private:
    int await(const TouchView::OpenWatch& watch) {
        pollfd cancel{watch.cancelDescriptor, POLLIN, 0};
        while (!end.try_acquire_for(std::chrono::milliseconds(1))) {
            if (hearsCancel && poll(&cancel, 1, 0) > 0) {
                sawCancel = true;
                return GIVEN_UP;
            }
        }
        return result;
    }
};

class SlowView : public RecordingView, public TouchView {
public:
    SlowView(std::vector<std::string>& trace, unsigned int address, SlowOpen& open)
        : RecordingView(trace, address), mOpen(open) {}

    void watchOpen(OpenWatch watch) override { mWatch = std::move(watch); }
    int openFile(const char* path, const char* password) override {
        opened = std::string(path) + " with " + (password != nullptr ? password : "none");
        if (mWatch.progress) {
            mWatch.progress(40);
        }
        return mOpen.run(mWatch);
    }
    ViewPlace place() const override { return {}; }
    void scrollTo(int, int) override {}
    void zoomTo(double, const CpPoint&) override {}
    CpPoint middle() const override { return {0, 0}; }
    void resize(int, int) override {}

    std::string opened;

private:
    SlowOpen& mOpen;
    OpenWatch mWatch;
};

class OpeningTest : public ClientSideTest {
protected:
    void TearDown() override {
        for (SlowOpen& open : opens) {
            open.end.release();
        }
        stopOpenings();
        ClientSideTest::TearDown();
    }
    // A document whose open has begun, or waits for its turn.
    int addOpening(SlowOpen& open, const char* password = nullptr) {
        const int docid = addView();
        std::shared_ptr<Opening> opening;
        {
            const RegistryLock lock;
            Documents& document = gDocuments[static_cast<size_t>(docid)];
            const auto make = [this, &open, docid] {
                return std::make_unique<SlowView>(trace, static_cast<unsigned int>(addressOf(docid)), open);
            };
            document.view = make();
            trace.clear();
            opening = Opening::of(document, docid, "/d/a.odt", password, make);
            document.opening = opening;
        }
        startOpening(opening);
        return docid;
    }
    int addRunning(SlowOpen& open) {
        const int docid = addOpening(open);
        open.asked.acquire();
        return docid;
    }
    // Waits for the record that tells the end, and returns its code.
    static int awaitOpened(long address) {
        DocAdapterMessageQueue client;
        client.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID);
        ServerClientMessage message;
        while (client.ReadMessage(address, message, DocAdapterMessageQueue::TIMEOUT_INFINITE) == 12) {
            if (message.id == _OPENED) {
                return message.extra;
            }
        }
        return -1;
    }
    static bool isOpening(int docid) {
        const RegistryLock lock;
        return IsOpening(static_cast<unsigned int>(docid));
    }
    static void awaitIdle() {
        while (hasOpenings()) {
            std::this_thread::yield();
        }
    }
    std::optional<std::string> cancel(int docid) {
        return call("/touch", "cancel", R"({"docid": )" + std::to_string(docid) + "}");
    }

    std::deque<SlowOpen> opens; // outlive the openings
};

TEST_F(OpeningTest, TheRecordComesWhenTheFileIsOpen) {
    SlowOpen& open = opens.emplace_back();
    const int docid = addRunning(open);
    EXPECT_TRUE(isOpening(docid));
    open.end.release();
    EXPECT_EQ(awaitOpened(addressOf(docid)), 0);
    EXPECT_FALSE(isOpening(docid));
    EXPECT_EQ(call("/common", "getMimeInfo", R"({"docid": 0})"), "");
}

TEST_F(OpeningTest, TheRecordHasTheModulesCode) {
    SlowOpen& open = opens.emplace_back();
    open.result = 26;
    const int docid = addRunning(open);
    open.end.release();
    EXPECT_EQ(awaitOpened(addressOf(docid)), 26);
    EXPECT_THAT(systemCalls.takeLog(), testing::ElementsAre("<5> Error 0x1a opening '/d/a.odt'."));
}

TEST_F(OpeningTest, TheViewGetsThePathAndThePassword) {
    SlowOpen& open = opens.emplace_back();
    const int docid = addOpening(open, "secret");
    open.asked.acquire();
    {
        const RegistryLock lock;
        EXPECT_EQ(static_cast<SlowView&>(*gDocuments[0].view).opened, "/d/a.odt with secret");
    }
    open.end.release();
    EXPECT_EQ(awaitOpened(addressOf(docid)), 0);
}

TEST_F(OpeningTest, ProgressIsARecord) {
    SlowOpen& open = opens.emplace_back();
    const int docid = addRunning(open);
    const auto messages = takeMessages(addressOf(docid));
    ASSERT_THAT(messages, SizeIs(1));
    EXPECT_EQ(messages[0].id, _PROGRESS);
    EXPECT_EQ(messages[0].value, docid);
    EXPECT_EQ(messages[0].extra, 40);
}

TEST_F(OpeningTest, BusCallsAreRefusedAtOnce) {
    const int docid = addRunning(opens.emplace_back());
    const std::string payload = R"({"docid": )" + std::to_string(docid) +
                                R"(, "search": "x", "xCoord": 5, "yCoord": 5, "chr": 1, "modifiers": 0,)"
                                R"( "sheet": 0, "slide": 0, "column": "x", "mode": "on", "x": 1, "y": 1,)"
                                R"( "zoom": 1, "unit": "all", "entry": 0, "part": 0, "width": 1,)"
                                R"( "height": 1, "shmid": 1, "size": 4, "format": "pdf", "path": "/x"})";
    for (const auto& [category, methods] : fakeHub.categories) {
        for (const HubMethod* method = methods; method->name != nullptr; ++method) {
            const std::string name = method->name;
            const bool isOther = name == "create" || name == "destroy" || name == "ping" ||
                                 name == "wideMode" || name == "cancel";
            if (!isOther) {
                EXPECT_EQ(call(category, name, payload), STILL_OPENING) << category << ' ' << name;
            }
        }
    }
}

TEST_F(OpeningTest, PaintsShowNothingYetAndInputIsDropped) {
    const int docid = addRunning(opens.emplace_back());
    frameOf(docid)[3] = 7;
    for (long type = _PAINT; type <= _SCROLL_BY; ++type) {
        EXPECT_TRUE(serveMessage(ClientServerMessage(type, docid)));
    }
    const auto messages = takeMessages(docid + 101);
    ASSERT_THAT(messages, SizeIs(1));
    EXPECT_EQ(messages[0].value, 0);
    EXPECT_EQ(messages[0].extra, 0);
    EXPECT_EQ(frameOf(docid)[3], 7U);
    EXPECT_EQ(*gDocuments[0].status, 1);
    EXPECT_THAT(trace, IsEmpty());
}

TEST_F(OpeningTest, OtherDocumentsGoOn) {
    addRunning(opens.emplace_back());
    const int other = addView();
    EXPECT_EQ(call("/common", "getMimeInfo", R"({"docid": 1})"), "");
    EXPECT_TRUE(serveMessage(ClientServerMessage(_PAINT, other)));
    EXPECT_THAT(takeMessages(other + 101), SizeIs(1));
}

TEST_F(OpeningTest, CancelGivesTheOpenUp) {
    SlowOpen& open = opens.emplace_back();
    const int docid = addRunning(open);
    EXPECT_EQ(cancel(docid), DONE);
    EXPECT_EQ(awaitOpened(addressOf(docid)), GIVEN_UP);
    awaitIdle();
    EXPECT_TRUE(open.sawCancel);
    EXPECT_FALSE(isOpening(docid));
    EXPECT_THAT(takeMessages(addressOf(docid)), IsEmpty()) << "the end is told once";
}

TEST_F(OpeningTest, AnOpenThatEndsWellAfterItWasGivenUpIsTakenBack) {
    SlowOpen& open = opens.emplace_back();
    open.hearsCancel = false;
    const int docid = addRunning(open);
    const OfficeBase* const opened = gDocuments[0].view.get();
    EXPECT_EQ(cancel(docid), DONE);
    EXPECT_EQ(awaitOpened(addressOf(docid)), GIVEN_UP) << "nobody waits for the module";
    open.end.release();
    awaitIdle();
    EXPECT_THAT(trace, Contains("deleted")) << "the view that has the document";
    EXPECT_NE(gDocuments[0].view.get(), opened);
    EXPECT_EQ(call("/common", "getMimeInfo", R"({"docid": 0})"), "");
}

TEST_F(OpeningTest, CancelWithoutAnOpenSaysSo) {
    SlowOpen& open = opens.emplace_back();
    const int docid = addRunning(open);
    open.end.release();
    EXPECT_EQ(awaitOpened(addressOf(docid)), 0);
    EXPECT_EQ(cancel(docid), R"({ "errorCode": "errNothingThere", "errorText": "nothing there" })");
    addView();
    EXPECT_EQ(cancel(1), R"({ "errorCode": "errWrongType", "errorText": "Not a touch view" })");
    EXPECT_EQ(cancel(9), NO_DOCUMENT);
}

TEST_F(OpeningTest, DestroyDoesNotWait) {
    SlowOpen& open = opens.emplace_back();
    open.hearsCancel = false;
    const int docid = addRunning(open);
    destroy(docid);
    EXPECT_TRUE(gDocuments.empty());
    EXPECT_THAT(trace, IsEmpty()) << "the thread has the view";
    const int next = addView();
    EXPECT_EQ(next, docid) << "the number is free again";
    open.end.release();
    awaitIdle();
    EXPECT_THAT(trace, Contains("deleted"));
    EXPECT_THAT(takeMessages(addressOf(docid)), IsEmpty());
    EXPECT_TRUE(DocumentExists(static_cast<unsigned int>(next)));
}

TEST_F(OpeningTest, MoreThanTheMostWaitForTheirTurn) {
    for (size_t i = 0; i < MOST_OPENINGS; ++i) {
        addRunning(opens.emplace_back());
    }
    SlowOpen& late = opens.emplace_back();
    const int waiting = addOpening(late);
    SlowOpen& unwanted = opens.emplace_back();
    const int given = addOpening(unwanted);
    EXPECT_FALSE(late.asked.try_acquire());
    EXPECT_EQ(cancel(given), DONE);
    EXPECT_EQ(awaitOpened(addressOf(given)), GIVEN_UP) << "one that has not begun, too";
    opens[0].end.release();
    EXPECT_EQ(awaitOpened(addressOf(0)), 0);
    late.asked.acquire();
    late.end.release();
    EXPECT_EQ(awaitOpened(addressOf(waiting)), 0);
}

TEST_F(OpeningTest, TheEndOfTheServiceEndsTheOpens) {
    SlowOpen& open = opens.emplace_back();
    addRunning(open);
    stopOpenings();
    EXPECT_TRUE(open.sawCancel);
    EXPECT_FALSE(hasOpenings());
}

TEST_F(OpeningTest, CreateAnswersBeforeTheFileIsOpenAndTellsItAfterwards) {
    fakeWord().reset();
    const ClientFrame frame(SIZE);
    bool replied = false;
    fakeHub.onReply = [&](const std::string&) {
        replied = true;
        EXPECT_EQ(waiting(), 0U);
        EXPECT_EQ(fakeWord().openDocuments, 0);
    };
    const auto reply = create(payloadOf("/d/letter.doc", frame) + R"(, "manners": "touch", "password": "p")");
    EXPECT_EQ(reply, replyFor(0));
    fakeHub.onReply = nullptr;
    EXPECT_TRUE(replied);
    EXPECT_EQ(awaitOpened(static_cast<long>(dataStoreOf(0))), 0);
    awaitIdle();
    EXPECT_EQ(fakeWord().openDocuments, 1);
    EXPECT_THAT(fakeWord().takeCalls(), Contains(HasSubstr(R"(wtg_open_file("/d/letter.doc", "p",)")))
        << "this module opens no other names";
    destroy(0);
    EXPECT_EQ(fakeWord().openDocuments, 0);
}

TEST_F(OpeningTest, ACreateWithoutTouchMannersOpensTheFileBeforeItAnswers) {
    fakeWord().reset();
    const ClientFrame frame(SIZE);
    fakeHub.onReply = [&](const std::string&) { EXPECT_EQ(fakeWord().openDocuments, 1); };
    expectCreated(0, payloadOf("a.doc", frame) + R"(, "manners": "other")");
    fakeHub.onReply = nullptr;
    EXPECT_FALSE(hasOpenings());
}

TEST_F(OpeningTest, AFileWithoutExtensionOpensWhenItsKindIsNamed) {
    const ClientFrame frame(SIZE);
    create(payloadOf("/d/letter", frame) + R"(, "manners": "touch", "kind": "word")");
    ASSERT_THAT(gDocuments, SizeIs(1));
    EXPECT_EQ(awaitOpened(static_cast<long>(dataStoreOf(0))), 0);
    awaitIdle();
    destroy(0);
}

} // namespace
