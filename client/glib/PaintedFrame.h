// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "client/glib/Tiles.h"
#include <lectern/FrameBuffer.h>
#include <lectern/SharedMemory.h>

#include <memory>

namespace lectern {

// A picture as painted last: its segment, and which pixels the paint has changed.
struct Painted {
    std::shared_ptr<const Attachment> segment;
    int width = 0;
    int height = 0;
    touch::Rectangle damage; // empty when nothing changed
};

// The pixels of a picture without a copy; they keep its segment.
GLibHolder<GBytes> bytesOf(const Painted& painted);
GLibHolder<GBytes> bytesOf(std::shared_ptr<const FrameBuffer> picture);

// Follows the frame buffer of a document from paint to paint. Not thread-safe: for the
// thread that paints.
class PaintedFrame {
public:
    // After a paint. Fails when the segment cannot be attached.
    Result<Painted> look(const FrameBuffer& frame);

private:
    unsigned int mIdentifier = 0;
    std::shared_ptr<const Attachment> mSegment;
    Tiles mTiles;
};

} // namespace lectern
