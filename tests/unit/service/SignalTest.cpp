// SPDX-License-Identifier: Apache-2.0
#include "LifecycleTest.h"
#include "service/Signals.h"

#include <unistd.h>

namespace {

// Signals that end the process, with the signals' own wait status.
class SignalDeathTest : public LifecycleTest {
protected:
    // Runs a service that receives a signal, in a child process; it exits with
    // 99 when it survives.
    static void runWith(
        int number, void (*send)(int) = [](int signal) { raise(signal); }) {
        static int signal;
        static void (*sendIt)(int);
        signal = number;
        sendIt = send;
        systemCalls.echoLog = true;
        inLoop([](void*) -> gboolean {
            sendIt(signal);
            return G_SOURCE_REMOVE;
        });
        runService();
        _exit(99);
    }
    // The process's output, including log lines.
    static std::string lineFor(int number) {
        return "<7> LecternServer got signal: " + std::to_string(number) + "\n";
    }
};

TEST_F(SignalDeathTest, SighupAndSigquitEndWithZero) {
    EXPECT_EXIT(runWith(SIGHUP), testing::ExitedWithCode(0), lineFor(SIGHUP));
    EXPECT_EXIT(runWith(SIGQUIT), testing::ExitedWithCode(0), lineFor(SIGQUIT));
}

TEST_F(SignalDeathTest, OthersEndWithTheirNumber) {
    for (const int number : {SIGINT, SIGABRT, SIGILL, SIGFPE, SIGBUS, SIGSEGV}) {
        EXPECT_EXIT(runWith(number), testing::ExitedWithCode(number), lineFor(number));
    }
}

TEST_F(SignalDeathTest, BeforeItsOwnHandlerIsThereSigtermIsOneOfTheOthers) {
    EXPECT_EXIT(runWith(SIGTERM, handle_signal), testing::ExitedWithCode(SIGTERM), lineFor(SIGTERM));
}

TEST_F(SignalDeathTest, AFaultEndsTheProcessAlsoWhenTheLogHangs) {
    ASSERT_NE(msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), IPC_CREAT | 0666), -1);
    const auto hang = [](int number) {
        systemCalls.onLog = [] {
            for (;;) {
                pause();
            }
        };
        raise(number);
    };
    EXPECT_EXIT(runWith(SIGSEGV, hang), testing::ExitedWithCode(SIGSEGV), "");
    EXPECT_FALSE(queueExists());
}

TEST_F(SignalDeathTest, AFaultInsideOfTheLogEndsTheProcessAsTheFirstOne) {
    ASSERT_NE(msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), IPC_CREAT | 0666), -1);
    const auto faultAgain = [](int number) {
        systemCalls.onLog = [] { raise(SIGBUS); };
        raise(number);
    };
    EXPECT_EXIT(runWith(SIGABRT, faultAgain), testing::ExitedWithCode(SIGABRT), "");
    EXPECT_FALSE(queueExists());
}

TEST_F(SignalDeathTest, TheQueueGoesWithTheProcess) {
    for (const int number : {SIGINT, SIGSEGV}) {
        ASSERT_NE(msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), IPC_CREAT | 0666), -1);
        EXPECT_EXIT(runWith(number), testing::ExitedWithCode(number), "");
        EXPECT_FALSE(queueExists());
    }
}

} // namespace
