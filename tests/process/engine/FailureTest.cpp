// SPDX-License-Identifier: Apache-2.0
// Engines that crash, hang or stop affect only their own document, and are
// detected soon.

#include "tests/process/engine/EngineTest.h"

#include <signal.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace lectern::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

class FailureTest : public EngineTest {
protected:
    FailureTest() : word(wordModule()) {}

    // Makes calls that need the engine.
    std::int32_t ask(const Document& document) const {
        std::int32_t words = 0;
        return word.wtg_word_count(document.get(), &words);
    }
    std::int32_t scroll(const Document& document) const {
        std::int32_t scrolled = 0;
        return word.wtg_scroll_down(document.get(), 0, 1, &scrolled);
    }
    static bool hangs(const EngineInfo& engine) {
        return std::filesystem::exists(engine.folder + "/hanging");
    }

    const WordModule& word;
};

TEST_F(FailureTest, ACallThatHangsEndsAtItsLimit) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "400");
    Document document;
    open(document, "scroll=hang\n");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(scroll(document), MODULE_TIMED_OUT);
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_GE(taken, milliseconds(400));
    EXPECT_LT(taken, seconds(8));
    EXPECT_EQ(document.close(), MODULE_OK);
}

TEST_F(FailureTest, AnOperationWithoutMemoryIsReportedAsTooLargeAndTheDocumentGoesOn) {
    Document document;
    open(document, "scroll=starve\n");
    EXPECT_EQ(scroll(document), MODULE_TOO_LARGE);
    EXPECT_EQ(ask(document), MODULE_OK);
}

TEST_F(FailureTest, ASlowCallInTimeIsNoFailure) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "5000");
    Document document;
    open(document, "count=slow:300\n");
    std::uint32_t scratch = 0;
    std::uint32_t count = 0;
    EXPECT_EQ(word.wtg_get_character_count(document.get(), 0, &scratch, &count), MODULE_OK);
    EXPECT_EQ(ask(document), MODULE_OK);
}

TEST_F(FailureTest, LimitsAreOfEachCallNotOfTheDocument) {
    // Together the calls take longer than the limit; each has more than a
    // second to spare, for a busy machine.
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "2000");
    Document document;
    open(document, "count=slow:600\n");
    std::uint32_t scratch = 0;
    std::uint32_t count = 0;
    for (int i = 0; i < 4; i++) {
        EXPECT_EQ(word.wtg_get_character_count(document.get(), 0, &scratch, &count), MODULE_OK);
    }
}

TEST_F(FailureTest, AnEngineKilledDuringACallIsLostAtOnce) {
    Document document;
    open(document, "scroll=hang\n");
    std::thread killer([&] {
        // The call is repeated in another engine, which is killed, too.
        for (int i = 0; i < 2; i++) {
            EngineInfo engine;
            EXPECT_TRUE(waitUntil([&] {
                engine = engineOfDocument();
                return engine.pid > 0 && hangs(engine);
            }));
            kill(engine.pid, SIGKILL);
            EXPECT_TRUE(waitUntil([&] { return kill(engine.pid, 0) != 0; }));
        }
    });
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(scroll(document), MODULE_ENGINE_LOST);
    killer.join();
    EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(8)) << "well before the call's limit";
}

TEST_F(FailureTest, AnEngineEndsAtOnceAtEverySignalOfACrash) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "20000");
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGSYS}) {
        Document document;
        open(document, "scroll=hang\n");
        const pid_t pid = engineOfDocument().pid;
        const auto start = std::chrono::steady_clock::now();
        kill(pid, signal);
        EXPECT_TRUE(waitUntil([&] { return kill(pid, 0) != 0; }));
        EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(1)) << "signal " << signal;
    }
}

TEST_F(FailureTest, WhatIsNoAnswerHasACodeOfItsOwn) {
    Document document;
    open(document, "scroll=garbage\n");
    EXPECT_EQ(scroll(document), MODULE_FAILED);
    EXPECT_EQ(ask(document), MODULE_OK) << "in another engine";
    EXPECT_EQ(scroll(document), MODULE_FAILED);
    EXPECT_EQ(ask(document), MODULE_ENGINE_LOST);
    EXPECT_EQ(lossOf("WordToGoModule.so", document.get()), MODULE_FAILED);
}

TEST_F(FailureTest, AnEngineThatDiesInTheMiddleOfItsAnswerIsLost) {
    Document document;
    open(document, "scroll=cut\n");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(scroll(document), MODULE_ENGINE_LOST);
    EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(8)) << "well before the call's limit";
    EXPECT_EQ(lossOf("WordToGoModule.so", document.get()), MODULE_ENGINE_LOST);
}

TEST_F(FailureTest, ALostDocumentDoesNotTakeAnotherBufferEither) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "rows=10\nscroll=crash\n");
    show(document, pixels, 4, 4);
    ASSERT_EQ(scroll(document), MODULE_ENGINE_LOST);
    std::uint32_t other[16] = {7};
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, other, 4, 4), MODULE_ENGINE_LOST);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, other, 2, 2), MODULE_ENGINE_LOST);
    EXPECT_EQ(other[0], 7u);
}

