// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"

#include <gio/gio.h>

#include <memory>
#include <string>

namespace lectern::viewer {

// A file in a folder of its own that only this user can enter. Both are removed with
// this object.
class PrivateFile {
public:
    // Null, with `error`, if the folder cannot be made. The file does not exist yet.
    static std::unique_ptr<PrivateFile> create(const std::string& name, GError** error);
    ~PrivateFile();
    PrivateFile(const PrivateFile&) = delete;
    PrivateFile& operator=(const PrivateFile&) = delete;

    GFile* file() const { return mFile.get(); }

private:
    explicit PrivateFile(GFile* file) : mFile(file) {}

    GLibHolder<GFile> mFile;
};

} // namespace lectern::viewer
