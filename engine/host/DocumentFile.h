// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace lectern::engine {

// A file that can be given to an engine.
struct DocumentFile {
    std::string path; // absolute
    off_t bytes = 0;
};

// `path` as seen from this process's current folder, absolute and without links
// and detours on the way to its last name, which is kept.
LECTERN_ENGINE_EXPORT std::string absolutePath(const std::string& path);

// Looks whether `path` names a regular file that can be read; never waits, as
// opening a FIFO might. Gives MODULE_OK and the file, MODULE_NOT_FOUND,
// MODULE_NOT_A_FILE or MODULE_NOT_READABLE.
[[nodiscard]] LECTERN_ENGINE_EXPORT std::int32_t findDocumentFile(const std::string& path,
                                                                  DocumentFile& file);

} // namespace lectern::engine
