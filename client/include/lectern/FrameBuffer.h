// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>
#include <lectern/SharedMemory.h>

#include <cstddef>
#include <cstdint>

#pragma GCC visibility push(default)

namespace lectern {

// The shared memory that the service paints into: width * height pixels 0xAARRGGBB in
// the machine's byte order, row by row from the top without gaps, and one more word.
// The last byte of that word is the service's status byte.
//
// The segment is marked for removal as soon as it is attached. Linux still lets the
// service attach it, and the system removes it when the last process that has it
// attached detaches it or ends.
//
// Owns its attachment, can be moved, and must not be used after a move. Nothing
// guards the pixels: the service writes them during a paint.
class FrameBuffer {
public:
    static constexpr int MAX_SIDE = 16'384;

    // Creates and attaches a segment; its pixels are 0. Sides in pixels, 1 to MAX_SIDE.
    // Errors: argument (a side out of range), system (no memory, no segment left).
    static Result<FrameBuffer> create(int width, int height);
    // The segment's size in bytes.
    static constexpr size_t sizeFor(int width, int height) {
        return (static_cast<size_t>(width) * static_cast<size_t>(height) + 1) * sizeof(uint32_t);
    }

    // For "create". Never 0, because the service takes 0 for no segment.
    unsigned int identifier() const { return static_cast<unsigned int>(mIdentifier); }
    size_t size() const { return sizeFor(mWidth, mHeight); } // bytes
    int width() const { return mWidth; }
    int height() const { return mHeight; }
    // Pixel (x, y) is pixels()[y * width() + x]. Valid as long as this object.
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
