// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Result.h>
#include <lectern/SharedMemory.h>

#include <cstdint>

#pragma GCC visibility push(default)

namespace lectern {

#pragma pack(push, 4)
// The view's state as the service keeps it: after each paint it is that of the
// picture painted. The last 8 bytes are the service's own.
struct ViewState {
    int32_t scrollX; // document pixels of the view's top left corner
    int32_t scrollY;
    double scale;
    int32_t scaleLevel; // double-tap step, 0 to 2
    int32_t reserved[2];
};
#pragma pack(pop)
static_assert(sizeof(ViewState) == 28);

// The segment that holds a view's state. It exists while somebody has it
// attached: a client that wants to come back to its place in a document keeps
// it, and gives its identifier to the next open.
class StateSegment {
public:
    static Result<StateSegment> attach(unsigned int identifier);

    unsigned int identifier() const { return mIdentifier; }
    ViewState read() const;

private:
    StateSegment(unsigned int identifier, Attachment attachment)
        : mIdentifier(identifier), mAttachment(std::move(attachment)) {}

    unsigned int mIdentifier;
    Attachment mAttachment;
};

} // namespace lectern

#pragma GCC visibility pop
