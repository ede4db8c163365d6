// SPDX-License-Identifier: Apache-2.0
// Start-up and its failures, and the orderly stop. A process each: what starts
// here changes its signals and its threads.
#include "service/Lifecycle.h"

#include <sys/ipc.h>
#include <sys/msg.h>

#include <cerrno>
#include <csignal>

#include "ServiceTest.h"
#include "channel/QueueOwner.h"
#include "service/IdleClock.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

const std::vector<std::string> kStart = {"register com.kestrel.office",
                                         "category /common",
                                         "category /events",
                                         "category /word",
                                         "category /excel",
                                         "category /ppt",
                                         "attach"};

class LifecycleTest : public testing::Test {
protected:
    void SetUp() override {
        fakeHub.reset();
        systemCalls.takeLog();
    }
    void TearDown() override {
        systemCalls.threadsUntilError = -1;
        g_msgQueue.Open(DocAdapterMessageQueue::openFlags, DocAdapterMessageQueue::projectId);
        g_msgQueue.Remove();
    }
    // Calls something from within the service's loop.
    static void inLoop(GSourceFunc function) { g_idle_add(function, nullptr); }
    static bool queueExists() { return msgget(ftok("/tmp", DocAdapterMessageQueue::projectId), 0) != -1; }
};

TEST_F(LifecycleTest, RegistersEverythingInOrderAndStopsInOrderOnSigterm) {
    inLoop([](void*) -> gboolean {
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
    EXPECT_EQ(fakeHub.requests, kStart);
    EXPECT_THAT(systemCalls.takeLog(),
                ElementsAre("<6> Starting LecternServer", "<6> Stopping LecternServer: terminated by signal",
                            "<6> Stopping LecternServer: normal"));
    EXPECT_TRUE(queueExists()) << "an orderly stop leaves the queue";
}

TEST_F(LifecycleTest, ServesCallsAndRecordsWhileItRuns) {
    inLoop([](void*) -> gboolean {
        EXPECT_EQ(fakeHub.call("/common", "closeSearch", R"({"docid": 0})"), kNoDocument);
        DocAdapterMessageQueue client;
        EXPECT_EQ(client.Open(0666, DocAdapterMessageQueue::projectId), 0);
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
        for (const int number :
             {SIGINT, SIGHUP, SIGQUIT, SIGTERM, SIGABRT, SIGILL, SIGFPE, SIGBUS, SIGSEGV}) {
            struct sigaction action = {};
            sigaction(number, nullptr, &action);
            EXPECT_NE(action.sa_handler, SIG_DFL) << number;
        }
        struct sigaction action = {};
        sigaction(SIGPIPE, nullptr, &action);
        EXPECT_EQ(action.sa_handler, SIG_IGN);
        raise(SIGTERM);
        return G_SOURCE_REMOVE;
    });
    EXPECT_EQ(runService(), 0);
}

TEST_F(LifecycleTest, AFailedBusCallEndsTheStartAtThatStep) {
    for (size_t step = 0; step < kStart.size(); ++step) {
        fakeHub.reset();
        fakeHub.failing = kStart[step];
        CaptureStderr();
        EXPECT_EQ(runService(), -1);
        EXPECT_EQ(GetCapturedStderr(), "error from Hub call: the bus said no\n");
        EXPECT_EQ(fakeHub.requests,
                  std::vector(kStart.begin(), kStart.begin() + static_cast<long>(step) + 1));
        // The worker, who makes the queue, is started before the last step only.
        EXPECT_EQ(queueExists(), kStart[step] == "attach");
        EXPECT_THAT(systemCalls.takeLog(), ElementsAre("<6> Starting LecternServer"));
    }
}

TEST_F(LifecycleTest, AThreadThatCannotBeMadeEndsTheStart) {
    // The first is that of the signals, the second the worker.
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
    EXPECT_THAT(fakeHub.requests, IsEmpty());
}

TEST_F(LifecycleTest, ASecondServiceOnTheQueueIsRefusedBeforeItTouchesIt) {
    QueueOwner other;
    ASSERT_TRUE(other.acquire(DocAdapterMessageQueue::projectId));
    CaptureStderr();
    EXPECT_EQ(runService(), -1);
    EXPECT_EQ(GetCapturedStderr(), "Another service already serves the message queue.\n");
    EXPECT_FALSE(queueExists());
}

// What ends the process: the statuses are the signals' own.
class SignalDeathTest : public LifecycleTest {
protected:
    // Runs a service that gets a signal, in a process of its own, and ends with
    // status 99 when it is still there.
    static void runWith(int number) {
        static int signal;
        signal = number;
        inLoop([](void*) -> gboolean {
            raise(signal);
            return G_SOURCE_REMOVE;
        });
        runService();
        _exit(99);
    }
};

TEST_F(SignalDeathTest, SighupAndSigquitEndWithZero) {
    EXPECT_EXIT(runWith(SIGHUP), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(runWith(SIGQUIT), testing::ExitedWithCode(0), "");
}

TEST_F(SignalDeathTest, OthersEndWithTheirNumber) {
    for (const int number : {SIGINT, SIGABRT, SIGILL, SIGFPE, SIGBUS, SIGSEGV}) {
        EXPECT_EXIT(runWith(number), testing::ExitedWithCode(number), "");
    }
}

TEST_F(SignalDeathTest, TheQueueGoesWithTheProcess) {
    for (const int number : {SIGINT, SIGSEGV}) {
        ASSERT_NE(msgget(ftok("/tmp", DocAdapterMessageQueue::projectId), IPC_CREAT | 0666), -1);
        EXPECT_EXIT(runWith(number), testing::ExitedWithCode(number), "");
        EXPECT_FALSE(queueExists());
    }
}

} // namespace
