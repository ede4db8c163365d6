// SPDX-License-Identifier: Apache-2.0
#include "client/command/play/FrameFolder.h"

#include "client/command/OutputFile.h"
#include "client/command/Picture.h"
#include "client/lib/Errors.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace lectern::play {

Result<FrameFolder> FrameFolder::open(const std::string& path) {
    constexpr mode_t EVERYBODY = 0777; // reduced by the umask
    if (mkdir(path.c_str(), EVERYBODY) != 0 && errno != EEXIST) {
        return systemError("cannot create the folder '" + path + "'", errno);
    }
    FrameFolder folder(path);
    if (Failure failure = checkOutput(folder.mPath + "/0001.png")) {
        return *failure;
    }
    return folder;
}

Failure FrameFolder::write(const FrameBuffer& frame, const std::string& name) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "%04d", ++mCount);
    return writePicture(mPath + "/" + number.data() + (name.empty() ? "" : "-" + name) + ".png", frame);
}

} // namespace lectern::play
