// SPDX-License-Identifier: Apache-2.0
#include "client/command/Picture.h"

#include "client/command/OutputFile.h"
#include "client/command/PngImage.h"

namespace lectern {

Failure writePicture(const std::string& path, const FrameBuffer& frame) {
    return writeOutput(path, [&frame](std::FILE* stream) {
        return writePng(stream, frame.pixels(), frame.width(), frame.height());
    });
}

} // namespace lectern
