// SPDX-License-Identifier: Apache-2.0
#include "client/keeper/Descendants.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace {

using namespace std::chrono_literals;

class Descendants : public testing::Test {
protected:
    Descendants() {
        prctl(PR_SET_CHILD_SUBREAPER, 1);
        sigset_t childEnded;
        sigemptyset(&childEnded);
        sigaddset(&childEnded, SIGCHLD);
        sigprocmask(SIG_BLOCK, &childEnded, &mBefore);
    }
    ~Descendants() override { sigprocmask(SIG_SETMASK, &mBefore, nullptr); }

    // Starts a child, which ignores SIGTERM if `stubborn`, with a child of its
    // own of the same kind.
    static void startFamily(bool stubborn) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        if (fork() == 0) {
            sigset_t none;
            sigemptyset(&none);
            sigprocmask(SIG_SETMASK, &none, nullptr);
            if (stubborn) {
                signal(SIGTERM, SIG_IGN);
            }
            fork();
            (void)!write(ready[1], "x", 1);
            pause();
            _exit(0);
        }
        char bytes[2];
        for (size_t got = 0; got < sizeof bytes;) {
            const ssize_t count = read(ready[0], bytes, sizeof bytes - got);
            ASSERT_GT(count, 0);
            got += static_cast<size_t>(count);
        }
        close(ready[0]);
        close(ready[1]);
    }

    static bool none() { return waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD; }

    sigset_t mBefore;
};

TEST_F(Descendants, EndWhenAsked) {
    startFamily(false);
    lectern::endDescendants(60'000ms); // far beyond the test's own limit
    EXPECT_TRUE(none());
}

TEST_F(Descendants, AreKilledWhenTheyDoNotListen) {
    startFamily(true);
    lectern::endDescendants(1ms);
    EXPECT_TRUE(none());
}

TEST_F(Descendants, MayBeNone) {
    lectern::endDescendants(60'000ms);
    EXPECT_TRUE(none());
}

} // namespace
