// SPDX-License-Identifier: Apache-2.0
// One engine is kept ready.

#include "tests/process/engine/EngineTest.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

namespace lectern::test {
namespace {

class SpareTest : public EngineTest {
protected:
    // REQUIRES: waitForSpare().
    EngineInfo spare() const {
        const std::vector<EngineInfo> all = engines();
        const auto found = std::find_if(all.begin(), all.end(), isSpare);
        return found == all.end() ? EngineInfo{} : *found;
    }
    static std::int32_t ask(const Document& document) {
        std::int32_t words = 0;
        return wordModule().wtg_word_count(document.get(), &words);
    }
};

TEST_F(SpareTest, ASpareIsMadeAfterAnOpenAndServesTheNext) {
    Document first;
    open(first, "rows=1\n");
    ASSERT_TRUE(waitForSpare());
    const EngineInfo ready = spare();
    Document second;
    open(second, "rows=1\n");
    EXPECT_EQ(engineOfDocument().pid, ready.pid);
    EXPECT_TRUE(waitForSpare()) << "there is a next one";
    EXPECT_NE(spare().pid, ready.pid);
    EXPECT_EQ(engines().size(), 3u);
}

TEST_F(SpareTest, ClosingKeepsOneSpareAndNoMore) {
    for (int i = 0; i < 3; i++) {
        Document document;
        open(document, "rows=1\n");
        ASSERT_TRUE(waitForSpare());
    }
    EXPECT_EQ(engines().size(), 1u);
}

TEST_F(SpareTest, APreparedModuleHasAnEngineForTheFirstOpen) {
    wordModule().prepare(wide(temporary()).data());
    wordModule().prepare(wide(temporary()).data()); // as another module of the same library
    ASSERT_TRUE(waitForSpare());
    const EngineInfo ready = spare();
    Document document;
    open(document, "rows=1\n");
    EXPECT_EQ(engineOfDocument().pid, ready.pid);
}

TEST_F(SpareTest, APreparationWithoutAFolderStartsNothing) {
    wordModule().prepare(nullptr);
    wordModule().prepare(wide("").data());
    EXPECT_TRUE(engines().empty());
}

TEST_F(SpareTest, AFailedOpenIsFollowedByASpareToo) {
    Document document;
    EXPECT_EQ(document.open(write("crash.docx", "open=crash\n"), temporary()), MODULE_ENGINE_LOST);
    EXPECT_TRUE(waitForSpare());
}

TEST_F(SpareTest, AnOpenThatComesWhileTheSpareIsStartedWaitsForThat) {
    Document first;
    open(first, "rows=1\n");
    Document second; // at once
    open(second, "rows=1\n");
    EXPECT_EQ(ask(first), MODULE_OK);
    EXPECT_EQ(ask(second), MODULE_OK);
    EXPECT_TRUE(waitForSpare());
    EXPECT_EQ(engines().size(), 3u) << "none was started in vain";
}

TEST_F(SpareTest, ADeadSpareIsReplacedWithoutTheOpenNoticing) {
    Document first;
    open(first, "rows=1\n");
    ASSERT_TRUE(waitForSpare());
    kill(spare().pid, SIGKILL);
    Document second;
    open(second, "rows=1\n");
    EXPECT_EQ(ask(second), MODULE_OK);
    EXPECT_TRUE(waitForSpare());
}

TEST_F(SpareTest, AStoppedSpareIsReplacedToo) {
    Document first;
    open(first, "rows=1\n");
    ASSERT_TRUE(waitForSpare());
    kill(spare().pid, SIGSTOP);
    Document second;
    open(second, "rows=1\n");
    EXPECT_EQ(ask(second), MODULE_OK);
}

TEST_F(SpareTest, ASpareWithAnotherTemporaryFolderIsNotUsed) {
    Document first;
    open(first, "rows=1\n");
    ASSERT_TRUE(waitForSpare());
    const EngineInfo before = spare();
    const std::string other = documents() + "/other";
    std::filesystem::create_directory(other);
    Document second;
    ASSERT_EQ(second.open(write("a.docx", "rows=1\n"), other), MODULE_OK);
    EXPECT_EQ(engineOfDocument().folder.rfind(other, 0), 0u);
    EXPECT_TRUE(waitUntil([&] { return kill(before.pid, 0) != 0; })) << "the useless spare goes";
    EXPECT_TRUE(waitForSpare());
    EXPECT_EQ(spare().folder.rfind(other, 0), 0u);
}

} // namespace
} // namespace lectern::test
