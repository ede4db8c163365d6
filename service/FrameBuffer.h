// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>

// The service's attachment of a client's frame-buffer segment.
//
// The copies that rotate a picture write some pixels outside of the frame, by
// at most its longer side, and clients make segments that are just as large as
// the frame. So the segment is attached inside a range of addresses that is the
// service's own, with slack before and after: such writes land there, and
// neither harm what happens to lie beside the segment nor fail.
class FrameBuffer {
public:
    // The longest side of a frame, in pixels.
    static constexpr int MAX_SIDE = 16384;
    // Bytes of the service's own memory on either side, at least.
    static constexpr size_t SLACK = (static_cast<size_t>(MAX_SIDE) + 1) * 4;

    // Attaches a segment of which `size` bytes are for a frame of width * height
    // pixels and the status byte. Nothing, with a text in `problem`, when a side
    // is below 1 or above MAX_SIDE, the frame larger than size, size larger than
    // the segment, or the segment not to be had.
    [[nodiscard]] static std::optional<FrameBuffer> attach(unsigned int shmid, int width, int height,
                                                           int size, const char*& problem);

    // Detaches the segment and returns the slack.
    ~FrameBuffer();
    FrameBuffer(FrameBuffer&& other) noexcept;
    FrameBuffer& operator=(FrameBuffer&& other) noexcept;
    FrameBuffer(const FrameBuffer&) = delete;
    FrameBuffer& operator=(const FrameBuffer&) = delete;

    // The first pixel, 0xAARRGGBB.
    unsigned int* pixels() const { return mPixels; }
    // The last byte, which signals a finished paint. It may be a pixel's, too.
    unsigned char* status() const { return mStatus; }
    // Leaves the segment attached until the process ends.
    void abandon() { mRange = nullptr; }

private:
    FrameBuffer(void* range, size_t rangeSize, void* segment, int size);

    void* mRange; // slack, segment, slack
    size_t mRangeSize;
    unsigned int* mPixels;
    unsigned char* mStatus;
};
