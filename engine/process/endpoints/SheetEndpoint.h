// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/sheet/SheetDocument.h"
#include "engine/process/endpoints/DocumentEndpoint.h"

typedef struct _LecternIpcSheet LecternIpcSheet;

namespace lectern::engine {

// Serves the Sheet interface.
class SheetEndpoint : public DocumentEndpoint<SheetDocument, LecternIpcSheet, SHEET_AREAS> {
public:
    SheetEndpoint();

    std::int32_t setSurface(std::int32_t area, int memory, std::int32_t width, std::int32_t height);
};

} // namespace lectern::engine
