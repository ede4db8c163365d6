// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/FrameBuffer.h>
#include <lectern/Result.h>

#include <string>

namespace lectern {

// Writes what a view shows into a PNG file.
Failure writePicture(const std::string& path, const FrameBuffer& frame);

} // namespace lectern
