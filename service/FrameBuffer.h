// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>

// The service's attachment of a client's frame-buffer segment.
//
// The rotating copies write some pixels outside the frame, at most as many as
// its longer side, and clients make segments that are exactly as large as the
// frame. So the segment is attached inside a private mapping of the service,
// with slack before and after it. Such writes hit the slack: they do not fail
// and do not overwrite other memory.
//
// Movable. Not thread-safe.
class FrameBuffer {
public:
    // The longest side of a frame, in pixels.
    static constexpr int MAX_SIDE = 16384;
    // The least slack on either side, in bytes: one row or column of the largest
    // frame and one pixel, 4 bytes each.
    static constexpr size_t SLACK = (static_cast<size_t>(MAX_SIDE) + 1) * 4;

    // Attaches a segment. Its first `size` bytes hold a frame of width * height
    // pixels of 4 bytes; the last of them is the status byte. Returns nothing,
    // with the reason in `problem`, if a side is below 1 or above MAX_SIDE, the
    // frame is larger than size, size is larger than the segment, or the segment
    // does not exist, belongs to another user or cannot be attached. On success `problem` is null.
    [[nodiscard]] static std::optional<FrameBuffer> attach(unsigned int shmid, int width, int height,
                                                           int size, const char*& problem);

    // Detaches the segment and unmaps the slack.
    ~FrameBuffer();
    FrameBuffer(FrameBuffer&& other) noexcept;
    FrameBuffer& operator=(FrameBuffer&& other) noexcept;
    FrameBuffer(const FrameBuffer&) = delete;
    FrameBuffer& operator=(const FrameBuffer&) = delete;

    // The first pixel, 0xAARRGGBB.
    unsigned int* pixels() const { return mPixels; }
    // The last of the `size` bytes, which signals a finished paint. It is part of
    // the last pixel if the frame fills all of them.
    unsigned char* status() const { return mStatus; }
    // The size of the whole segment.
    size_t segmentBytes() const { return mSegmentBytes; }
    // Gives up ownership: the segment stays attached until the process ends.
    void abandon() { mRange = nullptr; }

private:
    FrameBuffer(void* range, size_t rangeSize, void* segment, size_t segmentBytes, int size);

    void* mRange; // slack, segment, slack
    size_t mRangeSize;
    size_t mSegmentBytes;
    unsigned int* mPixels;
    unsigned char* mStatus;
};
