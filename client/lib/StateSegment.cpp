// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Errors.h"
#include <lectern/StateSegment.h>

#include <sys/shm.h>

#include <cerrno>
#include <cstring>

namespace lectern {

Result<StateSegment> StateSegment::attach(unsigned int identifier) {
    shmid_ds status{};
    Attachment attachment(static_cast<int>(identifier));
    if (!attachment.attached() || shmctl(static_cast<int>(identifier), IPC_STAT, &status) != 0) {
        return systemError("cannot attach the view's state; the service may be in another IPC namespace",
                           errno);
    }
    if (status.shm_segsz < sizeof(ViewState)) {
        return Error{Error::Kind::Bus, "the service returned a state segment that is too small", 0, {}};
    }
    return StateSegment(identifier, std::move(attachment));
}

ViewState StateSegment::read() const {
    ViewState state;
    std::memcpy(&state, mAttachment.address(), sizeof state);
    return state;
}

} // namespace lectern
