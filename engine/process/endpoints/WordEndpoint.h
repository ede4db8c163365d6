// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/word/WordDocument.h"
#include "engine/process/endpoints/DocumentEndpoint.h"

typedef struct _LecternIpcWord LecternIpcWord;

namespace lectern::engine {

// Serves the Word interface.
class WordEndpoint : public DocumentEndpoint<WordDocument, LecternIpcWord> {
public:
    WordEndpoint();

    std::int32_t setSurface(int memory, std::int32_t width, std::int32_t height);
    // Whether the last operation wrote to the surface.
    std::tuple<gboolean> afterResult() { return {document() != nullptr && document()->takePainted()}; }
};

} // namespace lectern::engine
