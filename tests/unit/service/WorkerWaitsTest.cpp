// SPDX-License-Identifier: Apache-2.0
// The worker while a rendering engine is waited for.
#include "ServiceTest.h"
#include "service/ModuleWaits.h"
#include "service/QueueReaders.h"
#include "service/RenderWorker.h"

#include <pthread.h>

#include <deque>
#include <semaphore>
#include <set>
#include <thread>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WorkerWaitsTest : public ServiceTest {
protected:
    // An engine that answers a call when it is told to, and later ones at once.
    struct Engine {
        std::counting_semaphore<> asked{0};
        std::counting_semaphore<> answers{0};

        void call() {
            beginModuleWait();
            asked.release();
            answers.acquire();
            answers.release();
            endModuleWait();
        }
    };

    void SetUp() override {
        ServiceTest::SetUp();
        ASSERT_EQ(client.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }
    void TearDown() override {
        if (running) {
            pthread_cancel(worker);
            gQueueReaders.stopStandbys();
            EXPECT_EQ(pthread_join(worker, nullptr), 0);
        }
        for (Documents& document : gDocuments) {
            if (document.view) {
                static_cast<RecordingView&>(*document.view).onCall = nullptr;
            }
        }
        ServiceTest::TearDown();
    }
    // Adds a document whose input waits for an engine.
    int addWaiting(Engine& engine) {
        const int docid = addView();
        view(docid).onCall = [&engine] { engine.call(); };
        return docid;
    }
    // The first one starts the worker. Documents must have been added before.
    void post(long type, int docid, int x = 0) {
        if (!running) {
            ASSERT_EQ(pthread_create(&worker, nullptr, server_func, nullptr), 0);
            running = true;
            awaitWorkerReady();
        }
        ClientServerMessage message(type, docid);
        message.x = x;
        ASSERT_EQ(client.SendMessage(message), 0);
    }
    void awaitPainted(int docid) {
        ServerClientMessage message;
        ASSERT_EQ(client.ReadMessage(docid + 101, message, DocAdapterMessageQueue::TIMEOUT_INFINITE), 12);
        EXPECT_EQ(message.value, 0);
    }
    std::string mimeInfo(int docid) {
        return call("/common", "getMimeInfo", "{\"docid\": " + std::to_string(docid) + "}").value_or("none");
    }
    void awaitEmptyQueue() {
        while (waiting() > 0) {
            sched_yield();
        }
    }

    std::deque<Engine> engines; // outlive the worker
    DocAdapterMessageQueue client;
    pthread_t worker{};
    bool running = false;
};

TEST_F(WorkerWaitsTest, OtherDocumentsArePaintedWhileOneWaits) {
    Engine& engine = engines.emplace_back();
    const int slow = addWaiting(engine);
    const int quick = addView();
    post(_KEY_DOWN, slow);
    engine.asked.acquire();
    post(_PAINT, slow);
    for (int i = 0; i < 3; ++i) {
        post(_PAINT, quick);
        awaitPainted(quick);
    }
    EXPECT_THAT(takeMessages(slow + 101), IsEmpty());
    engine.answers.release();
    awaitPainted(slow);
}

TEST_F(WorkerWaitsTest, SeveralDocumentsWaitAtOnce) {
    for (int i = 0; i < 5; ++i) {
        addWaiting(engines.emplace_back());
    }
    const int quick = addView();
    for (int docid = 0; docid < quick; ++docid) {
        post(_KEY_DOWN, docid);
        engines[static_cast<size_t>(docid)].asked.acquire();
    }
    post(_PAINT, quick);
    awaitPainted(quick);
    for (int docid = 0; docid < quick; ++docid) {
        engines[static_cast<size_t>(docid)].answers.release();
        post(_PAINT, docid);
        awaitPainted(docid);
    }
}

TEST_F(WorkerWaitsTest, RecordsForTheWaitingDocumentAreServedAfterwardsInTheirOrder) {
    Engine& engine = engines.emplace_back();
    const int slow = addWaiting(engine);
    const int quick = addView();
    post(_KEY_DOWN, slow);
    engine.asked.acquire();
    post(_PEN_MOVE, slow, 1);
    post(_PEN_MOVE, slow, 2);
    awaitEmptyQueue();
    post(_PEN_DOWN, slow, 3); // of a lower type, but later
    awaitEmptyQueue();
    post(_PAINT, quick);
    awaitPainted(quick); // those before have been taken up
    engine.answers.release();
    post(_PEN_MOVE, slow, 4);
    awaitEmptyQueue();
    post(_PAINT, quick);
    awaitPainted(quick);
    mimeInfo(slow); // waits until all are served
    EXPECT_THAT(trace, ElementsAre("handleKeyDown(0, 0)", "handlePenMove(1, 0)", "handlePenMove(2, 0)",
                                   "handlePenDown(3, 0) locked", "handlePenMove(4, 0)"));
}

