// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"
#include "engine/modules/DocumentHandle.h"
#include "engine/protocol/Vocabulary.h"

#include <cstdint>

namespace lectern::engine {

// Writes a document's file in another format to an open file. An engine of its own makes
// the export, so the document's engine keeps its layout, and nothing of it is waited for.
LECTERN_ENGINE_EXPORT std::int32_t exportWith(const Opening& opening, DocumentKind kind, ExportFormat format,
                                              int descriptor);

// Implements a module's export function.
template<class Handle>
std::int32_t exportDocument(void* doc, DocumentKind kind, std::int32_t format, std::int32_t descriptor) {
    const bool isFormat = format >= static_cast<std::int32_t>(ExportFormat::Pdf) &&
                          format <= static_cast<std::int32_t>(ExportFormat::Text);
    if (!isFormat || descriptor < 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return onHandle<Handle>(
        doc,
        [&](const Handle& handle) {
            return exportWith(handle.opening, kind, static_cast<ExportFormat>(format), descriptor);
        },
        WhenLost::StayLost);
}

} // namespace lectern::engine
