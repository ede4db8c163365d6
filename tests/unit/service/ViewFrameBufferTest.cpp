// SPDX-License-Identifier: Apache-2.0
#include "raster/CpPixmap.h"
#include "service/FrameBuffer.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/shm.h>
#include <unistd.h>

#include <climits>
#include <cstring>
#include <utility>
#include <vector>

namespace {

class FrameBufferTest : public testing::Test {
protected:
    ~FrameBufferTest() override {
        for (const int id : made) {
            shmctl(id, IPC_RMID, nullptr);
        }
    }
    unsigned int segment(size_t size) {
        made.push_back(shmget(IPC_PRIVATE, size, IPC_CREAT | 0600));
        return static_cast<unsigned int>(made.back());
    }
    static unsigned long attachments(unsigned int id) {
        shmid_ds status = {};
        shmctl(static_cast<int>(id), IPC_STAT, &status);
        return status.shm_nattch;
    }
    // The reason for which a frame is refused; empty when it is accepted.
    std::string problemOf(unsigned int shmid, int width, int height, int size) {
        const char* problem = nullptr;
        const auto frame = FrameBuffer::attach(shmid, width, height, size, problem);
        EXPECT_EQ(frame.has_value(), problem == nullptr);
        return problem == nullptr ? "" : problem;
    }