TEST_F(WorkerWaitsTest, ABusCallForAnotherDocumentIsAnsweredMeanwhile) {
    Engine& engine = engines.emplace_back();
    const int slow = addWaiting(engine);
    const int quick = addView();
    post(_KEY_DOWN, slow);
    engine.asked.acquire();
    post(_PAINT, slow);
    EXPECT_EQ(mimeInfo(quick), "");
    EXPECT_THAT(takeMessages(slow + 101), IsEmpty());
    engine.answers.release();
    awaitPainted(slow);
}

TEST_F(WorkerWaitsTest, ABusCallForTheWaitingDocumentWaitsToo) {
    Engine& engine = engines.emplace_back();
    const int slow = addWaiting(engine);
    addView();
    post(_KEY_DOWN, slow);
    engine.asked.acquire();
    std::thread bus([&] { call("/common", "nextResult", R"({"docid": 0})"); });
    post(_PAINT, slow);
    awaitEmptyQueue();
    EXPECT_THAT(takeMessages(slow + 101), IsEmpty());
    engine.answers.release();
    bus.join();
    awaitPainted(slow);
    EXPECT_THAT(trace, ElementsAre("handleKeyDown(0, 0)", "nextResult locked"));
}

TEST_F(WorkerWaitsTest, PaintsAreServedWhileABusCallWaits) {
    Engine& engine = engines.emplace_back();
    const int slow = addWaiting(engine);
    const int quick = addView();
    std::thread bus([&] { call("/common", "nextResult", R"({"docid": 0})"); });
    engine.asked.acquire();
    post(_PAINT, slow);
    post(_PAINT, quick);
    awaitPainted(quick);
    EXPECT_THAT(takeMessages(slow + 101), IsEmpty()) << "the document is in use";
    engine.answers.release();
    bus.join();
    awaitPainted(slow);
}

TEST_F(WorkerWaitsTest, ADestroyWaitsForTheDocumentAndItsDeferredRecords) {
    Engine& engine = engines.emplace_back();
    const int slow = addWaiting(engine);
    const int quick = addView();
    post(_KEY_DOWN, slow);
    engine.asked.acquire();
    post(_PAINT, slow);
    post(_PAINT, quick);
    awaitPainted(quick); // the other paint has been taken up as well
    std::thread bus([&] { doDestroy(slow); });
    engine.answers.release();
    bus.join();
    awaitPainted(slow);
    EXPECT_THAT(trace, ElementsAre("handleKeyDown(0, 0)", "SaveStateToDataStore", "deleted"));
}

TEST_F(WorkerWaitsTest, DeferredRecordsAreServedWhenTheOtherDocumentHasGone) {
    Engine& engine = engines.emplace_back();
    const int slow = addWaiting(engine);
    const int quick = addView();
    post(_KEY_DOWN, slow);
    engine.asked.acquire();
    post(_PEN_MOVE, slow, 1);
    post(_PAINT, quick);
    awaitPainted(quick);
    awaitEmptyQueue();
    post(_PAINT, quick);
    awaitPainted(quick); // the move has been deferred
    doDestroy(quick);
    post(_PEN_MOVE, slow, 2);
    awaitEmptyQueue();
    engine.answers.release();
    post(_PAINT, slow);
    awaitPainted(slow);
    mimeInfo(slow);
    EXPECT_THAT(trace, testing::IsSupersetOf({"handlePenMove(1, 0)", "handlePenMove(2, 0)"}));
}

TEST_F(WorkerWaitsTest, ShortWaitsLeaveTheReadingToOneThread) {
    Engine& engine = engines.emplace_back();
    engine.answers.release();
    const int docid = addView();
    addView();
    std::set<pthread_t> threads;
    view(docid).onCall = [&] {
        threads.insert(pthread_self());
        engine.call();
    };
    for (int i = 0; i < 100; ++i) {
        post(_KEY_DOWN, docid);
        engine.asked.acquire();
    }
    mimeInfo(docid); // waits for the last use
    // A busy machine may turn one or another wait into a long one.
    EXPECT_LE(threads.size(), 3U);
}

TEST_F(WorkerWaitsTest, ASingleDocumentsRecordsStayInTheQueueWhileItWaits) {
    Engine& engine = engines.emplace_back();
    const int only = addWaiting(engine);
    std::thread bus([&] { call("/common", "nextResult", R"({"docid": 0})"); });
    engine.asked.acquire();
    post(_PEN_MOVE, only, 1); // the worker takes this one and waits
    awaitEmptyQueue();
    post(_PEN_MOVE, only, 2);
    post(_PAINT, only);
    EXPECT_EQ(waiting(), 2U);
    engine.answers.release();
    bus.join();
    awaitPainted(only);
    mimeInfo(only);
    EXPECT_THAT(trace, testing::Contains("handlePenMove(1, 0)"));
}

TEST_F(WorkerWaitsTest, AWaitWithoutALockedRegistryIsNoneOfTheServices) {
    beginModuleWait();
    endModuleWait();
    EXPECT_FALSE(registryIsHeld());
}

} // namespace
