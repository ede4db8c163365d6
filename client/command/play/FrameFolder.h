// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/FrameBuffer.h>
#include <lectern/Result.h>

#include <string>

namespace lectern::play {

// A folder of pictures, numbered in the order of writing: 0001.png,
// 0002-name.png and so on. Existing pictures with these names are replaced.
class FrameFolder {
public:
    // Creates the folder if it does not exist; its parent must exist.
    static Result<FrameFolder> open(const std::string& path);

    Failure write(const FrameBuffer& frame, const std::string& name);

private:
    explicit FrameFolder(std::string path) : mPath(std::move(path)) {}

    std::string mPath;
    int mCount = 0;
};

} // namespace lectern::play
