// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/WordDocument.h"
#include "engine/process/DocumentService.h"

typedef struct _LecternIpcWord LecternIpcWord;

namespace lectern::engine {

// The Word interface.
class WordService : public DocumentService<WordDocument, LecternIpcWord> {
public:
    WordService();

    std::int32_t setSurface(int memory, std::int32_t width, std::int32_t height);
    // Whether the last operation wrote to the surface.
    std::tuple<gboolean> afterResult() { return {document() != nullptr && document()->takePainted()}; }
};

} // namespace lectern::engine
