// SPDX-License-Identifier: Apache-2.0
// The worker as a thread, with a client at the queue's other end.
#include "ServiceTest.h"
#include "service/RenderWorker.h"

#include <pthread.h>
#include <sys/ipc.h>
#include <sys/msg.h>

#include <cerrno>
#include <thread>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class WorkerThreadTest : public ServiceTest {
protected:
    void SetUp() override {
        ServiceTest::SetUp();
        ASSERT_EQ(client.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }
    void TearDown() override {
        if (running) {
            pthread_cancel(worker);
            join();
        }
        ServiceTest::TearDown();
    }
    void start() {
        ASSERT_EQ(pthread_create(&worker, nullptr, server_func, nullptr), 0);
        running = true;
        awaitWorkerReady();
    }
    void* join() {
        void* result = &running;
        EXPECT_EQ(pthread_join(worker, &result), 0);
        running = false;
        return result;
    }
    void post(long type, int docid, int x = 0) {
        ClientServerMessage message(type, docid);
        message.x = x;
        ASSERT_EQ(client.SendMessage(message), 0);
    }
    // Waits for the answer to a paint; returns its value.
    int answer(int docid, int extra = 0) {
        ServerClientMessage message;
        EXPECT_EQ(client.ReadMessage(docid + 101, message, DocAdapterMessageQueue::TIMEOUT_INFINITE), 12);
        EXPECT_EQ(message.id, _PAINT_DONE);
        EXPECT_EQ(message.extra, extra);
        return message.value;
    }
    // The worker survives failed reads and reports them.
    void expectThreeFailedReads(int error, const std::string& reason) {
        addView();
        systemCalls.slept = 0;
        systemCalls.receiveError = error;
        systemCalls.receiveErrors = 3;
        CaptureStderr();
        start();
        while (systemCalls.receiveErrors > 0) {
            sched_yield();
        }
        post(_PAINT, 0);
        EXPECT_EQ(answer(0), 0);
        pthread_cancel(worker);
        join();
        const std::string line = "Can't read message from client: " + reason + "\n";
        EXPECT_EQ(GetCapturedStderr(), line + line + line);
    }

    DocAdapterMessageQueue client;
    pthread_t worker{};
    bool running = false;
};

TEST_F(WorkerThreadTest, EmptiesTheQueueOfAnEarlierRunBeforeItServes) {
    addView();
    post(_PEN_MOVE, 0);
    g_msgQueue.SendPaintDone(0, 77);
    start();
    post(_PAINT, 0);
    EXPECT_EQ(answer(0), 0);
    EXPECT_TRUE(trace.empty());
}

TEST_F(WorkerThreadTest, ServesUntilItIsCancelled) {
    addView();
    start();
    post(_KEY_DOWN, 0, 97);
    while (waiting() > 0) { // a paint would overtake it
        sched_yield();
    }
    post(_PAINT, 0);
    EXPECT_EQ(answer(0), 0);
    post(_PAINT, 7);
    EXPECT_EQ(answer(7), -4);
    ASSERT_EQ(pthread_cancel(worker), 0);
    EXPECT_EQ(join(), PTHREAD_CANCELED);
    EXPECT_THAT(trace, ElementsAre("handleKeyDown(97, 0)"));
    EXPECT_TRUE(g_msgQueue.isOpen());
}

TEST_F(WorkerThreadTest, TellsWithEachPaintWhetherThePictureIsRendered) {
    view(addView()).mRenderResult = 9;
    start();
    post(_PAINT, 0);
    EXPECT_EQ(answer(0, 9), 0);
    post(_PAINT, 7);
    EXPECT_EQ(answer(7), -4);
}

TEST_F(WorkerThreadTest, ARecordTakenUpIsFinishedBeforeItIsCancelled) {
    const int docid = addView();
    view(docid).onCall = [this] {
        ASSERT_EQ(pthread_cancel(worker), 0);
        pthread_testcancel(); // must have no effect here
    };
    start();
    post(_PEN_DOWN, 0);
    EXPECT_EQ(join(), PTHREAD_CANCELED);
    EXPECT_THAT(trace, ElementsAre("handlePenDown(0, 0) locked"));
    EXPECT_EQ(pthread_mutex_trylock(&gDocumentsMutex), 0);
    pthread_mutex_unlock(&gDocumentsMutex);
    EXPECT_EQ(pthread_mutex_trylock(view(docid).mutex()), 0);
    pthread_mutex_unlock(view(docid).mutex());
    view(docid).onCall = nullptr;
}

