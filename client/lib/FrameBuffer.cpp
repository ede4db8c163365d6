// SPDX-License-Identifier: Apache-2.0
#include "base/SharedSegment.h"
#include "client/lib/Errors.h"
#include <lectern/FrameBuffer.h>

#include <sys/ipc.h>
#include <sys/shm.h>

#include <cerrno>

namespace lectern {

static_assert(FrameBuffer::sizeFor(FrameBuffer::MAX_SIDE, FrameBuffer::MAX_SIDE) <= INT32_MAX,
              "the size crosses the bus as a signed number");

namespace {

// The service takes no frame buffer with the identifier 0.
constexpr int LOWEST_IDENTIFIER = 1;

} // namespace

Result<FrameBuffer> FrameBuffer::create(int width, int height) {
    if (width < 1 || height < 1 || width > MAX_SIDE || height > MAX_SIDE) {
        return Error{Error::Kind::Argument,
                     "a view's sides must be 1 to " + std::to_string(MAX_SIDE) + " pixels, not " +
                         std::to_string(width) + "x" + std::to_string(height),
                     0,
                     {}};
    }
    const int identifier = makeSegment(LOWEST_IDENTIFIER, IPC_PRIVATE, sizeFor(width, height), 0600);
    if (identifier < 0) {
        return systemError("cannot create a frame buffer", errno);
    }
    Attachment attachment(identifier);
    const int failure = errno;
    shmctl(identifier, IPC_RMID, nullptr);
    if (!attachment.attached()) {
        return systemError("cannot attach the frame buffer", failure);
    }
    return FrameBuffer(width, height, identifier, std::move(attachment));
}

} // namespace lectern