    std::vector<int> made;
};

TEST_F(FrameBufferTest, AttachesForItsLife) {
    const unsigned int id = segment(8192);
    {
        const char* problem = "x";
        const auto frame = FrameBuffer::attach(id, 10, 20, 1000, problem);
        ASSERT_TRUE(frame);
        EXPECT_EQ(problem, nullptr);
        EXPECT_EQ(attachments(id), 1U);
        EXPECT_EQ(frame->status(), reinterpret_cast<unsigned char*>(frame->pixels()) + 999);
    }
    EXPECT_EQ(attachments(id), 0U);
}

TEST_F(FrameBufferTest, PixelsAndStatusAreTheClients) {
    const unsigned int id = segment(8192);
    const char* problem = nullptr;
    const auto frame = FrameBuffer::attach(id, 10, 20, 8192, problem);
    ASSERT_TRUE(frame);
    auto* client = static_cast<unsigned char*>(shmat(static_cast<int>(id), nullptr, 0));
    frame->pixels()[0] = 0x01020304;
    *frame->status() = 0x99;
    EXPECT_EQ(client[0], 4);
    EXPECT_EQ(client[8191], 0x99);
    shmdt(client);
}

TEST_F(FrameBufferTest, ACallerMayMoveIt) {
    const unsigned int first = segment(4096);
    const unsigned int second = segment(4096);
    const char* problem = nullptr;
    auto one = FrameBuffer::attach(first, 1, 1, 4, problem);
    auto two = FrameBuffer::attach(second, 1, 1, 4, problem);
    ASSERT_TRUE(one && two);
    FrameBuffer moved = std::move(*one);
    one.reset();
    EXPECT_EQ(attachments(first), 1U);
    moved = std::move(*two);
    two.reset();
    EXPECT_EQ(attachments(first), 0U);
    EXPECT_EQ(attachments(second), 1U);
    moved.pixels()[0] = 5;
}

TEST_F(FrameBufferTest, AnAbandonedOneStaysAttached) {
    const unsigned int id = segment(4096);
    unsigned int* pixels = nullptr;
    {
        const char* problem = nullptr;
        auto frame = FrameBuffer::attach(id, 1, 1, 4, problem);
        ASSERT_TRUE(frame);
        pixels = frame->pixels();
        frame->abandon();
    }
    EXPECT_EQ(attachments(id), 1U);
    EXPECT_EQ(shmdt(pixels), 0);
}

TEST_F(FrameBufferTest, SidesAreFrom1To16384) {
    const unsigned int id = segment(16384 * 4);
    for (const int side : {0, -1, INT_MIN, 16385, INT_MAX}) {
        EXPECT_EQ(problemOf(id, side, 1, 65536), "width or height out of range") << side;
        EXPECT_EQ(problemOf(id, 1, side, 65536), "width or height out of range") << side;
    }
    EXPECT_EQ(problemOf(id, 16384, 1, 65536), "");
    EXPECT_EQ(problemOf(id, 1, 16384, 65536), "");
    EXPECT_EQ(problemOf(id, 1, 1, 4), "");
}

TEST_F(FrameBufferTest, TheFrameMustFitIntoTheSize) {
    const unsigned int id = segment(4096);
    EXPECT_EQ(problemOf(id, 10, 10, 400), "");
    EXPECT_EQ(problemOf(id, 10, 10, 399), "frame larger than size");
    EXPECT_EQ(problemOf(id, 10, 10, 0), "frame larger than size");
    EXPECT_EQ(problemOf(id, 10, 10, -1), "frame larger than size");
    // 1 GiB: its size in bytes just fits into 32 bits.
    EXPECT_EQ(problemOf(id, 16384, 16384, INT_MAX), "size larger than the segment");
    EXPECT_EQ(problemOf(id, 16384, 16384, (1 << 30) - 1), "frame larger than size");
}

TEST_F(FrameBufferTest, TheSizeMustFitIntoTheSegmentAsItReallyIs) {
    const unsigned int id = segment(1000); // whole pages are attached
    EXPECT_EQ(problemOf(id, 1, 1, 1000), "");
    EXPECT_EQ(problemOf(id, 1, 1, 1001), "size larger than the segment");
}

TEST_F(FrameBufferTest, TheSegmentMustBeThere) {
    const unsigned int id = segment(4096);
    shmctl(static_cast<int>(id), IPC_RMID, nullptr);
    EXPECT_EQ(problemOf(id, 1, 1, 4), "no such segment");
    EXPECT_EQ(problemOf(UINT_MAX, 1, 1, 4), "no such segment");
}

TEST_F(FrameBufferTest, WritesBesideTheFrameLandInMemoryOfTheService) {
    const unsigned int id = segment(4096);
    const char* problem = nullptr;
    const auto frame = FrameBuffer::attach(id, 32, 32, 4096, problem);
    ASSERT_TRUE(frame);
    auto* client = static_cast<unsigned int*>(shmat(static_cast<int>(id), nullptr, 0));
    constexpr auto REACH = static_cast<std::ptrdiff_t>(FrameBuffer::SLACK / 4);
    EXPECT_GE(REACH, 16385);
    frame->pixels()[-1] = 1;
    frame->pixels()[-REACH] = 2;
    frame->pixels()[1024] = 3;
    frame->pixels()[1023 + REACH] = 4;
    for (int i = 0; i < 1024; ++i) {
        ASSERT_EQ(client[i], 0U) << i;
    }
    EXPECT_EQ(frame->pixels()[-REACH], 2U);
    EXPECT_EQ(frame->pixels()[1023 + REACH], 4U);
    shmdt(client);
}

// The rotating copies at full size into a segment without a spare byte: the
// client sees the right frame, and nothing beside it is written.
TEST_F(FrameBufferTest, TurnedPicturesOfAnyShapeStayOutOfOthersMemory) {
    const std::pair<int, int> shapes[] = {{32, 32}, {64, 16}, {16, 64}, {1, 1024}, {1024, 1}};
    for (const auto& [width, height] : shapes) {
        const unsigned int id = segment(4096);
        const unsigned int before = segment(4096);
        const char* problem = nullptr;
        const auto neighbour = FrameBuffer::attach(before, 32, 32, 4096, problem);
        const auto frame = FrameBuffer::attach(id, width, height, 4096, problem);
        ASSERT_TRUE(frame && neighbour);
        // The picture of a turned view: its width is the view's height.
        CpPixmap picture(height, width);
        for (int i = 0; i < width * height; ++i) {
            picture.Pixels()[i] = 0xFF000000U + static_cast<unsigned int>(i);
        }
        const CpRect all(0, 0, height, width);
        picture.CopyBitsRotatedLeft(all, frame->pixels());
        picture.CopyBitsRotatedRight(all, frame->pixels());
        picture.CopyBitsRotated180(all, frame->pixels());
        for (int i = 0; i < 1024; ++i) {
            ASSERT_EQ(neighbour->pixels()[i], 0U);
        }
    }
}

TEST_F(FrameBufferTest, ReturnsAllOfItsAddresses) {
    const unsigned int id = segment(4096);
    unsigned int* pixels = nullptr;
    {
        const char* problem = nullptr;
        const auto frame = FrameBuffer::attach(id, 1, 1, 4, problem);
        ASSERT_TRUE(frame);
        pixels = frame->pixels();
    }
    unsigned char resident = 0;
    const auto page = static_cast<size_t>(getpagesize());
    for (const std::ptrdiff_t pages : {-1, 0, 1}) {
        auto* place = reinterpret_cast<unsigned char*>(pixels) + pages * static_cast<std::ptrdiff_t>(page);
        EXPECT_EQ(mincore(place, page, &resident), -1) << pages;
    }
}

} // namespace
