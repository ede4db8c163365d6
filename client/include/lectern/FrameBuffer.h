// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>
#include <lectern/SharedMemory.h>

#include <cstddef>
#include <cstdint>

#pragma GCC visibility push(default)

namespace lectern {

// The shared memory that the service paints into: width * height pixels of
// 0xAARRGGBB, row after row without gaps, and one word more, whose last byte is
// the service's status byte, so that it is no pixel.
//
// The segment is marked for removal as soon as it is attached here. Linux lets
// the service attach it all the same, and nothing of it is left when the last
// of both has ended, in whatever way.
class FrameBuffer {
public:
    static constexpr int MAX_SIDE = 16'384;

    // Sides are 1 to MAX_SIDE.
    static Result<FrameBuffer> create(int width, int height);
    static constexpr size_t sizeFor(int width, int height) {
        return (static_cast<size_t>(width) * static_cast<size_t>(height) + 1) * sizeof(uint32_t);
    }

    // Never 0, which means no segment to the service.
    unsigned int identifier() const { return static_cast<unsigned int>(mIdentifier); }
    size_t size() const { return sizeFor(mWidth, mHeight); } // bytes
    int width() const { return mWidth; }
    int height() const { return mHeight; }
    const uint32_t* pixels() const { return static_cast<const uint32_t*>(mAttachment.address()); }
    uint32_t* pixels() { return static_cast<uint32_t*>(mAttachment.address()); }

private:
    FrameBuffer(int width, int height, int identifier, Attachment attachment)
        : mWidth(width), mHeight(height), mIdentifier(identifier), mAttachment(std::move(attachment)) {}

    int mWidth;
    int mHeight;
    int mIdentifier;
    Attachment mAttachment;
};

} // namespace lectern

#pragma GCC visibility pop
