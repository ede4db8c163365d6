// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/slide/SlideDocument.h"
#include "engine/process/endpoints/DocumentEndpoint.h"

typedef struct _LecternIpcSlide LecternIpcSlide;

namespace lectern::engine {

// The Slide interface.
class SlideEndpoint : public DocumentEndpoint<SlideDocument, LecternIpcSlide> {
public:
    SlideEndpoint();
    ~SlideEndpoint();
    SlideEndpoint(const SlideEndpoint&) = delete;
    SlideEndpoint& operator=(const SlideEndpoint&) = delete;

    std::int32_t setSurface(int memory, std::int32_t width, std::int32_t height, std::int32_t pictures);
    std::int32_t releaseMemory();
    // Gets ready for the next paint when all calls have been answered.
    void prepareWhenIdle();

private:
    unsigned mIdle = 0; // the main loop's source for it
};

} // namespace lectern::engine
