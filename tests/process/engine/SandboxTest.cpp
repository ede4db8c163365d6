// SPDX-License-Identifier: Apache-2.0
// The state in which engines are. What code inside of them reaches is in probe/.

#include "tests/process/engine/EngineTest.h"

#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace lectern::test {
namespace {

namespace fs = std::filesystem;

class SandboxTest : public EngineTest {
protected:
    SandboxTest() {
        open(mDocument, "rows=1\n");
        mProcess = "/proc/" + std::to_string(engineOfDocument().pid);
    }

    const std::string& process() const { return mProcess; }
    // A line of a file that begins with a word, without the word.
    static std::string line(const std::string& path, const std::string& word) {
        std::ifstream file(path);
        for (std::string line; std::getline(file, line);) {
            if (line.rfind(word, 0) == 0) {
                return line.substr(line.find_first_not_of(" \t", word.size()));
            }
        }
        return "";
    }

private:
    Document mDocument;
    std::string mProcess;
};

TEST_F(SandboxTest, ItsOwnFolderIsWritten) {
    // The engine has written a copy to its own temporary folder.
    EXPECT_TRUE(fs::exists(engineOfDocument().folder + "/copy"));
}

TEST_F(SandboxTest, PrivilegesAreGone) {
    constexpr std::uint64_t READ_FILES = std::uint64_t{1} << 2; // CAP_DAC_READ_SEARCH
    EXPECT_EQ(line(process() + "/status", "NoNewPrivs:"), "1");
    EXPECT_EQ(line(process() + "/status", "Seccomp:"), "2");
    for (const char* set : {"CapEff:", "CapPrm:"}) {
        EXPECT_EQ(std::stoull(line(process() + "/status", set), nullptr, 16) & ~READ_FILES, 0u) << set;
    }
}

TEST_F(SandboxTest, ItEndsBeforeTheServiceWhenMemoryRunsOut) {
    EXPECT_EQ(line(process() + "/oom_score_adj", ""), "500");
}

TEST_F(SandboxTest, ItIsLimited) {
    const std::string limits = process() + "/limits";
    EXPECT_EQ(line(limits, "Max core file size").substr(0, 2), "0 ");
    EXPECT_EQ(line(limits, "Max open files").substr(0, 5), "1024 ");
    EXPECT_EQ(line(limits, "Max cpu time").substr(0, 5), "3600 ");
    EXPECT_EQ(line(limits, "Max file size").substr(0, 10), "536870912 ");
    EXPECT_NE(line(limits, "Max data size").substr(0, 9), "unlimited");
    EXPECT_NE(line(limits, "Max address space").substr(0, 9), "unlimited");
}

TEST_F(SandboxTest, ItHasASessionOfItsOwnWithoutATerminal) {
    // "PID (name) state parent group session terminal ..."
    const std::string stat = line(process() + "/stat", "");
    std::istringstream fields(stat.substr(stat.rfind(')') + 4));
    long parent = 0;
    long group = 0;
    long session = 0;
    long terminal = -1;
    fields >> parent >> group >> session >> terminal;
    EXPECT_EQ(group, engineOfDocument().pid);
    EXPECT_EQ(session, engineOfDocument().pid);
    EXPECT_EQ(terminal, 0);
}

// Whether this process could enter namespaces of its own.
bool canUnshare(int namespaces) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(unshare(namespaces) == 0 ? 0 : 1);
    }
    int status = 1;
    waitpid(child, &status, 0);
    return status == 0;
}

TEST_F(SandboxTest, ItHasNamespacesOfItsOwnWhereTheSystemAllowsThem) {
    const bool root = geteuid() == 0;
    const int possible = CLONE_NEWNET | CLONE_NEWIPC | (root ? 0 : CLONE_NEWUSER);
    const bool allowed = canUnshare(possible);
    const auto isOwn = [this](const std::string& name) {
        return fs::read_symlink(process() + "/ns/" + name) != fs::read_symlink("/proc/self/ns/" + name);
    };
    EXPECT_EQ(isOwn("net"), allowed);
    EXPECT_EQ(isOwn("ipc"), allowed);
    EXPECT_EQ(isOwn("user"), allowed && !root) << "another one would not read all users' documents";
}

TEST_F(SandboxTest, ADocumentIsOpenedThroughALink) {
    const std::string link = documents() + "/link.docx";
    fs::create_symlink(write("real.docx", "rows=1\n"), link);
    Document document;
    EXPECT_EQ(document.open(link, temporary()), MODULE_OK);
}

TEST_F(SandboxTest, TheProgramIsNotForStartingByHand) {
    const int status = std::system(FAKE_ENGINE " 2>/dev/null");
    EXPECT_EQ(WEXITSTATUS(status), 2);
}

} // namespace
} // namespace lectern::test
