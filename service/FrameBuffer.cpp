// SPDX-License-Identifier: Apache-2.0
#include "service/FrameBuffer.h"

#include "base/IpcOwner.h"

#include <sys/mman.h>
#include <sys/shm.h>

#include <cstdint>
#include <utility>

namespace {

size_t roundUp(size_t value, size_t unit) {
    return (value + unit - 1) / unit * unit;
}

bool isSide(int pixels) {
    return pixels >= 1 && pixels <= FrameBuffer::MAX_SIDE;
}

// Null if a frame of this shape fits into `size` bytes, else the reason why not.
const char* shapeProblem(int width, int height, int size) {
    if (!isSide(width) || !isSide(height)) {
        return "width or height out of range";
    }
    if (int64_t{width} * height * 4 > size) {
        return "frame larger than size";
    }
    return nullptr;
}

} // namespace

std::optional<FrameBuffer> FrameBuffer::attach(unsigned int shmid, int width, int height, int size,
                                               const char*& problem) {
    problem = shapeProblem(width, height, size);
    if (problem != nullptr) {
        return std::nullopt;
    }
    const int id = static_cast<int>(shmid);
    shmid_ds segment = {};
    if (shmctl(id, IPC_STAT, &segment) == -1) {
        problem = "no such segment";
        return std::nullopt;
    }
    if (!lectern::isOwnIpc(segment.shm_perm)) {
        problem = "the segment belongs to another user";
        return std::nullopt;
    }
    if (segment.shm_segsz < static_cast<size_t>(size)) {
        problem = "size larger than the segment";
        return std::nullopt;
    }
    // Every part is a multiple of SHMLBA. One extra unit allows to align the
    // segment's address to SHMLBA, as shmat requires.
    const auto unit = static_cast<size_t>(SHMLBA);
    const size_t before = roundUp(SLACK, unit);
    const size_t rangeSize = before + unit + roundUp(segment.shm_segsz, unit) + roundUp(SLACK, unit);
    void* range =
        mmap(nullptr, rangeSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (range == MAP_FAILED) {
        problem = "no room for the frame buffer";
        return std::nullopt;
    }
    auto* place = reinterpret_cast<void*>(roundUp(reinterpret_cast<uintptr_t>(range) + before, unit));
    if (shmat(id, place, SHM_REMAP) != place) {
        munmap(range, rangeSize);
        problem = "segment cannot be attached";
        return std::nullopt;
    }
    return FrameBuffer(range, rangeSize, place, segment.shm_segsz, size);
}

FrameBuffer::FrameBuffer(void* range, size_t rangeSize, void* segment, size_t segmentBytes, int size)
    : mRange(range), mRangeSize(rangeSize), mSegmentBytes(segmentBytes),
      mPixels(static_cast<unsigned int*>(segment)), mStatus(static_cast<unsigned char*>(segment) + size - 1) {
}

FrameBuffer::FrameBuffer(FrameBuffer&& other) noexcept
    : mRange(std::exchange(other.mRange, nullptr)), mRangeSize(other.mRangeSize),
      mSegmentBytes(other.mSegmentBytes), mPixels(other.mPixels), mStatus(other.mStatus) {}

FrameBuffer& FrameBuffer::operator=(FrameBuffer&& other) noexcept {
    std::swap(mRange, other.mRange);
    std::swap(mRangeSize, other.mRangeSize);
    std::swap(mSegmentBytes, other.mSegmentBytes);
    std::swap(mPixels, other.mPixels);
    std::swap(mStatus, other.mStatus);
    return *this;
}

FrameBuffer::~FrameBuffer() {
    if (mRange != nullptr) {
        // Also detaches the segment, in one step with the slack: after shmdt, other
        // code could map the freed addresses before munmap removes the range.
        munmap(mRange, mRangeSize);
    }
}
