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

    std::int32_t setSurface(int memory, std::int32_t width, std::int32_t height, std::int32_t pictures);
    std::int32_t releaseMemory();
};

} // namespace lectern::engine
