// SPDX-License-Identifier: Apache-2.0
// Bounds of what clients can make the service hold: documents, memory for pictures and
// file descriptors. They are far above what applications need.
#pragma once

#include "service/Registry.h"

#include <cstddef>
#include <cstdint>
#include <string>

// A client is one connection to the bus. The memory of a document is that of its
// client's whole frame-buffer segment, of the last frame and of the view's surfaces.
struct Limits {
    uint64_t documents = 400;
    uint64_t documentsPerClient = 100;
    uint64_t bytes;          // half of the machine's memory, at least 1 GiB
    uint64_t bytesPerClient; // a quarter of it, at least 512 MiB

    // The environment variables LECTERN_MAX_DOCUMENTS, LECTERN_MAX_CLIENT_DOCUMENTS,
    // LECTERN_MAX_PICTURE_MIB and LECTERN_MAX_CLIENT_PICTURE_MIB change them: whole
    // numbers above 0.
    Limits();
};

// Those of this process. Tests change them.
Limits& limits();

// Whether a client may open one more document, with a frame of this size whose segment
// is attached. Returns null if so, else the reason why not.
const char* refusalOf(const std::string& client, const FrameBuffer& frame, int width, int height)
    REQUIRES(gRegistry);

// The same for another frame of a document that is open.
const char* refusalOfResize(const Documents& resized, const FrameBuffer& frame, int width, int height)
    REQUIRES(gRegistry);

// Raises the soft limit of file descriptors to the hard limit, or to 8,192 if that is
// lower: enough for Limits::documents, with 8 each, and low enough for programs that
// look at each possible descriptor.
void raiseDescriptorLimit();
