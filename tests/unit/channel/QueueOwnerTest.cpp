// SPDX-License-Identifier: Apache-2.0
#include "channel/QueueOwner.h"

#include "channel/DocAdapterCommon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/msg.h>
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
    EXPECT_EQ(GetCapturedStderr(),
              "Another service already serves the message queue: process " + std::to_string(getpid()) +
                  " of user " + std::to_string(geteuid()) +
                  ". \"lectern serve\" and isolated services have a queue of their own.\n");
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

TEST(QueueOwner, AQueueThatAnotherUserMadeIsRefusedAndReported) {
    ASSERT_EQ(unshare(CLONE_NEWIPC), 0);
    const int queue = msgget(ftok("/tmp", PROJECT), IPC_CREAT | 0666);
    msqid_ds passedOn = {};
    ASSERT_EQ(msgctl(queue, IPC_STAT, &passedOn), 0);
    passedOn.msg_perm.uid = 1; // an owner that is not this process's user
    if (msgctl(queue, IPC_SET, &passedOn) != 0) {
        GTEST_SKIP() << "this user namespace has a single user";
    }
    QueueOwner owner;
    CaptureStderr();
    EXPECT_FALSE(owner.acquire(PROJECT));
    EXPECT_THAT(GetCapturedStderr(), testing::StartsWith("The message queue belongs to user "));
    msgctl(queue, IPC_RMID, nullptr);
}

TEST(QueueOwner, AManyTimesRefusedServiceIsStillToldWhoseTheQueueIs) {
    QueueOwner first;
    ASSERT_TRUE(first.acquire(PROJECT));
    for (int i = 0; i < 200; ++i) {
        QueueOwner other;
        CaptureStderr();
        EXPECT_FALSE(other.acquire(PROJECT));
        EXPECT_THAT(GetCapturedStderr(), testing::HasSubstr("process " + std::to_string(getpid())));
    }
}

} // namespace
