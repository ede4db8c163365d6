// SPDX-License-Identifier: Apache-2.0
#include "engine/office/TemporaryCopy.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

namespace lectern::engine {

TemporaryCopy::TemporaryCopy(const std::string& directory, const std::string& extension,
                             const std::string& contents)
    : mPath(directory + "/lectern-XXXXXX" + extension) {
    const int fd = mkstemps(mPath.data(), static_cast<int>(extension.size()));
    if (fd < 0) {
        mPath.clear();
        return;
    }
    close(fd);
    std::ofstream out(mPath, std::ios::binary | std::ios::trunc);
    out << contents;
}

TemporaryCopy::~TemporaryCopy() {
    if (!mPath.empty()) {
        unlink(mPath.c_str());
    }
}

std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream contents;
    contents << in.rdbuf();
    return std::move(contents).str();
}

std::string extensionOf(const std::string& path) {
    return std::filesystem::path(path).extension().string();
}

} // namespace lectern::engine
