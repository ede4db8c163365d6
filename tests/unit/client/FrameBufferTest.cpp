// SPDX-License-Identifier: Apache-2.0
#include "client/lib/IpcNamespace.h"
#include <lectern/FrameBuffer.h>

#include <gtest/gtest.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

namespace {

using lectern::Attachment;
using lectern::FrameBuffer;

int segmentsInNamespace() {
    shm_info info{};
    shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info));
    return info.used_ids;
}

TEST(FrameBuffer, HoldsItsPixelsAndAWordForTheStatus) {
    auto frame = FrameBuffer::create(480, 800);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->width(), 480);
    EXPECT_EQ(frame->height(), 800);
    EXPECT_EQ(frame->size(), 480U * 800 * 4 + 4);
    frame->pixels()[480 * 800] = 1;
    EXPECT_EQ(frame->pixels()[0], 0U);
    shmid_ds status{};
    ASSERT_EQ(shmctl(static_cast<int>(frame->identifier()), IPC_STAT, &status), 0);
    EXPECT_EQ(status.shm_segsz, frame->size());
}

TEST(FrameBuffer, IsMarkedForRemovalAndCanStillBeAttached) {
    auto frame = FrameBuffer::create(8, 8);
    ASSERT_TRUE(frame);
    shmid_ds status{};
    ASSERT_EQ(shmctl(static_cast<int>(frame->identifier()), IPC_STAT, &status), 0);
    EXPECT_NE(status.shm_perm.mode & SHM_DEST, 0);
    const Attachment second(static_cast<int>(frame->identifier()));
    ASSERT_TRUE(second.attached());
    *static_cast<uint32_t*>(second.address()) = 0x1234;
    EXPECT_EQ(frame->pixels()[0], 0x1234U);
}

TEST(FrameBuffer, LeavesNoSegmentBehind) {
    const int before = segmentsInNamespace();
    {
        auto frame = FrameBuffer::create(8, 8);
        ASSERT_TRUE(frame);
        EXPECT_EQ(segmentsInNamespace(), before + 1);
    }
    EXPECT_EQ(segmentsInNamespace(), before);
}

TEST(FrameBuffer, NeverHasTheIdentifierZero) {
    const pid_t child = fork();
    if (child == 0) {
        // The first identifier in a new namespace is 0.
        const bool fresh = lectern::isolateIpc() && shmget(IPC_PRIVATE, 1, 0600) == 0;
        shmctl(0, IPC_RMID, nullptr);
        const bool freshAgain = lectern::isolateIpc();
        auto frame = FrameBuffer::create(4, 4);
        _exit(fresh && freshAgain && frame && frame->identifier() != 0 && segmentsInNamespace() == 1 ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(FrameBuffer, HasSidesWithinTheServicesLimits) {
    for (const auto& [width, height] : {std::pair(0, 8), {8, 0}, {-1, 8}, {16'385, 1}, {1, 16'385}}) {
        const auto frame = FrameBuffer::create(width, height);
        ASSERT_FALSE(frame) << width << 'x' << height;
        EXPECT_EQ(frame.error().kind, lectern::Error::Kind::Argument);
    }
    EXPECT_TRUE(FrameBuffer::create(1, 1));
    EXPECT_TRUE(FrameBuffer::create(16'384, 1));
}

} // namespace
