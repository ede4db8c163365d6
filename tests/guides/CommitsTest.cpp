// SPDX-License-Identifier: Apache-2.0
// scripts/check-commits accepts and refuses messages as CONTRIBUTING tells.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

// Git as in a fresh account: no settings of whoever runs the tests.
constexpr char ENVIRONMENT[] =
    "env -u GIT_DIR -u GIT_WORK_TREE -u GIT_INDEX_FILE GIT_CONFIG_GLOBAL=/dev/null "
    "GIT_CONFIG_NOSYSTEM=1 GIT_AUTHOR_NAME=a GIT_AUTHOR_EMAIL=a@b "
    "GIT_COMMITTER_NAME=a GIT_COMMITTER_EMAIL=a@b ";
constexpr char WHY[] = "Because it was not there.";

struct Outcome {
    int status = -1;
    std::string output; // standard error too
};

// A new repository whose second commit adds the script; the first breaks its rules.
class CommitsTest : public testing::Test {
protected:
    CommitsTest() {
        std::string name = (fs::temp_directory_path() / "lectern-commits-XXXXXX").string();
        mFolder = mkdtemp(name.data());
        git("init --quiet --initial-branch=main .");
        commit("From before the rules");
        fs::create_directory(mFolder / "scripts");
        fs::copy_file(fs::path(LECTERN_SOURCE_DIR) / "scripts/check-commits", mFolder / SCRIPT);
        git("add scripts");
        commit("scripts: check messages", WHY);
    }
    ~CommitsTest() override { fs::remove_all(mFolder); }

    // Runs a command line of the shell in the repository.
    Outcome run(const std::string& command) const {
        const std::string line = "cd '" + mFolder.string() + "' && " + ENVIRONMENT + command + " 2>&1";
        Outcome outcome;
        std::FILE* const pipe = popen(line.c_str(), "re");
        if (pipe == nullptr) {
            return outcome;
        }
        std::array<char, 4096> part;
        for (size_t count = 0; (count = std::fread(part.data(), 1, part.size(), pipe)) > 0;) {
            outcome.output.append(part.data(), count);
        }
        const int status = pclose(pipe);
        outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return outcome;
    }
    void git(const std::string& arguments) const {
        const Outcome outcome = run("git " + arguments);
        ASSERT_EQ(outcome.status, 0) << arguments << ": " << outcome.output;
    }
    // Texts without quotes; an empty body is none.
    void commit(const std::string& subject, const std::string& body = "") const {
        git("commit --quiet --allow-empty -m '" + subject + "'" + (body.empty() ? "" : " -m '" + body + "'"));
    }
    // A branch with a good commit, and its merge with this message.
    void merge(const std::string& subject, const std::string& body = "") const {
        git("checkout --quiet -b side");
        commit("word: keep the line", WHY);
        git("checkout --quiet main");
        git("merge --quiet --no-ff side -m '" + subject + "'" + (body.empty() ? "" : " -m '" + body + "'"));
    }
    Outcome check(const std::string& base = "") const {
        return run("python3 " + std::string(SCRIPT) + " " + base);
    }
    void expectFault(const std::string& text) const {
        const Outcome outcome = check();
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.output.find(text), std::string::npos) << outcome.output;
        EXPECT_NE(outcome.output.find(", 1 faults"), std::string::npos) << outcome.output;
    }
    void expectGood(int commits, const std::string& base = "") const {
        const Outcome outcome = check(base);
        EXPECT_EQ(outcome.status, 0) << outcome.output;
        EXPECT_EQ(outcome.output, std::to_string(commits) + " commits checked, 0 faults\n");
    }

    static constexpr char SCRIPT[] = "scripts/check-commits";
    fs::path mFolder;
};

TEST_F(CommitsTest, AcceptsAreaImperativeAndReason) {
    commit("word: keep the line", WHY);
    commit("engine/office, tests_2, x-y: keep the line", WHY);
    commit("word: " + std::string(66, 'x'), WHY);
    expectGood(3);
}

TEST_F(CommitsTest, CountsCharactersAndNotBytes) {
    std::string umlauts;
    for (int i = 0; i < 66; ++i) {
        umlauts += "\u00e4";
    }
    commit("word: " + umlauts, WHY);
    expectGood(1);
}

TEST_F(CommitsTest, RefusesASubjectWithoutArea) {
    commit("Keep the line", WHY);
    expectFault("Keep the line: the subject is not \"area: imperative\"");
}

TEST_F(CommitsTest, RefusesAnAreaWithOtherSigns) {
    commit("word!: keep the line", WHY);
    expectFault("the subject is not \"area: imperative\"");
}

TEST_F(CommitsTest, RefusesALongSubject) {
    commit("word: " + std::string(67, 'x'), WHY);
    expectFault("the subject has 73 characters, more than 72");
}

TEST_F(CommitsTest, RefusesAFullStop) {
    commit("word: keep the line.", WHY);
    expectFault("the subject ends in a full stop");
}

TEST_F(CommitsTest, RefusesAMessageWithoutBody) {
    commit("word: keep the line");
    expectFault("word: keep the line: no body says why");
}

TEST_F(CommitsTest, RefusesABodyOfSignaturesOnly) {
    commit("word: keep the line", "Signed-off-by: a <a@b>");
    expectFault("no body says why");
}

TEST_F(CommitsTest, HoldsMergesToTheSame) {
    merge("word: merge the line that stays");
    expectFault("word: merge the line that stays: no body says why");
}

TEST_F(CommitsTest, AcceptsAMergeThatSaysWhy) {
    merge("word: merge the line that stays", WHY);
    expectGood(2);
}

TEST_F(CommitsTest, LeavesOutCommitsBelowTheOneThatAddedIt) {
    expectGood(0);
}

TEST_F(CommitsTest, StartsAtTheNewestTagThatHasIt) {
    commit("Released, whatever it says");
    git("tag -m 1 v1");
    commit("word: keep the line", WHY);
    expectGood(1);
}

TEST_F(CommitsTest, LeavesOutATagFromBeforeIt) {
    git("tag -m 0 v0 HEAD~1");
    commit("word: keep the line", WHY);
    expectGood(1);
}

TEST_F(CommitsTest, StartsWhereItIsTold) {
    commit("Whatever it says");
    commit("word: keep the line", WHY);
    expectGood(1, "HEAD~1");
}

TEST_F(CommitsTest, EndsWithTwoForAnUnknownBase) {
    const Outcome outcome = check("nowhere");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.output.find("check-commits: fatal: "), std::string::npos) << outcome.output;
}

TEST_F(CommitsTest, EndsWithTwoForAShallowClone) {
    git("clone --quiet --depth 1 \"file://$PWD\" shallow");
    const Outcome outcome = run("python3 shallow/" + std::string(SCRIPT));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.output.find("the clone is shallow"), std::string::npos) << outcome.output;
}

TEST_F(CommitsTest, EndsWithTwoForATreeInsideAnotherRepository) {
    fs::create_directories(mFolder / "archive/scripts");
    fs::copy_file(mFolder / SCRIPT, mFolder / "archive" / SCRIPT);
    const Outcome outcome = run("python3 archive/" + std::string(SCRIPT));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.output.find("is not a git repository"), std::string::npos) << outcome.output;
}

} // namespace
