// SPDX-License-Identifier: Apache-2.0
// A document that has lost its engine comes back in another one, or stays lost.

#include "tests/process/engine/EngineTest.h"

#include <signal.h>

#include <filesystem>
#include <fstream>
#include <thread>

namespace lectern::test {
namespace {

class RecoveryTest : public EngineTest {
protected:
    std::int32_t ask() {
        std::int32_t words = 0;
        return word.wtg_word_count(document.get(), &words);
    }
    std::int32_t scroll() {
        std::int32_t scrolled = 0;
        return word.wtg_scroll_down(document.get(), 0, 1, &scrolled);
    }
    std::int32_t count() {
        std::uint32_t scratch = 0;
        std::uint32_t characters = 0;
        return word.wtg_get_character_count(document.get(), 0, &scratch, &characters);
    }
    std::int32_t loss() { return lossOf("WordToGoModule.so", document.get()); }
    // Opens a file of its own.
    void openFile(const std::string& contents, const std::string& password = "") {
        path = write("lost.docx", contents);
        ASSERT_EQ(document.open(path, temporary(), password), MODULE_OK);
    }
    void killEngine() {
        const EngineInfo engine = engineOfDocument();
        ASSERT_GT(engine.pid, 0);
        killProcess(engine.pid);
    }
    static void killProcess(pid_t process) {
        kill(process, SIGKILL);
        EXPECT_TRUE(waitUntil([&] { return kill(process, 0) != 0; }));
    }

    const WordModule& word = wordModule();
    std::string path;
    Document document;
};

TEST_F(RecoveryTest, AnEngineKilledBetweenCallsIsReplacedAtTheNextOne) {
    openFile("rows=10\n");
    const pid_t first = engineOfDocument().pid;
    killEngine();
    EXPECT_EQ(ask(), MODULE_OK);
    EXPECT_NE(engineOfDocument().pid, first);
    EXPECT_EQ(loss(), MODULE_OK);
    EXPECT_EQ(document.close(), MODULE_OK);
    EXPECT_TRUE(waitForEngines(0));
}

TEST_F(RecoveryTest, AnEngineThatIsKilledAgainAndAgainBetweenCallsIsReplacedEachTime) {
    openFile("rows=10\n");
    for (int i = 0; i < 5; i++) {
        killEngine();
        EXPECT_EQ(ask(), MODULE_OK);
    }
}

TEST_F(RecoveryTest, ACallThatLosesItsEngineOnceIsRepeated) {
    openFile("count=slow:300\n");
    const EngineInfo engine = engineOfDocument();
    std::thread killer([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100)); // into the call
        kill(engine.pid, SIGKILL);
    });
    EXPECT_EQ(count(), MODULE_OK);
    killer.join();
    EXPECT_NE(engineOfDocument().pid, engine.pid);
}

TEST_F(RecoveryTest, ACallThatLosesItsEngineTwiceEndsTheDocument) {
    openFile("scroll=crash\n");
    EXPECT_EQ(scroll(), MODULE_ENGINE_LOST);
    EXPECT_EQ(loss(), MODULE_ENGINE_LOST);
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
    EXPECT_EQ(document.close(), MODULE_OK);
}

TEST_F(RecoveryTest, ACallThatTookTooLongIsNotRepeatedButTheNextOneFindsTheDocument) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "400");
    openFile("scroll=hang\n");
    EXPECT_EQ(scroll(), MODULE_TIMED_OUT);
    EXPECT_EQ(loss(), MODULE_OK);
    EXPECT_EQ(ask(), MODULE_OK);
    EXPECT_EQ(scroll(), MODULE_TIMED_OUT);
    EXPECT_EQ(loss(), MODULE_TIMED_OUT);
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
}

TEST_F(RecoveryTest, ADocumentWhoseFileIsGoneStaysLost) {
    openFile("rows=10\n");
    killEngine();
    std::filesystem::remove(path);
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
    EXPECT_EQ(loss(), MODULE_NOT_FOUND);
    write("lost.docx", "rows=10\n");
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
    EXPECT_EQ(loss(), MODULE_NOT_FOUND);
}

TEST_F(RecoveryTest, ADocumentWhoseFileHasChangedStaysLost) {
    openFile("rows=10\n");
    killEngine();
    write("lost.docx", "rows=11\n");
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
    EXPECT_EQ(loss(), MODULE_CHANGED);
}

TEST_F(RecoveryTest, AProtectedDocumentComesBack) {
    openFile("password=sesame\n", "sesame");
    killEngine();
    EXPECT_EQ(ask(), MODULE_OK);
}

TEST_F(RecoveryTest, ADocumentComesBackWithoutItsForkServer) {
    openFile("rows=10\n");
    killEngine();
    killProcess(forkServer());
    EXPECT_EQ(ask(), MODULE_OK);
}

TEST_F(RecoveryTest, ReleasingMemoryStartsNoEngine) {
    openFile("rows=10\n");
    killEngine();
    EXPECT_EQ(word.wtg_release_memory(document.get()), MODULE_ENGINE_LOST);
    EXPECT_TRUE(engines().empty());
    EXPECT_EQ(ask(), MODULE_OK);
}

TEST_F(RecoveryTest, ADocumentWhoseCallsTakeTooLongTogetherStaysLost) {
    setVariable("LECTERN_ENGINE_BUSY_LIMIT_MS", "1000");
    openFile("count=slow:600\n");
    EXPECT_EQ(count(), MODULE_OK);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(count(), MODULE_TIMED_OUT);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(580))
        << "only what is left is waited for";
    EXPECT_EQ(loss(), MODULE_TIMED_OUT);
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
    EXPECT_TRUE(waitForEngines(0));
}

TEST_F(RecoveryTest, ADocumentThatCannotBeOpenedAgainStaysLost) {
    openFile("open=slow:600\n");
    killEngine();
    std::thread killer([&] {
        for (int i = 0; i < 2; i++) {
            EXPECT_TRUE(waitUntil([&] { return engineOfDocument().pid > 0; }));
            killEngine();
        }
    });
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
    EXPECT_EQ(loss(), MODULE_OK) << "one attempt may fail by chance";
    EXPECT_EQ(ask(), MODULE_ENGINE_LOST);
    EXPECT_EQ(loss(), MODULE_ENGINE_LOST);
    killer.join();
}

} // namespace
} // namespace lectern::test
