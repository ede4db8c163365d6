// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>
#include <lectern/SharedMemory.h>

#include <cstdint>

#pragma GCC visibility push(default)

namespace lectern {

#pragma pack(push, 4)
// The view's place in the document, in the format that the service writes: after a
// paint it belongs to the painted picture.
struct ViewState {
    int32_t scrollX; // the view's top left corner, in document pixels at this scale
    int32_t scrollY;
    double scale;       // zoom factor
    int32_t scaleLevel; // step of the double tap's zoom, 0 to 2
    // The service's own; clients must not change them.
    int32_t reserved;
    int32_t part; // the shown sheet or slide, from 0; has no meaning for texts
};
#pragma pack(pop)
static_assert(sizeof(ViewState) == 28);

// The shared-memory segment that holds a view's state. It exists while some process
// has it attached. To return to the same place, keep it attached and pass its
// identifier to the next open of the document. Can be moved.
class StateSegment {
public:
    // identifier: CreateReply::state. Errors: system (the segment cannot be attached),
    // bus (the segment is too small).
    static Result<StateSegment> attach(unsigned int identifier);

    unsigned int identifier() const { return mIdentifier; }
    // Returns a copy. The service may write at the same time; read after a paint.
    ViewState read() const;

private:
    StateSegment(unsigned int identifier, Attachment attachment)
        : mIdentifier(identifier), mAttachment(std::move(attachment)) {}

    unsigned int mIdentifier;
    Attachment mAttachment;
};

} // namespace lectern

#pragma GCC visibility pop
