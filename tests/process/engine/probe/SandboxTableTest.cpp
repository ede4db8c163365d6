// SPDX-License-Identifier: Apache-2.0
// Code inside of an engine makes the attempts of the table in docs/security.md, as root
// and as another user; the table tells how each ends.
#include "engine/protocol/Landlock.h"
#include "tests/guides/Markdown.h"
#include "tests/process/engine/EngineTest.h"
#include "tests/process/engine/probe/Probe.h"
#include "tests/process/engine/probe/UserFolder.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace lectern::test {
namespace {

constexpr uid_t NOBODY = 65534;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool SANITIZED = true;
#else
constexpr bool SANITIZED = false;
#endif

// What refuses an attempt.
constexpr const char* FILE_RULES = "file rules";
constexpr const char* CALLS = "calls";
constexpr const char* LIMITS = "limits";

struct Attempt {
    std::string what; // the first column of the table
    std::string line; // of the probe document
    std::string by;   // one of the above, or "" where it is allowed
};

// Two services of a user's: one with an ordinary document, and one whose engine makes
// attempts, also on the other.
class Probed {
public:
    Probed(const char* engine, uid_t user) : mEngine(engine), mFolder(user) {
        mPrivateFile = mFolder.write("private", "private\n");
        mOtherService = mFolder.open(mFolder.write("ordinary.docx", "rows=1\n"), FAKE_ENGINE);
        EXPECT_TRUE(EngineTest::waitUntil([this] {
            return std::filesystem::exists(otherEngine() + "/copy");
        })) << mFolder.output();
    }

    const std::string& folder() const { return mFolder.path(); }
    const std::string& privateFile() const { return mPrivateFile; }
    std::string document() const { return folder() + "/" + PROBE_PREFIX + "document.txt"; }
    pid_t otherService() const { return mOtherService; }
    // Its folder.
    std::string otherEngine() const { return folderOf(mOtherService); }

    // Makes the attempts and returns their outcomes; fewer when the engine ended before.
    std::vector<std::string> outcomesOf(const std::string& attempts) {
        const pid_t service =
            mFolder.open(mFolder.write(PROBE_PREFIX + std::string("document.txt"), attempts), mEngine);
        std::string outcomes;
        EXPECT_TRUE(EngineTest::waitUntil([&] {
            outcomes = folderOf(service) + "/" + OUTCOMES;
            return std::filesystem::exists(outcomes);
        })) << mFolder.output();
        std::vector<std::string> all;
        std::ifstream file(outcomes);
        for (std::string outcome; std::getline(file, outcome);) {
            all.push_back(outcome);
        }
        return all;
    }

private:
    static std::string folderOf(pid_t service) {
        const std::vector<EngineInfo> engines = enginesOf(service);
        return engines.empty() ? "/nonexistent" : engines.front().folder;
    }

