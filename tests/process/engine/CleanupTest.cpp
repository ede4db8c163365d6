// SPDX-License-Identifier: Apache-2.0
// Nothing is left behind: no process, folder or file descriptor.

#include "tests/process/engine/EngineTest.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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

    // Runs the driver with a document until its engine is up, then kills it
    // with SIGKILL; returns its engine.
    EngineInfo killHostWithEngine();
};

EngineInfo CleanupTest::killHostWithEngine() {
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
    EngineInfo engine;
    EXPECT_TRUE(waitUntil([&] {
        const std::vector<EngineInfo> all = enginesOf(host);
        engine = all.empty() ? EngineInfo() : all.front();
        return fs::exists(engine.folder + "/copy");
    }));
    kill(host, SIGKILL);
    waitpid(host, nullptr, 0);
    close(input[0]);
    close(input[1]);
    return engine;
}

TEST_F(CleanupTest, EachEngineHasAPrivateFolderThatGoesWithIt) {
    Document document;
    open(document, "rows=10\n");
    const EngineInfo engine = engineOfDocument();
    EXPECT_EQ(fs::path(engine.folder).parent_path().parent_path(), temporary()) << "in the fork server's";
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
    EXPECT_EQ(ask(document), MODULE_OK) << "in another engine";
}

TEST_F(CleanupTest, CrashesAndTimeLimitsLeaveNothing) {
    setVariable("LECTERN_ENGINE_OPEN_LIMIT_MS", "400");
    Document document;
    EXPECT_EQ(document.open(write("c.docx", "open=crash\n"), temporary()), MODULE_ENGINE_LOST);
    EXPECT_EQ(document.open(write("h.docx", "open=hang\n"), temporary()), MODULE_TIMED_OUT);
    EXPECT_TRUE(waitForEngines(0));
    EXPECT_EQ(entriesIn(temporary()), 1u) << "the fork server's folder";
    EXPECT_EQ(entriesIn(fs::directory_iterator(temporary())->path()), 1u) << "its profile";
}

TEST_F(CleanupTest, NoFileDescriptorsAreLeaked) {
    {
        Document warmUp;
        open(warmUp, "rows=10\n");
    }
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
    EXPECT_TRUE(waitUntil([&] { return openFiles() <= before; })) << openFiles() << " instead of " << before;
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
    EXPECT_NE(environment.find("TMPDIR=" + fs::path(engine.folder).parent_path().string()), std::string::npos)
        << "the fork server's, with which it started";
    EXPECT_NE(environment.find("LECTERN_LANGUAGE=de-DE"), std::string::npos);
    close(inheritable);
}

TEST_F(CleanupTest, EnginesAndForkServerEndWithTheirServiceHoweverItEnds) {
    const EngineInfo orphan = killHostWithEngine();
    ASSERT_GT(orphan.pid, 0);
    EXPECT_TRUE(waitUntil([&] { return !exists(orphan.pid) && !exists(orphan.server); }));
    EXPECT_EQ(entriesIn(temporary()), 1u) << "the fork server's, for the next start";
    EXPECT_EQ(entriesIn(fs::directory_iterator(temporary())->path()), 0u) << "emptied";
}

TEST_F(CleanupTest, FoldersLeftBehindAreSweptAtTheNextStart) {
    const EngineInfo orphan = killHostWithEngine();
    ASSERT_GT(orphan.pid, 0);
    // Until they have ended they hold the lock of their folder.
    ASSERT_TRUE(waitUntil([&] { return !exists(orphan.pid) && !exists(orphan.server); }));
    fs::create_directories(temporary() + "/lectern-engine-abcdef/profile/deep");
    std::ofstream(temporary() + "/lectern-engine-abcdef/profile/deep/file") << "left\n";
    fs::create_directory(temporary() + "/lectern-other");
    fs::create_directory(temporary() + "/elsewhere");
    fs::create_directory_symlink(temporary() + "/elsewhere", temporary() + "/lectern-engine-symbol");
    Document document;
    open(document, "rows=10\n");
    EXPECT_FALSE(fs::exists(temporary() + "/lectern-engine-abcdef"));
    EXPECT_TRUE(fs::exists(temporary() + "/lectern-other")) << "not an engine's";
    EXPECT_TRUE(fs::exists(temporary() + "/elsewhere"));
    EXPECT_EQ(entriesIn(temporary()), 4u) << "those, a link, and the fork server's";
}

TEST_F(CleanupTest, FoldersOfLivingEnginesAreNotSwept) {
    Document first;
    open(first, "rows=10\n");
    const EngineInfo engine = engineOfDocument();
    Document second;
    open(second, "rows=10\n");
    EXPECT_TRUE(fs::exists(engine.folder + "/copy"));
    EXPECT_EQ(entriesIn(fs::path(engine.folder).parent_path()), 3u) << "two engines' and the profile";
}

TEST_F(CleanupTest, AForkServersFolderStaysAsLongAsItsEngines) {
    Document document;
    open(document, "rows=10\n");
    const EngineInfo engine = engineOfDocument();
    const fs::path outer = fs::path(engine.folder).parent_path();
    kill(engine.server, SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return !exists(engine.server); }));
    EXPECT_TRUE(fs::exists(engine.folder + "/copy"));
    EXPECT_EQ(document.close(), MODULE_OK);
    EXPECT_FALSE(fs::exists(outer));
}

TEST_F(CleanupTest, AHostThatIgnoresItsChildrenIsServedToo) {
    signal(SIGCHLD, SIG_IGN);
    {
        Document document;
        open(document, "rows=10\n");
        EXPECT_EQ(ask(document), MODULE_OK);
    }
    EXPECT_TRUE(waitForEngines(0));
    signal(SIGCHLD, SIG_DFL);
}

} // namespace
} // namespace lectern::test
