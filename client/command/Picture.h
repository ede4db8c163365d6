// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/FrameBuffer.h>
#include <lectern/Result.h>

#include <string>

namespace lectern {

// Writes a view's frame to a PNG file.
Failure writePicture(const std::string& path, const FrameBuffer& frame);

} // namespace lectern
