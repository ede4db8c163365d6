// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

namespace lectern::engine {

// A temporary file for the suite to read in place of a document. The destructor removes it.
class TemporaryCopy {
public:
    // Writes the contents to a new file in `directory`. The extension, with its dot, or
    // empty, tells the suite the kind of document.
    TemporaryCopy(const std::string& directory, const std::string& extension, const std::string& contents);
    ~TemporaryCopy();
    TemporaryCopy(const TemporaryCopy&) = delete;
    TemporaryCopy& operator=(const TemporaryCopy&) = delete;

    // Empty when no copy could be written.
    const std::string& path() const { return mPath; }

private:
    std::string mPath;
};

// All bytes of a file; empty when it cannot be read.
std::string bytesOf(const std::string& path);
// The extension of a path with its dot; empty when the path has none.
std::string extensionOf(const std::string& path);

} // namespace lectern::engine
