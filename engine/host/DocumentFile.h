// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "engine/host/Export.h"

#include <sys/stat.h>
#include <sys/types.h>

#include <cstdint>
#include <string>

namespace lectern::engine {

// A file that can be given to an engine.
struct DocumentFile {
    std::string path; // absolute
    off_t bytes = 0;
    FileDescriptor opened; // for reading
    // Which file it is, and when its contents were changed last.
    dev_t device = 0;
    ino_t inode = 0;
    timespec changed{};

    // Whether the other is this file, with the same contents.
    bool isSameAs(const DocumentFile& other) const {
        return device == other.device && inode == other.inode && bytes == other.bytes &&
               changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
    }
};

// Makes `path` absolute, starting from the current folder, and resolves links
// and ".." in all but the last name, which is kept.
LECTERN_ENGINE_EXPORT std::string absolutePath(const std::string& path);

// Checks whether `path` names a readable regular file; never blocks, as opening
// a FIFO could. Returns MODULE_OK and the file, MODULE_NOT_FOUND,
// MODULE_NOT_A_FILE or MODULE_NOT_READABLE.
[[nodiscard]] LECTERN_ENGINE_EXPORT std::int32_t findDocumentFile(const std::string& path,
                                                                  DocumentFile& file);

} // namespace lectern::engine
