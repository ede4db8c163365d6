// SPDX-License-Identifier: Apache-2.0
// Actions that a document's engine may not do. Each document tries one and
// reports the outcome as its name.

#include "tests/process/engine/EngineTest.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace lectern::test {
namespace {

class SandboxTest : public EngineTest {
protected:
    std::u16string outcomeOf(const std::string& probe) {
        Document document;
        open(document, "probe=" + probe + "\n");
        std::vector<std::uint16_t> text(64);
        std::int32_t length = 0;
        EXPECT_EQ(wordModule().wtg_get_document_name(document.get(), text.data(), 128, &length), MODULE_OK);
        return textOf(text);
    }
};

TEST_F(SandboxTest, FilesOutsideOfItsFolderAreNotWritten) {
    const std::string path = write("precious", "contents\n");
    EXPECT_EQ(outcomeOf("write:" + path), u"EACCES");
    EXPECT_EQ(outcomeOf("write:" + documents() + "/new"), u"EACCES");
    EXPECT_FALSE(std::filesystem::exists(documents() + "/new"));
}

TEST_F(SandboxTest, FilesAreRead) {
    EXPECT_EQ(outcomeOf("read:" + write("font", "contents\n")), u"allowed");
}

TEST_F(SandboxTest, ItsOwnFolderIsWritten) {
    // The engine has written a copy to its own temporary folder.
    Document document;
    open(document, "rows=1\n");
    EXPECT_TRUE(std::filesystem::exists(engineOfDocument().folder + "/copy"));
}

TEST_F(SandboxTest, TheFoldersOfOtherEnginesAreNotWritten) {
    Document other;
    open(other, "rows=1\n");
    EXPECT_EQ(outcomeOf("write:" + engineOfDocument().folder + "/copy"), u"EACCES");
}

TEST_F(SandboxTest, SocketsOfNoFamilyAreMade) {
    for (const int family : {AF_INET, AF_INET6, AF_UNIX, AF_NETLINK}) {
        EXPECT_EQ(outcomeOf("socket:" + std::to_string(family)), u"EPERM") << family;
    }
}

TEST_F(SandboxTest, ProgramsAreNotStarted) {
    EXPECT_EQ(outcomeOf("exec:/bin/true"), u"EPERM");
    EXPECT_EQ(outcomeOf("fork"), u"EPERM");
}

TEST_F(SandboxTest, OtherProcessesAreNotSignalled) {
    EXPECT_EQ(outcomeOf("signal:" + std::to_string(getpid())), u"EPERM");
    EXPECT_EQ(outcomeOf("signal:-1"), u"EPERM");
}

TEST_F(SandboxTest, TheQueueOfTheServiceIsOutOfReach) {
    EXPECT_EQ(outcomeOf("queue"), u"EPERM");
}

TEST_F(SandboxTest, PrivilegesAndDumpsAreGone) {
    Document document;
    open(document, "rows=1\n");
    const std::string process = "/proc/" + std::to_string(engineOfDocument().pid);
    std::ifstream status(process + "/status");
    std::string line;
    std::string found;
    constexpr std::uint64_t READ_FILES = std::uint64_t{1} << 2; // CAP_DAC_READ_SEARCH
    while (std::getline(status, line)) {
        if (line == "NoNewPrivs:\t1" || line == "Seccomp:\t2") {
            found += line + ";";
        }
        if (line.rfind("CapEff:", 0) == 0) {
            EXPECT_EQ(std::stoull(line.substr(7), nullptr, 16) & ~READ_FILES, 0u);
        }
    }
    EXPECT_EQ(found, "NoNewPrivs:\t1;Seccomp:\t2;");
    std::ifstream score(process + "/oom_score_adj");
    int adjustment = 0;
    score >> adjustment;
    EXPECT_EQ(adjustment, 500);
}

TEST_F(SandboxTest, TheProgramIsNotForStartingByHand) {
    const int status = std::system(FAKE_ENGINE " 2>/dev/null");
    EXPECT_EQ(WEXITSTATUS(status), 2);
}

} // namespace
} // namespace lectern::test
