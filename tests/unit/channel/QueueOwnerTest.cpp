// SPDX-License-Identifier: Apache-2.0
#include "channel/QueueOwner.h"

#include "channel/DocAdapterCommon.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr char PROJECT = DocAdapterMessageQueue::PROJECT_ID;

TEST(QueueOwner, OneAtATime) {
    QueueOwner first;
    ASSERT_TRUE(first.acquire(PROJECT));
    QueueOwner second;
    CaptureStderr();
    EXPECT_FALSE(second.acquire(PROJECT));
    EXPECT_EQ(GetCapturedStderr(), "Another service already serves the message queue.\n");
}

TEST(QueueOwner, TheNextOneMayHaveItAfterwards) {
    { EXPECT_TRUE(QueueOwner().acquire(PROJECT)); }
    EXPECT_TRUE(QueueOwner().acquire(PROJECT));
}

TEST(QueueOwner, AnotherQueueIsAnotherMatter) {
    QueueOwner first;
    QueueOwner second;
    EXPECT_TRUE(first.acquire(PROJECT));
    EXPECT_TRUE(second.acquire('P'));
}

TEST(QueueOwner, AnotherIpcNamespaceHasAnotherQueue) {
    QueueOwner here;
    ASSERT_TRUE(here.acquire(PROJECT));
    const pid_t child = fork();
    if (child == 0) {
        QueueOwner there;
        _exit(unshare(CLONE_NEWIPC) == 0 && there.acquire(PROJECT) ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

TEST(QueueOwner, AProcessThatDiesLetsGo) {
    const pid_t child = fork();
    if (child == 0) {
        auto* owner = new QueueOwner;
        _exit(owner->acquire(PROJECT) ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    EXPECT_TRUE(QueueOwner().acquire(PROJECT));
}

} // namespace
