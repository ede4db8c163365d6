// SPDX-License-Identifier: Apache-2.0
// The file rules alone, in children of the test, without the list of calls that stands
// before some of them in an engine.
#include "engine/process/FileRules.h"

#include "engine/protocol/Landlock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>

namespace lectern::engine {
namespace {

namespace fs = std::filesystem;

class FileRulesTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(FileRules::areSupported()) << "the tests need a kernel with Landlock";
        mFolder = fs::temp_directory_path() / "lectern-rules-XXXXXX";
        ASSERT_NE(mkdtemp(mFolder.data()), nullptr);
        fs::create_directory(own());
        mDocument = mFolder + "/document";
        std::ofstream(mDocument) << "text\n";
        std::ofstream(mFolder + "/other") << "text\n";
    }
    void TearDown() override {
        std::error_code ignored;
        fs::remove_all(mFolder, ignored);
    }

    std::string own() const { return mFolder + "/own"; }
    const std::string& document() const { return mDocument; }
    std::string other() const { return mFolder + "/other"; }

    // Tries something in a child with these rules, after `before`. Returns 0, or the error.
    int errorOf(
        const std::function<long()>& attempt, const std::function<void()>& before = [] {}) const {
        const pid_t child = fork();
        if (child == 0) {
            const FileDescriptor opened(open(mDocument.c_str(), O_RDONLY));
            FileRules rules(FileRules::Covers::Reading);
            const bool done = prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && rules.allowEverythingIn(own()) &&
                              rules.allowReading(opened.get()) && rules.allowReading("/nonexistent");
            before();
            if (!done || !rules.enforce()) {
                _exit(255);
            }
            _exit(attempt() >= 0 ? 0 : errno);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WEXITSTATUS(status);
    }
    static long reads(const std::string& path) { return open(path.c_str(), O_RDONLY); }

private:
    std::string mFolder;
    std::string mDocument;
};

TEST_F(FileRulesTest, TheFileOfADescriptorIsRead) {
    EXPECT_EQ(errorOf([this] { return reads(document()); }), 0);
    EXPECT_EQ(errorOf([this] { return open(document().c_str(), O_RDWR); }), EACCES);
    EXPECT_EQ(errorOf([this] { return reads(other()); }), EACCES);
    EXPECT_EQ(errorOf([this] { return reads(fs::path(document()).parent_path()); }), EACCES);
}

TEST_F(FileRulesTest, AnotherFileInItsPlaceIsNotRead) {
    EXPECT_EQ(errorOf([this] { return reads(document()); }, [this] { fs::rename(other(), document()); }),
              EACCES);
}

TEST_F(FileRulesTest, ItsNewNameChangesNothing) {
    EXPECT_EQ(errorOf([this] { return reads(document() + ".new"); },
                      [this] { fs::rename(document(), document() + ".new"); }),
              0);
}

TEST_F(FileRulesTest, TheOwnFolderIsUsedFreely) {
    EXPECT_EQ(errorOf([this] { return open((own() + "/a").c_str(), O_RDWR | O_CREAT, 0600); }), 0);
    EXPECT_EQ(errorOf([this] { return mkdir((own() + "/folder").c_str(), 0700); }), 0);
    EXPECT_EQ(errorOf([this] { return rename((own() + "/a").c_str(), (own() + "/folder/b").c_str()); }), 0);
    EXPECT_EQ(errorOf([this] { return unlink((own() + "/folder/b").c_str()); }), 0);
    EXPECT_EQ(errorOf([this] { return symlink("/etc", (own() + "/link").c_str()); }), EACCES);
    EXPECT_EQ(errorOf([this] { return mkfifo((own() + "/fifo").c_str(), 0600); }), EACCES);
}

TEST_F(FileRulesTest, NoProgramIsStarted) {
    EXPECT_EQ(errorOf([] { return execl("/bin/true", "true", nullptr); }), EACCES);
}

TEST_F(FileRulesTest, NoSignalLeavesWhereTheKernelCan) {
    const pid_t outside = getpid();
    EXPECT_EQ(errorOf([outside] { return kill(outside, 0); }), landlockVersion() >= 6 ? EPERM : 0);
    EXPECT_EQ(errorOf([] { return kill(getpid(), 0); }), 0);
}

TEST_F(FileRulesTest, NoAbstractSocketIsReachedWhereTheKernelCan) {
    sockaddr_un address{AF_UNIX, {}};
    const std::string name = "lectern-rules-" + std::to_string(getpid());
    name.copy(address.sun_path + 1, sizeof address.sun_path - 1);
    const auto* place = reinterpret_cast<sockaddr*>(&address);
    const FileDescriptor listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    ASSERT_EQ(bind(listener.get(), place, sizeof address), 0);
    ASSERT_EQ(listen(listener.get(), 1), 0);
    const auto connectOutside = [&] {
        return connect(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), place, sizeof address);
    };
    EXPECT_EQ(errorOf(connectOutside), landlockVersion() >= 6 ? EPERM : 0);
}

TEST_F(FileRulesTest, NoConnectionIsMadeWhereTheKernelCan) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto connectToNobody = [&] {
        return connect(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0), reinterpret_cast<sockaddr*>(&address),
                       sizeof address);
    };
    EXPECT_EQ(errorOf(connectToNobody) == EACCES, landlockVersion() >= 4);
}

} // namespace
} // namespace lectern::engine
