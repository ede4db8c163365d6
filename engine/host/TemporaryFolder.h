// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"

#include <memory>
#include <string>

namespace lectern::engine {

// A folder of one engine's own, removed with all it holds when this goes. It
// is locked while this or a process that inherited the lock lives; an unlocked
// one was left behind.
class TemporaryFolder {
public:
    // Makes a folder "lectern-engine-XXXXXX" with mode 0700 under `parent`,
    // after removing those that were left behind there. Null when that is not
    // possible; the reason is in errno.
    static std::unique_ptr<TemporaryFolder> make(const std::string& parent);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return mPath; }
    // The folder, open and locked; close-on-exec.
    int lock() const { return mLock.get(); }

private:
    TemporaryFolder(std::string path, FileDescriptor lock);

    std::string mPath;
    FileDescriptor mLock;
};

} // namespace lectern::engine
