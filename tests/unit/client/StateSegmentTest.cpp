// SPDX-License-Identifier: Apache-2.0
#include <lectern/StateSegment.h>

#include <gtest/gtest.h>
#include <sys/shm.h>

#include <cstring>

namespace {

using lectern::StateSegment;
using lectern::ViewState;

// A segment that is removed with its last attachment.
class Segment {
public:
    explicit Segment(size_t size)
        : mIdentifier(shmget(IPC_PRIVATE, size, IPC_CREAT | 0600)), mMemory(mIdentifier) {
        shmctl(mIdentifier, IPC_RMID, nullptr);
    }
    unsigned int identifier() const { return static_cast<unsigned int>(mIdentifier); }
    void* memory() { return mMemory.address(); }

private:
    int mIdentifier;
    lectern::Attachment mMemory;
};

TEST(StateSegment, ReadsTheRecordAtItsOffsets) {
    Segment segment(28);
    auto* bytes = static_cast<unsigned char*>(segment.memory());
    const int32_t scroll[] = {-3, 1200};
    const double scale = 2.5;
    const int32_t level = 2;
    std::memcpy(bytes, scroll, 8);
    std::memcpy(bytes + 8, &scale, 8);
    std::memcpy(bytes + 16, &level, 4);
    const auto state = StateSegment::attach(segment.identifier());
    ASSERT_TRUE(state);
    const ViewState read = state->read();
    EXPECT_EQ(read.scrollX, -3);
    EXPECT_EQ(read.scrollY, 1200);
    EXPECT_EQ(read.scale, 2.5);
    EXPECT_EQ(read.scaleLevel, 2);
}

TEST(StateSegment, OutlivesItsMaker) {
    auto segment = std::make_unique<Segment>(28);
    const auto state = StateSegment::attach(segment->identifier());
    ASSERT_TRUE(state);
    segment.reset();
    EXPECT_TRUE(StateSegment::attach(state->identifier()));
}

TEST(StateSegment, IsNotAttachedWhereThereIsNoneOrASmallerOne) {
    Segment small(27);
    EXPECT_FALSE(StateSegment::attach(small.identifier()));
    unsigned int gone = 0;
    {
        const Segment segment(28);
        gone = segment.identifier();
    }
    EXPECT_FALSE(StateSegment::attach(gone));
}

} // namespace
