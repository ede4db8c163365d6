// SPDX-License-Identifier: Apache-2.0
// The start, its failures, and the normal stop. Each test is a process, because
// the service changes its signals and threads.
#include "LifecycleTest.h"

#include "channel/QueueOwner.h"
#include "service/IdleClock.h"
#include "service/Signals.h"

#include <dlfcn.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

const std::vector<std::string> START = {"register com.kestrel.office",
                                        "category /common",
                                        "category /events",
                                        "category /word",
                                        "category /excel",
                                        "category /ppt",
                                        "category /touch",
                                        "attach"};

TEST_F(LifecycleTest, RegistersEverythingInOrderAndStopsInOrderOnSigterm) {
    inLoop([](void*) -> gboolean {
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
    EXPECT_EQ(fakeHub.requests, START);
    EXPECT_THAT(systemCalls.takeLog(),
                ElementsAre("<6> Starting LecternServer", "<6> Stopping LecternServer: terminated by signal",
                            "<6> Stopping LecternServer: normal"));
    EXPECT_TRUE(queueExists()) << "an orderly stop leaves the queue";
}

TEST_F(LifecycleTest, TheQueueIsForEverybody) {
    inLoop([](void*) -> gboolean {
        msqid_ds status = {};
        msgctl(msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0), IPC_STAT, &status);
        EXPECT_EQ(status.msg_perm.mode & 0777, 0666);
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
}

TEST_F(LifecycleTest, ASigtermThatComesBeforeTheLoopRunsCountsWhenItDoes) {
    fakeHub.onRequest = [](const std::string& what) {
        if (what == "category /word") {
            raise(SIGTERM);
        }
    };
    EXPECT_EQ(runService(), 0);
    EXPECT_EQ(fakeHub.requests, START);
    EXPECT_THAT(systemCalls.takeLog(),
                ElementsAre("<6> Starting LecternServer", "<6> Stopping LecternServer: terminated by signal",
                            "<6> Stopping LecternServer: normal"));
}

TEST_F(LifecycleTest, TheStopWaitsForTheWorkerAndLeavesDocumentsAlone) {
    static std::atomic<bool> called;
    static std::atomic<bool> finished;
    called = finished = false;
    std::vector<std::string> trace;
    static std::atomic<int> lines;
    lines = 0;
    systemCalls.onLog = [] { ++lines; };
    gDocuments.emplace_back();
    gDocuments[0].view = std::make_unique<RecordingView>(trace, 5000);
    auto& view = static_cast<RecordingView&>(*gDocuments[0].view);
    view.onCall = [] {
        called = true;
        // A third line would be the last one of the service.
        for (int wait = 0; wait < 50 && lines < 3; ++wait) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        finished = true;
    };
    inLoop([](void*) -> gboolean {
        g_msgQueue.SendMessage(ClientServerMessage(_PEN_MOVE, 0));
        while (!called) {
            sched_yield();
        }
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
    EXPECT_TRUE(finished);
    EXPECT_THAT(trace, ElementsAre("handlePenMove(0, 0)"));
    view.onCall = nullptr;
    gDocuments.clear();
}

// A module that counts how often it is told to stop.
class ModuleTellingTest : public LifecycleTest {
protected:
    void SetUp() override {
        LifecycleTest::SetUp();
        module = dlopen(STOPPABLE_MODULE, RTLD_LAZY);
        ASSERT_NE(module, nullptr) << dlerror();
        stops = reinterpret_cast<int (*)()>(dlsym(module, "stop_count"));
        before = stops();
    }
    void TearDown() override {
        dlclose(module);
        LifecycleTest::TearDown();
    }

    static inline int (*stops)();
    static inline int before;
    void* module = nullptr;
};

TEST_F(ModuleTellingTest, ASigtermReachesModulesWhileTheMainThreadIsBusy) {
    inLoop([](void*) -> gboolean {
        raise(SIGTERM);
        while (stops() == before) { // like a call into the module that the stop must shorten
            sched_yield();
        }
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
}

TEST_F(ModuleTellingTest, AnIdleStopTellsThemToo) {
    inLoop([](void*) -> gboolean {
        g_main_loop_quit(g_mainloop);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
    EXPECT_EQ(stops(), before + 1);
}

TEST_F(LifecycleTest, WithoutACallItStopsAtTheCheckOfTheThirtySecondSecond) {
    systemCalls.now = 1000;
    systemCalls.timersAtOnce = true;
    EXPECT_EQ(runService(), 0);
    EXPECT_EQ(systemCalls.now, 1032);
}

TEST_F(LifecycleTest, APingPutsTheStopOff) {
    systemCalls.now = 1000;
    systemCalls.timersAtOnce = true;
    inLoop([](void*) -> gboolean {
        if (systemCalls.now < 1020) {
            return G_SOURCE_CONTINUE;
        }
        EXPECT_EQ(systemCalls.now, 1020);
        EXPECT_EQ(fakeHub.call("/events", "ping", "{}"), std::nullopt);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
    EXPECT_EQ(systemCalls.now, 1052);
}

TEST_F(LifecycleTest, ServesCallsAndRecordsWhileItRuns) {
    inLoop([](void*) -> gboolean {
        EXPECT_EQ(fakeHub.call("/common", "closeSearch", R"({"docid": 0})"), NO_DOCUMENT);
        DocAdapterMessageQueue client;
        EXPECT_EQ(client.Open(0666, DocAdapterMessageQueue::PROJECT_ID), 0);
        EXPECT_EQ(client.SendMessage(ClientServerMessage(_PAINT, 3)), 0);
        ServerClientMessage answer;
        EXPECT_EQ(client.ReadMessage(104, answer, DocAdapterMessageQueue::TIMEOUT_INFINITE), 12);
        EXPECT_EQ(answer.value, -4);
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
}

TEST_F(LifecycleTest, TheIdleClockStartsWithTheService) {
    gLastActive = 0;
    systemCalls.now = 5000;
    inLoop([](void*) -> gboolean {
        EXPECT_EQ(gLastActive, 5000);
        systemCalls.now = 5031;
        prvCheckTimeout(nullptr);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
    systemCalls.now = 0;
    EXPECT_THAT(systemCalls.takeLog(),
                ElementsAre("<6> Starting LecternServer", "<6> Stopping LecternServer: timeout",
                            "<6> Stopping LecternServer: normal"));
}

TEST_F(LifecycleTest, InstallsItsSignalHandlers) {
    inLoop([](void*) -> gboolean {
        for (const int number : {SIGINT, SIGHUP, SIGQUIT, SIGABRT, SIGILL, SIGFPE, SIGBUS, SIGSEGV}) {
            EXPECT_EQ(handlerOf(number).sa_handler, handle_signal) << number;
        }
        const struct sigaction term = handlerOf(SIGTERM);
        EXPECT_EQ(term.sa_handler, term_handler);
        EXPECT_EQ(term.sa_flags & ~0x04000000, 0) << "all but the flag that is the C library's own";
        for (int number = 1; number < NSIG; ++number) {
            EXPECT_EQ(sigismember(&term.sa_mask, number), 0) << number;
        }
        EXPECT_EQ(handlerOf(SIGPIPE).sa_handler, SIG_IGN);
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
}

TEST_F(LifecycleTest, AFailedBusCallEndsTheStartAtThatStep) {
    for (size_t step = 0; step < START.size(); ++step) {
        fakeHub.reset();
        fakeHub.failing = START[step];
        gLastActive = 77;
        CaptureStderr();
        EXPECT_EQ(runService(), -1);
        EXPECT_EQ(gLastActive, 77) << "the clock is set later";
        EXPECT_EQ(GetCapturedStderr(), "error from Hub call: the bus said no\n");
        EXPECT_EQ(fakeHub.requests, std::vector(START.begin(), START.begin() + static_cast<long>(step) + 1));
        // The worker, which creates the queue, starts only before the last step.
        EXPECT_EQ(queueExists(), START[step] == "attach");
        EXPECT_THAT(systemCalls.takeLog(), ElementsAre("<6> Starting LecternServer"));
    }
}

TEST_F(LifecycleTest, AThreadThatCannotBeMadeEndsTheStart) {
    // The first thread is the one for signals, the second the worker.
    for (const int thread : {0, 1}) {
        fakeHub.reset();
        systemCalls.threadsUntilError = thread;
        systemCalls.threadError = EAGAIN;
        CaptureStderr();
        EXPECT_EQ(runService(), -1);
        EXPECT_EQ(GetCapturedStderr(), "error from pthread: 11\n");
        EXPECT_THAT(fakeHub.requests, testing::Not(testing::Contains("attach")));
    }
}

TEST_F(LifecycleTest, ARegistryMutexThatCannotBeMadeGivesItsErrorAndNoLine) {
    systemCalls.mutexInitError = ENOMEM;
    CaptureStderr();
    EXPECT_EQ(runService(), ENOMEM);
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_THAT(systemCalls.takeLog(), ElementsAre("<6> Starting LecternServer"));
    EXPECT_THAT(fakeHub.requests, IsEmpty());
    EXPECT_EQ(handlerOf(SIGTERM).sa_handler, handle_signal) << "comes first, its replacement later";
}

TEST_F(LifecycleTest, WithoutAQueueBusMethodsStillWork) {
    systemCalls.noQueue = true;
    inLoop([](void*) -> gboolean {
        EXPECT_EQ(fakeHub.call("/common", "closeSearch", R"({"docid": 0})"), NO_DOCUMENT);
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    CaptureStderr();
    EXPECT_EQ(runService(), 0);
    EXPECT_EQ(GetCapturedStderr(), "msgget: No space left on device\n");
    systemCalls.noQueue = false;
}

TEST_F(LifecycleTest, ASecondServiceOnTheQueueIsRefusedBeforeItTouchesIt) {
    QueueOwner other;
    ASSERT_TRUE(other.acquire(DocAdapterMessageQueue::PROJECT_ID));
    CaptureStderr();
    EXPECT_EQ(runService(), -1);
    EXPECT_THAT(GetCapturedStderr(),
                testing::StartsWith("Another service already serves the message queue: process " +
                                    std::to_string(getpid()) + " of user "));
    EXPECT_FALSE(queueExists());
}

} // namespace
