// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"

#include <memory>
#include <string>

namespace lectern::engine {

// The temporary folder of one engine, removed with its contents on destruction.
// It is locked while this object or a process that inherited the lock lives; an
// unlocked folder is an abandoned one.
class TemporaryFolder {
public:
    // Creates a folder "lectern-engine-XXXXXX" with mode 0700 in `parent`,
    // after removing abandoned ones there. Returns null on failure, with the
    // reason in errno.
    static std::unique_ptr<TemporaryFolder> make(const std::string& parent);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return mPath; }
    // The open and locked folder; close-on-exec. Stays owned by this object.
    int lock() const { return mLock.get(); }

private:
    TemporaryFolder(std::string path, FileDescriptor lock);

    std::string mPath;
    FileDescriptor mLock;
};

} // namespace lectern::engine
