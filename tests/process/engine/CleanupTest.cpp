// SPDX-License-Identifier: Apache-2.0
// Nothing is left behind: no process, folder or file descriptor.

#include "tests/process/engine/EngineTest.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace lectern::test {
namespace {

namespace fs = std::filesystem;

class CleanupTest : public EngineTest {
protected:
    static std::int32_t ask(const Document& document) {
        std::int32_t words = 0;
        return wordModule().wtg_word_count(document.get(), &words);
    }
    static bool exists(pid_t pid) { return kill(pid, 0) == 0; }

    // Runs the driver with a document until its engines are up, then kills it
    // with SIGKILL; returns its engines.
    std::vector<EngineInfo> killHostWithEngines();
};

std::vector<EngineInfo> CleanupTest::killHostWithEngines() {
    const std::string path = write("a.docx", "rows=10\n");
    setVariable("TMPDIR", temporary());
    int input[2];
    EXPECT_EQ(pipe2(input, O_CLOEXEC), 0);
    const pid_t host = vfork();
    if (host == 0) {
        dup2(input[0], STDIN_FILENO);
        execl(ENGINE_DRIVER, ENGINE_DRIVER, "-w", path.c_str(), nullptr);
        _exit(127);
    }
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<EngineInfo> all = enginesOf(host);
        return all.size() == 2 && std::any_of(all.begin(), all.end(), isSpare);
    }));
    std::vector<EngineInfo> all = enginesOf(host);
    kill(host, SIGKILL);
    waitpid(host, nullptr, 0);
    close(input[0]);
    close(input[1]);
    return all;
}

TEST_F(CleanupTest, EachEngineHasAPrivateFolderThatGoesWithIt) {
    Document document;
    open(document, "rows=10\n");
    const EngineInfo engine = engineOfDocument();
    EXPECT_EQ(fs::path(engine.folder).parent_path(), temporary());
    struct stat status {};
    ASSERT_EQ(stat(engine.folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
    EXPECT_EQ(document.close(), MODULE_OK);
    EXPECT_FALSE(fs::exists(engine.folder));
    EXPECT_FALSE(exists(engine.pid));
}

TEST_F(CleanupTest, TheFolderOfAKilledEngineGoesWithoutACloseOrACall) {
    Document document;
    open(document, "rows=10\n");
    const EngineInfo engine = engineOfDocument();
    kill(engine.pid, SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return !fs::exists(engine.folder) && !exists(engine.pid); }))
        << "reaped as soon as it ended";
    EXPECT_EQ(ask(document), MODULE_ENGINE_LOST);
}

TEST_F(CleanupTest, CrashesAndTimeLimitsLeaveNothing) {
    setVariable("LECTERN_ENGINE_OPEN_LIMIT_MS", "400");
    Document document;
    EXPECT_EQ(document.open(write("c.docx", "open=crash\n"), temporary()), MODULE_ENGINE_LOST);
    EXPECT_EQ(document.open(write("h.docx", "open=hang\n"), temporary()), MODULE_TIMED_OUT);
    ASSERT_TRUE(waitForSpare());
    EXPECT_EQ(engines().size(), 1u) << "the spare";
    EXPECT_TRUE(waitUntil([] {
        const std::vector<EngineInfo> children = enginesOf(getpid());
        return std::all_of(children.begin(), children.end(),
                           [](auto& child) { return !child.folder.empty(); });
    })) << "no zombies, which have no arguments";
    EXPECT_EQ(entriesIn(temporary()), 1u);
}

TEST_F(CleanupTest, NoFileDescriptorsAreLeaked) {
    {
        Document warmUp;
        open(warmUp, "rows=10\n");
    }
    ASSERT_TRUE(waitForSpare());
    const std::size_t before = openFiles();
    for (int i = 0; i < 5; i++) {
        Document document;
        std::vector<std::uint32_t> pixels;
        open(document, "rows=10\n");
        show(document, pixels, 8, 8);
        show(document, pixels, 9, 9);
        Document crashing;
        EXPECT_EQ(crashing.open(write("c.docx", "open=crash\n"), temporary()), MODULE_ENGINE_LOST);
        EXPECT_EQ(crashing.open(documents() + "/none", temporary()), MODULE_NOT_FOUND);
    }
    // Connections are closed by a thread of their own.
    EXPECT_TRUE(waitUntil([&] { return waitForSpare() && openFiles() <= before; }))
        << openFiles() << " instead of " << before;
}