TEST_F(FailureTest, WithoutFileDescriptorsLeftCallsFailAndTheDocumentGoesOn) {
    Document document;
    open(document, "rows=10\n");
    ASSERT_EQ(ask(document), MODULE_OK);
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit few{256, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
    std::vector<int> taken;
    for (int one = eventfd(0, EFD_CLOEXEC); one >= 0; one = eventfd(0, EFD_CLOEXEC)) {
        taken.push_back(one);
    }
    EXPECT_EQ(ask(document), MODULE_FAILED);
    for (const int one : taken) {
        close(one);
    }
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(ask(document), MODULE_OK);
}

TEST_F(FailureTest, AStoppedEngineIsKilledAtTheLimit) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "300");
    Document document;
    open(document, "rows=10\n");
    const pid_t pid = engineOfDocument().pid;
    kill(pid, SIGSTOP);
    EXPECT_EQ(ask(document), MODULE_TIMED_OUT);
    EXPECT_TRUE(waitUntil([&] { return kill(pid, 0) != 0; })) << "killed and reaped";
}

TEST_F(FailureTest, AStoppedEngineDoesNotHoldUpItsClose) {
    Document document;
    open(document, "rows=10\n");
    const pid_t pid = engineOfDocument().pid;
    kill(pid, SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(document.close(), MODULE_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(8));
    EXPECT_NE(kill(pid, 0), 0);
}

TEST_F(FailureTest, AnEngineThatStopsBeforeItIsConnectedIsGivenUp) {
    setVariable("LECTERN_ENGINE_OPEN_LIMIT_MS", "300");
    setVariable("LECTERN_ENGINE", write("sleeper", "#!/bin/sh\nexec sleep 1000\n"));
    std::filesystem::permissions(documents() + "/sleeper", std::filesystem::perms::owner_all);
    Document document;
    EXPECT_EQ(document.open(write("a.docx", "rows=10\n"), temporary()), MODULE_TIMED_OUT);
}

TEST_F(FailureTest, OneOfThreeDocumentsDiesAndTheOthersGoOn) {
    Document first;
    Document second;
    Document third;
    open(first, "name=first\n");
    open(second, "scroll=crash\n");
    open(third, "name=third\n");
    EXPECT_EQ(scroll(second), MODULE_ENGINE_LOST);
    EXPECT_EQ(ask(first), MODULE_OK);
    EXPECT_EQ(ask(second), MODULE_ENGINE_LOST);
    EXPECT_EQ(ask(third), MODULE_OK);
    EXPECT_EQ(second.close(), MODULE_OK);
    EXPECT_EQ(ask(first), MODULE_OK);
    EXPECT_EQ(ask(third), MODULE_OK);
}

TEST_F(FailureTest, DocumentsAnswerWhileAnotherHangs) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "3000");
    Document hanging;
    open(hanging, "scroll=hang\n");
    const EngineInfo engine = engineOfDocument();
    Document other;
    open(other, "rows=10\n");
    std::thread caller([&] { EXPECT_EQ(scroll(hanging), MODULE_TIMED_OUT); });
    EXPECT_TRUE(waitUntil([&] { return hangs(engine); }));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(ask(other), MODULE_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - start, seconds(2));
    caller.join();
    EXPECT_EQ(ask(other), MODULE_OK);
}

TEST_F(FailureTest, CallsOfManyThreadsOnOneDocumentWaitForEachOther) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "rows=5000\n");
    show(document, pixels, 8, 100);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++) {
        threads.emplace_back([&] {
            for (int j = 0; j < 25; j++) {
                EXPECT_EQ(scroll(document), MODULE_OK);
                EXPECT_EQ(ask(document), MODULE_OK);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(pixels[0], 0xFF000000 + 100);
}

TEST_F(FailureTest, ManyThreadsOpenAndCloseAtOnce) {
    const std::string path = write("a.docx", "rows=10\n");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++) {
        threads.emplace_back([&] {
            for (int j = 0; j < 3; j++) {
                Document document;
                EXPECT_EQ(document.open(path, temporary()), MODULE_OK);
                EXPECT_EQ(ask(document), MODULE_OK);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

// The engine takes more than it may, and is not called again.
class TotalsTest : public EngineTest, public testing::WithParamInterface<const char*> {};

TEST_P(TotalsTest, AnEngineThatTakesTooMuchIsEnded) {
    setVariable("LECTERN_ENGINE_IDLE_LIMIT_MS", "500");
    Document document;
    open(document, std::string("count=") + GetParam() + "\n");
    ASSERT_TRUE(waitForEngines(1));
    std::uint32_t scratch = 0;
    std::uint32_t count = 0;
    (void)wordModule().wtg_get_character_count(document.get(), 0, &scratch, &count);
    EXPECT_TRUE(waitForEngines(0));
}

INSTANTIATE_TEST_SUITE_P(Of, TotalsTest, testing::Values("litter", "nest", "removed", "threads", "spin"),
                         [](const auto& what) { return std::string(what.param); });

} // namespace
} // namespace lectern::test