    const std::string mEngine;
    UserFolder mFolder;
    std::string mPrivateFile;
    pid_t mOtherService = 0;
};

std::vector<Attempt> fileAttempts(const Probed& probed) {
    const std::string other = probed.otherEngine();
    const std::string service = "/proc/" + std::to_string(probed.otherService());
    return {
        {"read its document", "read=" + probed.document(), ""},
        {"make a file in its folder", "create=OWN/new", ""},
        {"make a folder there that nobody can open", "closed-folder=OWN/closed", CALLS},
        {"list a folder of libraries", "list=/usr/lib", ""},
        {"read another file of the user", "read=" + probed.privateFile(), FILE_RULES},
        {"a symbolic link to it", "symlink=" + probed.privateFile(), CALLS},
        {"a hard link to it", "link=" + probed.privateFile(), CALLS},
        {"list the folder of its document", "list=" + probed.folder(), FILE_RULES},
        {"list the folder of another engine", "list=" + other, FILE_RULES},
        {"read a file of another engine", "read=" + other + "/copy", FILE_RULES},
        {"write a file of another engine", "write=" + other + "/copy", FILE_RULES},
        {"read /etc/passwd", "read=/etc/passwd", FILE_RULES},
        {"read /etc/shadow", "read=/etc/shadow", FILE_RULES},
        {"list the processes", "list=/proc", FILE_RULES},
        {"read the environment of the service", "read=" + service + "/environ", FILE_RULES},
        {"read the memory of the service", "read=" + service + "/mem", FILE_RULES},
        {"read the memory map of the service", "read=" + service + "/maps", FILE_RULES},
        {"list the files of the service", "list=" + service + "/fd", FILE_RULES},
        {"write its document", "write=" + probed.document(), FILE_RULES},
        {"write another file of the user", "write=" + probed.privateFile(), FILE_RULES},
        {"make a file beside its document", "create=" + probed.folder() + "/new", FILE_RULES},
        {"make a file in /dev/shm", "create=/dev/shm/lectern-probe", FILE_RULES},
        {"truncate its document", "truncate=" + probed.document(), CALLS},
        {"`chmod` of another file", "chmod=" + probed.privateFile(), CALLS},
        {"`fchmod` of its document", "fchmod=" + probed.document(), CALLS},
        {"`chown` of another file", "chown=" + probed.privateFile(), CALLS},
        {"`utimensat` of another file", "utimensat=" + probed.privateFile(), CALLS},
        {"`setxattr` of another file", "setxattr=" + probed.privateFile(), CALLS},
        {"`flock` of its document", "flock=" + probed.document(), CALLS},
        {"`F_SETLEASE` of its document", "lease=" + probed.document(), CALLS},
        {"`F_SETOWN`", "owner=" + probed.document(), CALLS},
        {"`F_SETSIG`", "signal-number=" + probed.document(), CALLS},
        {"`F_NOTIFY` of a folder", "notify=/usr/lib", CALLS},
        {"`inotify_init1`", "inotify", CALLS},
        {"`open_by_handle_at`", "handle", CALLS},
    };
}

std::vector<Attempt> processAttempts(const Probed& probed) {
    const std::string service = std::to_string(probed.otherService());
    return {
        {"start a thread", "thread", ""},
        {"start a process", "fork", CALLS},
        {"start a program", "exec=/bin/true", CALLS},
        {"`kill` the service", "kill=" + service, CALLS},
        {"`kill` everybody", "kill=-1", CALLS},
        {"`tgkill` the service", "tgkill=" + service, CALLS},
        {"`rt_sigqueueinfo` to the service", "queue-signal=" + service, CALLS},
        {"`pidfd_open` of the service", "pidfd=" + service, CALLS},
        {"`ptrace` the service", "trace=" + service, CALLS},
        {"`process_vm_readv` of the service", "read-memory=" + service, CALLS},
        {"`setpriority` of the service", "priority=" + service, CALLS},
        {"`sched_setaffinity` of the service", "affinity=" + service, CALLS},
        {"`prlimit` of the service", "limits=" + service, CALLS},
        {"a new session", "session", CALLS},
        {"open the terminal", "terminal", FILE_RULES},
        {"`TIOCSTI`", "keystroke", CALLS},
        {"`PR_SET_DUMPABLE`", "dumpable", CALLS},
        {"`personality`", "personality", CALLS},
    };
}

std::vector<Attempt> channelAttempts() {
    const auto socket = [](int family) { return "socket=" + std::to_string(family); };
    return {
        {"a socket for IPv4", socket(AF_INET), CALLS},
        {"a socket for IPv6", socket(AF_INET6), CALLS},
        {"a Unix socket", socket(AF_UNIX), CALLS},
        {"a netlink socket", socket(AF_NETLINK), CALLS},
        {"a datagram to the system's log", "datagram=/dev/log", CALLS},
        {"a System V queue", "queue", CALLS},
        {"a System V segment", "segment", CALLS},
        {"a System V semaphore", "semaphore", CALLS},
        {"a POSIX queue", "posix-queue", CALLS},
        {"`keyctl`", "key", CALLS},
        {"`memfd_create`", "memfd", CALLS},
        {"a shared mapping without a file", "shared-mapping", CALLS},
    };
}

std::vector<Attempt> kernelAttempts() {
    return {
        {"a process in a new user namespace", "new-user", CALLS},
        {"`unshare`", "unshare", CALLS},
        {"`setns`", "setns=/usr/lib", CALLS},
        {"`mount`", "mount=OWN", CALLS},
        {"`chroot`", "chroot=OWN", CALLS},
        {"`bpf`", "bpf", CALLS},
        {"`perf_event_open`", "perf", CALLS},
        {"`io_uring_setup`", "io_uring", CALLS},
        {"`userfaultfd`", "userfaultfd", CALLS},
        {"`init_module`", "module", CALLS},
        {"MiB in one file", "file-size=OWN/large", LIMITS},
        {"open descriptors", "descriptors", LIMITS},
        {"MiB of memory", "data", LIMITS},
    };
}

std::vector<Attempt> attemptsOn(const Probed& probed) {
    std::vector<Attempt> all = fileAttempts(probed);
    for (const auto& more : {processAttempts(probed), channelAttempts(), kernelAttempts()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

// Each attempt with its outcome, as rows of the table have them.
std::vector<markdown::Row> probeAs(uid_t user, const char* engine) {
    Probed probed(engine, user);
    const std::vector<Attempt> attempts = attemptsOn(probed);
    std::string lines;
    for (const Attempt& attempt : attempts) {
        lines += attempt.line + "\n";
    }
    std::vector<std::string> outcomes = probed.outcomesOf(lines);
    EXPECT_EQ(outcomes.size(), attempts.size()) << "the engine ended before";
    outcomes.resize(attempts.size());
    std::vector<markdown::Row> rows;
    for (std::size_t i = 0; i < attempts.size(); i++) {
        rows.push_back({attempts[i].what, attempts[i].by, outcomes[i]});
    }
    return rows;
}

class SandboxTable : public testing::TestWithParam<const char*> {
protected:
    // Compares outcomes with a column of the table.
    static void compare(const std::vector<markdown::Row>& found, std::size_t column) {
        const markdown::Table table =
            markdown::table("docs/security.md", "What an engine reaches", "An engine tries");
        EXPECT_EQ(textOf(found, 2), textOf(table.rows, column));
    }

private:
    // A kernel may have no Landlock, and limits are others with a sanitizer.
    static bool isComparable(const std::string& refusedBy) {
        return refusedBy == FILE_RULES ? engine::landlockVersion() > 0 : refusedBy != LIMITS || !SANITIZED;
    }
    static std::string textOf(const std::vector<markdown::Row>& rows, std::size_t column) {
        std::string text;
        for (const markdown::Row& row : rows) {
            if (isComparable(row.at(1))) {
                text += "| " + row.at(0) + " | " + row.at(1) + " | " + row.at(column) + " |\n";
            }
        }
        return text;
    }
};

TEST_P(SandboxTable, TellsWhatAnEngineOfTheUserReaches) {
    compare(probeAs(geteuid() == 0 ? NOBODY : geteuid(), GetParam()), 3);
}

TEST_P(SandboxTable, TellsWhatAnEngineOfRootReaches) {
    if (geteuid() == 0) {
        compare(probeAs(0, GetParam()), 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Engines, SandboxTable, testing::Values(PROBE_ENGINES), [](const auto& engine) {
    const std::string program = engine.param;
    return program.find("fake-") != std::string::npos ? "OfTheFakeSuite" : "OfTheRealSuite";
});

} // namespace
} // namespace lectern::test
