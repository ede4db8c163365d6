// SPDX-License-Identifier: Apache-2.0
#include "client/glib/PaintedFrame.h"

#include <cerrno>

namespace lectern {

namespace {

// GBytes that keep an owner of the memory.
template<typename Owner>
GLibHolder<GBytes> heldBytes(const void* memory, size_t size, std::shared_ptr<Owner> owner) {
    using Holder = std::shared_ptr<Owner>;
    return GLibHolder<GBytes>(g_bytes_new_with_free_func(
        memory, size, [](gpointer holder) { delete static_cast<Holder*>(holder); },
        new Holder(std::move(owner))));
}

size_t pixelBytes(int width, int height) {
    return static_cast<size_t>(width) * static_cast<size_t>(height) * sizeof(uint32_t);
}

} // namespace

GLibHolder<GBytes> bytesOf(const Painted& painted) {
    return heldBytes(painted.segment->address(), pixelBytes(painted.width, painted.height), painted.segment);
}

GLibHolder<GBytes> bytesOf(std::shared_ptr<const FrameBuffer> picture) {
    const uint32_t* pixels = picture->pixels();
    const size_t size = pixelBytes(picture->width(), picture->height());
    return heldBytes(pixels, size, std::move(picture));
}

// The frame buffer belongs to the document, which ends or replaces it when it likes. An
// attachment of our own keeps the segment for as long as anyone looks at it.
Result<Painted> PaintedFrame::look(const FrameBuffer& frame) {
    if (mSegment == nullptr || mIdentifier != frame.identifier()) {
        Attachment attachment(static_cast<int>(frame.identifier()));
        if (!attachment.attached()) {
            return Error{Error::Kind::System, "cannot attach the frame buffer", errno, {}};
        }
        mIdentifier = frame.identifier();
        mSegment = std::make_shared<const Attachment>(std::move(attachment));
        mTiles.clear();
    }
    return Painted{mSegment, frame.width(), frame.height(),
                   mTiles.update(frame.pixels(), frame.width(), frame.height())};
}

} // namespace lectern
