// SPDX-License-Identifier: Apache-2.0
// Start and end of the service.
#include "tests/system/support/ServiceFixture.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/wait.h>

#include <chrono>
#include <fstream>
#include <thread>

namespace {

using namespace std::chrono_literals;

class ServiceProcessTest : public ServiceTest {
protected:
    int statusAfter(int number) {
        service->signal(number);
        return service->wait(20s).value_or(-1);
    }
    int status = -1;
    int runs = 0;
    static bool queueExists() { return msgget(ftok("/tmp", 79), 0) >= 0; }
};

TEST_F(ServiceProcessTest, LogsItsStart) {
    EXPECT_EQ(syslogText(), "<6> Starting LecternServer\n");
}

TEST_F(ServiceProcessTest, SigtermStopsInOrderAndKeepsTheQueue) {
    EXPECT_EQ(statusAfter(SIGTERM), W_EXITCODE(0, 0));
    EXPECT_EQ(syslogText(), "<6> Starting LecternServer\n"
                            "<6> Stopping LecternServer: terminated by signal\n"
                            "<6> Stopping LecternServer: normal\n");
    EXPECT_TRUE(queueExists());
}

TEST_F(ServiceProcessTest, SigintRemovesTheQueueAndEndsWithItsNumber) {
    EXPECT_EQ(statusAfter(SIGINT), W_EXITCODE(2, 0));
    EXPECT_EQ(syslogText(), "<6> Starting LecternServer\n<7> LecternServer got signal: 2\n");
    EXPECT_FALSE(queueExists());
}

TEST_F(ServiceProcessTest, SighupRemovesTheQueueAndEndsWithZero) {
    EXPECT_EQ(statusAfter(SIGHUP), W_EXITCODE(0, 0));
    EXPECT_EQ(syslogText(), "<6> Starting LecternServer\n<7> LecternServer got signal: 1\n");
    EXPECT_FALSE(queueExists());
}

TEST_F(ServiceProcessTest, SigquitRemovesTheQueueAndEndsWithZero) {
    EXPECT_EQ(statusAfter(SIGQUIT), W_EXITCODE(0, 0));
    EXPECT_FALSE(queueExists());
}

TEST_F(ServiceProcessTest, AFaultRemovesTheQueueAndEndsWithItsNumber) {
    EXPECT_EQ(statusAfter(SIGABRT), W_EXITCODE(6, 0));
    EXPECT_EQ(syslogText(), "<6> Starting LecternServer\n<7> LecternServer got signal: 6\n");
    EXPECT_FALSE(queueExists());
}

TEST_F(ServiceProcessTest, SigtermWithDocumentsOpenLeavesNothingBehind) {
    TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    ASSERT_EQ(document.openResult(), 0);
    ASSERT_EQ(document.paint(), 0);
    EXPECT_EQ(statusAfter(SIGTERM), W_EXITCODE(0, 0));
}

TEST_F(ServiceProcessTest, StopsByItselfThirtyOneToThirtyFourSecondsAfterTheLastCall) {
    const auto start = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(3s); // so that the time since the call counts, not since the start
    client->call("/events", "ping", "{}");
    ASSERT_EQ(service->wait(60s), std::optional<int>(W_EXITCODE(0, 0)));
    const auto ran = std::chrono::steady_clock::now() - start;
    EXPECT_GE(ran, 33s);
    EXPECT_LE(ran, 39s);
    EXPECT_EQ(syslogText(), "<6> Starting LecternServer\n"
                            "<6> Stopping LecternServer: timeout\n"
                            "<6> Stopping LecternServer: normal\n");
}

TEST_F(ServiceProcessTest, AModuleThatCannotBeLoadedEndsTheServiceAtItsFirstDocument) {
    ASSERT_EQ(stopService(), W_EXITCODE(0, 0));
    const std::string module = folder.path() + "/WordToGoModule.so";
    std::ofstream(module) << "no shared object, but longer than the header of one, so that it is looked at\n";
    startService({{"LD_LIBRARY_PATH", folder.path()}});
    const TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    EXPECT_EQ(document.docid(), -1) << "no reply is to be had of a service that has gone";
    EXPECT_EQ(service->wait(20s), std::optional<int>(W_EXITCODE(1, 0)));
    EXPECT_EQ(service->errors(), module + ": invalid ELF header\n");
}

TEST_F(ServiceProcessTest, ASecondServiceOnTheSameQueueIsRefused) {
    TemporaryFolder otherFolder;
    const PrivateBus otherBus(otherFolder.path());
    auto environment = serviceEnvironment();
    environment["DBUS_SESSION_BUS_ADDRESS"] = otherBus.address();
    Subprocess second({SERVICE_PROGRAM}, environment, otherFolder.path() + "/service");
    ASSERT_EQ(second.wait(20s), std::optional<int>(W_EXITCODE(255, 0)));
    EXPECT_NE(second.errors(), "");
    TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    EXPECT_EQ(document.paint(), 0) << "the first service must go on";
}

TEST_F(ServiceProcessTest, ATakenNameIsReported) {
    Subprocess second({SERVICE_PROGRAM}, serviceEnvironment(), folder.path() + "/second");
    ASSERT_EQ(second.wait(20s), std::optional<int>(W_EXITCODE(255, 0)));
    EXPECT_NE(second.errors().find("error from Hub call: "), std::string::npos);
}

TEST_F(ServiceProcessTest, ArgumentsAreAnsweredAndNothingIsStarted) {
    const auto run = [this](const std::vector<std::string>& arguments) {
        std::vector<std::string> command{SERVICE_PROGRAM};
        command.insert(command.end(), arguments.begin(), arguments.end());
        // Every run needs its own output file, because output is appended.
        auto program = std::make_unique<Subprocess>(command, serviceEnvironment(),
                                                    folder.path() + "/run" + std::to_string(runs++));
        status = program->wait(20s).value_or(-1);
        return program;
    };
    EXPECT_EQ(run({"--version"})->output().rfind("lectern-service ", 0), 0U);
    EXPECT_EQ(status, W_EXITCODE(0, 0));
    EXPECT_EQ(run({"--help"})->output().rfind("Usage: lectern-service", 0), 0U);
    EXPECT_EQ(status, W_EXITCODE(0, 0));
    for (const std::vector<std::string>& wrong :
         {std::vector<std::string>{"--verbose"}, {"--help", "--version"}}) {
        const auto program = run(wrong);
        EXPECT_EQ(status, W_EXITCODE(2, 0));
        EXPECT_EQ(program->output(), "");
        EXPECT_NE(program->errors().find("Usage: lectern-service"), std::string::npos);
    }
}

TEST_F(ServiceProcessTest, PingGetsNoReply) {
    const BusReply reply = client->call("/events", "ping", "{}");
    EXPECT_FALSE(reply.replied);
    EXPECT_EQ(reply.error, "org.freedesktop.DBus.Error.NoReply");
}

} // namespace