TEST_F(WorkerThreadTest, AClientThatNeverStopsPostingDoesNotKeepItFromEnding) {
    addView();
    view(0).onCall = [this] {
        if (trace.size() < 1000) {
            post(_PEN_MOVE, 0);
        }
        if (trace.size() == 10) {
            ASSERT_EQ(pthread_cancel(worker), 0);
        }
    };
    start();
    post(_PEN_MOVE, 0);
    EXPECT_EQ(join(), PTHREAD_CANCELED);
    EXPECT_THAT(trace, SizeIs(10));
    view(0).onCall = nullptr;
}

TEST_F(WorkerThreadTest, EndsByItselfWhenAPaintCannotBeReported) {
    addView();
    start();
    pthread_mutex_lock(&gDocumentsMutex);
    post(_PAINT, 0);
    while (waiting() > 0) {
        sched_yield();
    }
    // Leaves no room in the existing, empty queue.
    const int id = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
    msqid_ds status = {};
    msgctl(id, IPC_STAT, &status);
    status.msg_qbytes = 8;
    ASSERT_EQ(msgctl(id, IPC_SET, &status), 0);
    CaptureStderr();
    pthread_mutex_unlock(&gDocumentsMutex);
    EXPECT_EQ(join(), nullptr);
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Resource temporarily unavailable\n");
    EXPECT_TRUE(g_msgQueue.isOpen());
    EXPECT_EQ(call("/common", "getMimeInfo", R"({"docid": 0})"), "") << "bus methods still work";
}

TEST_F(WorkerThreadTest, EndsByItselfWhenTheQueueIsRemoved) {
    start();
    CaptureStderr();
    msgctl(msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0), IPC_RMID, nullptr);
    EXPECT_EQ(join(), nullptr);
    EXPECT_THAT(GetCapturedStderr(), testing::StartsWith("Can't read message from client: "));
    EXPECT_FALSE(g_msgQueue.isOpen());
}

TEST_F(WorkerThreadTest, ReadsThatFailOtherwiseAreReportedAndTriedAgainAfterAPause) {
    expectThreeFailedReads(EACCES, "Permission denied");
    EXPECT_EQ(systemCalls.slept, 30000U);
}

TEST_F(WorkerThreadTest, AnInterruptedReadIsTriedAgainAtOnce) {
    expectThreeFailedReads(EINTR, "Interrupted system call");
    EXPECT_EQ(systemCalls.slept, 0U);
}

TEST_F(WorkerThreadTest, APaintWaitsForTheRegistryAndOvertakesInput) {
    addView();
    start();
    pthread_mutex_lock(&gDocumentsMutex);
    post(_KEY_DOWN, 0, 1); // taken by the worker
    while (waiting() > 0) {
        sched_yield();
    }
    for (int i = 0; i < 100; ++i) {
        post(_PEN_MOVE, 0, i);
    }
    post(_PAINT, 0);
    view(0).onCall = [this] {
        if (trace.size() == 2) { // the first move; the answer has been sent
            EXPECT_THAT(takeMessages(101), SizeIs(1));
        }
    };
    CaptureStderr();
    pthread_mutex_unlock(&gDocumentsMutex);
    post(_WIDE_MODE, 0); // a kind without wide mode; reports that after everything else
    while (waiting() > 0) {
        sched_yield();
    }
    post(_PAINT, 0);
    answer(0);
    pthread_cancel(worker);
    join();
    EXPECT_THAT(GetCapturedStderr(), HasSubstr("Only Word supports wide mode: 1\n"));
    ASSERT_THAT(trace, SizeIs(101));
    EXPECT_EQ(trace[0], "handleKeyDown(1, 0)");
    EXPECT_EQ(trace[1], "handlePenMove(0, 0)");
    EXPECT_EQ(trace[100], "handlePenMove(99, 0)");
}

TEST_F(WorkerThreadTest, AThousandMovesDuringOnePaintStopNobody) {
    addView();
    start();
    pthread_mutex_lock(&gDocumentsMutex); // as if a page were being rendered
    post(_PAINT, 0);
    while (waiting() > 0) {
        sched_yield();
    }
    // The client's sends wait for room, which only the worker can make.
    std::thread poster([this] {
        for (int i = 0; i < 1000; ++i) {
            post(_PEN_MOVE, 0, i);
        }
    });
    while (waiting() < 819) {
        sched_yield();
    }
    pthread_mutex_unlock(&gDocumentsMutex);
    EXPECT_EQ(answer(0), 0);
    poster.join();
    post(_KEY_UP, 0); // overtakes the remaining moves
    while (waiting() > 0) {
        sched_yield();
    }
    post(_PAINT, 0);
    EXPECT_EQ(answer(0), 0);
    pthread_cancel(worker);
    join();
    // Although records waited in memory at the end, those handled were in order.
    int next = 0;
    for (const std::string& call : trace) {
        if (call != "handleKeyUp(0, 0)") {
            ASSERT_EQ(call, "handlePenMove(" + std::to_string(next) + ", 0)");
            ++next;
        }
    }
}

} // namespace
