// SPDX-License-Identifier: Apache-2.0
#include "service/TouchDocuments.h"

#include "service/DocumentMethod.h"
#include "service/Limits.h"
#include "service/Opening.h"
#include "service/TouchKind.h"
#include "service/TouchParameters.h"

#include <cstdio>
#include <utility>

namespace {

void useFrame(Documents& document, const TouchSize& size, FrameBuffer frame) {
    document.shmid = size.shmid;
    document.size = size.size;
    document.buffer = frame.pixels();
    document.status = frame.status();
    document.frame = std::move(frame); // detaches the one before
}

// Null if the view has got its size, else why the frame buffer is refused.
const char* resizeTo(Documents& document, TouchView& view, const TouchSize& size,
                     std::optional<FrameBuffer> frame, const char* problem) REQUIRES(gRegistry) {
    if (!frame) {
        return problem;
    }
    if (const char* refusal = refusalOfResize(document, *frame, size.width, size.height)) {
        return refusal;
    }
    view.resize(size.width, size.height);
    useFrame(document, size, std::move(*frame));
    return nullptr;
}

} // namespace

bool cancel(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    TouchDocid parameters;
    if (!parameters.read(call)) {
        return true;
    }
    {
        RegistryLock lock;
        const auto docid = static_cast<unsigned int>(parameters.docid);
        if (lock.held() && IsOpening(docid)) {
            call.replyDone();
            gDocuments[docid].opening->giveUp();
            return true;
        }
    }
    withDocument<TouchView>(call, parameters.docid,
                            [&](TouchView& /*view*/) { call.replyError(NOTHING_THERE, NOTHING_THERE_TEXT); });
    return true;
}

bool resize(HubHandle* handle, HubMessage* message, void* /*data*/) {
    BusCall call(handle, message);
    TouchSize size;
    if (!size.read(call)) {
        return true;
    }
    const char* problem = nullptr;
    std::optional<FrameBuffer> frame =
        FrameBuffer::attach(size.shmid, size.width, size.height, size.size, problem);
    withDocument<TouchView>(call, size.docid, [&](TouchView& view) REQUIRES(gRegistry) {
        Documents& document = gDocuments[static_cast<size_t>(size.docid)];
        if (const char* refusal = resizeTo(document, view, size, std::move(frame), problem)) {
            std::fprintf(stderr, "Frame buffer refused: %s.\n", refusal);
            call.replyError(PARAM_FAILED, NO_PARAMETER);
        } else {
            call.replyDone();
        }
    });
    return true;
}