TEST_F(CleanupTest, EnginesInheritNothingButTheirOwn) {
    const std::string secret = write("secret", "of the service\n");
    const int inheritable = ::open(secret.c_str(), O_RDONLY); // no O_CLOEXEC, on purpose
    ASSERT_GE(inheritable, 0);
    setVariable("DISPLAY", ":0");
    setVariable("LECTERN_LANGUAGE", "de-DE");
    setVariable("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    Document document;
    open(document, "rows=10\n");
    const EngineInfo engine = engineOfDocument();
    const std::string process = "/proc/" + std::to_string(engine.pid);
    for (const fs::directory_entry& file : fs::directory_iterator(process + "/fd")) {
        EXPECT_NE(fs::read_symlink(file.path()), secret);
    }
    std::ifstream file(process + "/environ");
    const std::string environment{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(environment.find("DISPLAY="), std::string::npos);
    EXPECT_EQ(environment.find("DBUS_SESSION"), std::string::npos);
    EXPECT_NE(environment.find("TMPDIR=" + engine.folder), std::string::npos);
    EXPECT_NE(environment.find("LECTERN_LANGUAGE=de-DE"), std::string::npos);
    close(inheritable);
}

TEST_F(CleanupTest, EnginesEndWithTheirServiceHoweverItEnds) {
    const std::vector<EngineInfo> orphans = killHostWithEngines();
    ASSERT_EQ(orphans.size(), 2u);
    for (const EngineInfo& engine : orphans) {
        EXPECT_TRUE(waitUntil([&] { return !exists(engine.pid); }));
        EXPECT_EQ(entriesIn(engine.folder), 0u) << "emptied, its entry is for the next start";
    }
}

TEST_F(CleanupTest, FoldersLeftBehindAreSweptAtTheNextStart) {
    const std::vector<EngineInfo> orphans = killHostWithEngines();
    ASSERT_EQ(orphans.size(), 2u);
    // Until they have ended they hold the locks of their folders.
    ASSERT_TRUE(waitUntil([&] {
        return std::none_of(orphans.begin(), orphans.end(), [](auto& one) { return exists(one.pid); });
    }));
    fs::create_directories(temporary() + "/lectern-engine-abcdef/profile/deep");
    std::ofstream(temporary() + "/lectern-engine-abcdef/profile/deep/file") << "left\n";
    fs::create_directory(temporary() + "/lectern-other");
    fs::create_directory(temporary() + "/elsewhere");
    fs::create_directory_symlink(temporary() + "/elsewhere", temporary() + "/lectern-engine-symbol");
    ASSERT_TRUE(waitUntil([&] {
        Document document;
        return document.open(write("a.docx", "rows=10\n"), temporary()) == MODULE_OK && waitForSpare() &&
               !fs::exists(temporary() + "/lectern-engine-abcdef");
    }));
    EXPECT_TRUE(fs::exists(temporary() + "/lectern-other")) << "not an engine's";
    EXPECT_TRUE(fs::exists(temporary() + "/elsewhere"));
    EXPECT_TRUE(waitUntil([&] { return entriesIn(temporary()) == 4; })) << "those, a link, and the spare's";
}

TEST_F(CleanupTest, FoldersOfLivingEnginesAreNotSwept) {
    Document first;
    open(first, "rows=10\n");
    const EngineInfo engine = engineOfDocument();
    Document second;
    open(second, "rows=10\n");
    ASSERT_TRUE(waitForSpare());
    EXPECT_TRUE(fs::exists(engine.folder + "/profile/started"));
    EXPECT_EQ(entriesIn(temporary()), 3u);
}

TEST_F(CleanupTest, AHostThatIgnoresItsChildrenIsServedToo) {
    signal(SIGCHLD, SIG_IGN);
    {
        Document document;
        open(document, "rows=10\n");
        EXPECT_EQ(ask(document), MODULE_OK);
    }
    EXPECT_TRUE(waitForSpare());
    signal(SIGCHLD, SIG_DFL);
}

} // namespace
} // namespace lectern::test
