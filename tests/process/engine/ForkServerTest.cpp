// SPDX-License-Identifier: Apache-2.0
// Engines are forked from one fork server.

#include "tests/process/engine/EngineTest.h"

#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace lectern::test {
namespace {

class ForkServerTest : public EngineTest {
protected:
    static std::int32_t ask(const Document& document) {
        std::int32_t words = 0;
        return wordModule().wtg_word_count(document.get(), &words);
    }
    // The value of a line in /proc/PID/status, or "".
    static std::string statusOf(pid_t pid, const std::string& name) {
        std::ifstream status("/proc/" + std::to_string(pid) + "/status");
        for (std::string line; std::getline(status, line);) {
            if (line.rfind(name + ":\t", 0) == 0) {
                return line.substr(name.size() + 2);
            }
        }
        return "";
    }
};

TEST_F(ForkServerTest, AllEnginesAreForkedFromOneServer) {
    Document first;
    open(first, "rows=1\n");
    const EngineInfo one = engineOfDocument();
    Document second;
    open(second, "rows=1\n");
    const EngineInfo other = engineOfDocument();
    EXPECT_NE(one.pid, other.pid);
    EXPECT_EQ(one.server, other.server);
    EXPECT_EQ(forkServersOf(getpid()).size(), 1u);
    EXPECT_EQ(engines().size(), 2u);
}

TEST_F(ForkServerTest, ItsSuiteIsStartedOnce) {
    Document first;
    open(first, "rows=1\n");
    Document second;
    open(second, "rows=1\n");
    for (const EngineInfo& engine : engines()) {
        EXPECT_FALSE(std::filesystem::exists(engine.folder + "/profile"));
        EXPECT_TRUE(
            std::filesystem::exists(std::filesystem::path(engine.folder).parent_path() / "profile/started"));
    }
}

TEST_F(ForkServerTest, ItStaysWhenTheLastDocumentCloses) {
    pid_t server = 0;
    for (int i = 0; i < 3; i++) {
        Document document;
        open(document, "rows=1\n");
        EXPECT_TRUE(server == 0 || server == forkServer());
        server = forkServer();
    }
    EXPECT_EQ(engines().size(), 0u);
    EXPECT_EQ(forkServer(), server);
}

TEST_F(ForkServerTest, ItLivesOnWhenADocumentCrashesAtItsOpen) {
    Document good;
    open(good, "rows=1\n");
    const pid_t server = forkServer();
    Document document;
    EXPECT_EQ(document.open(write("crash.docx", "open=crash\n"), temporary()), MODULE_ENGINE_LOST);
    Document next;
    open(next, "rows=1\n");
    EXPECT_EQ(engineOfDocument().server, server);
}

TEST_F(ForkServerTest, ADeadOneIsReplacedWithoutTheOpenNoticing) {
    Document first;
    open(first, "rows=1\n");
    kill(forkServer(), SIGKILL);
    Document second;
    open(second, "rows=1\n");
    EXPECT_EQ(ask(second), MODULE_OK);
    EXPECT_EQ(ask(first), MODULE_OK) << "the engines that it made live on";
}

TEST_F(ForkServerTest, AStoppedOneIsReplacedToo) {
    Document first;
    open(first, "rows=1\n");
    const pid_t stopped = forkServer();
    kill(stopped, SIGSTOP);
    Document second;
    open(second, "rows=1\n");
    EXPECT_EQ(ask(second), MODULE_OK);
    EXPECT_EQ(ask(first), MODULE_OK);
    EXPECT_NE(kill(stopped, 0), 0);
}

TEST_F(ForkServerTest, OneWithAnotherTemporaryFolderIsNotUsed) {
    Document first;
    open(first, "rows=1\n");
    const pid_t before = forkServer();
    const std::string other = documents() + "/other";
    std::filesystem::create_directory(other);
    Document second;
    ASSERT_EQ(second.open(write("a.docx", "rows=1\n"), other), MODULE_OK);
    EXPECT_EQ(engineOfDocument().folder.rfind(other, 0), 0u);
    EXPECT_TRUE(waitUntil([&] { return kill(before, 0) != 0; })) << "the useless one goes";
    EXPECT_EQ(ask(first), MODULE_OK);
}

TEST_F(ForkServerTest, APreparedModuleHasOneForTheFirstOpen) {
    wordModule().prepare(wide(temporary()).data());
    wordModule().prepare(wide(temporary()).data()); // as another module of the same library
    ASSERT_TRUE(waitUntil([&] { return forkServer() != 0; }));
    const pid_t server = forkServer();
    Document document;
    open(document, "rows=1\n");
    EXPECT_EQ(engineOfDocument().server, server);
}

TEST_F(ForkServerTest, APreparationWithoutAFolderStartsNothing) {
    const std::vector<pid_t> before = forkServersOf(getpid());
    wordModule().prepare(nullptr);
    wordModule().prepare(wide("").data());
    EXPECT_EQ(forkServersOf(getpid()), before);
}

TEST_F(ForkServerTest, ManyOpensAtOnceAreServed) {
    Document first;
    open(first, "rows=1\n");
    const std::string path = write("b.docx", "rows=1\n");
    std::vector<Document> documents(4);
    std::vector<std::thread> threads;
    for (Document& document : documents) {
        threads.emplace_back([&] { EXPECT_EQ(document.open(path, temporary()), MODULE_OK); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(engines().size(), 5u);
}

TEST_F(ForkServerTest, ItIsConfinedLikeItsEngines) {
    Document document;
    open(document, "rows=1\n");
    const pid_t server = forkServer();
    EXPECT_EQ(statusOf(server, "NoNewPrivs"), "1");
    EXPECT_EQ(statusOf(server, "Seccomp"), "2");
    EXPECT_EQ(statusOf(server, "Seccomp_filters"), "1");
    EXPECT_EQ(statusOf(engineOfDocument().pid, "Seccomp_filters"), "2") << "an engine has one more";
}

TEST_F(ForkServerTest, ItHasOneThreadAtAFork) {
    Document document;
    open(document, "rows=1\n");
    EXPECT_EQ(statusOf(forkServer(), "Threads"), "1");
}

} // namespace
} // namespace lectern::test
