// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/slide/SlideDocument.h"
#include "engine/process/endpoints/DocumentEndpoint.h"

typedef struct _LecternIpcSlide LecternIpcSlide;

namespace lectern::engine {

// Serves the Slide interface.
class SlideEndpoint : public DocumentEndpoint<SlideDocument, LecternIpcSlide> {
public:
    SlideEndpoint();
    ~SlideEndpoint();
    SlideEndpoint(const SlideEndpoint&) = delete;
    SlideEndpoint& operator=(const SlideEndpoint&) = delete;

    std::int32_t setSurface(int memory, std::int32_t width, std::int32_t height, std::int32_t pictures);
    std::int32_t releaseMemory();
    // Prepares the next paint as soon as no call is waiting.
    void prepareWhenIdle();

private:
    unsigned mIdle = 0; // id of the main loop's source for that, 0 without one
};

} // namespace lectern::engine
