// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include <lectern/FrameBuffer.h>
#include <lectern/Result.h>

namespace lectern {

// Writes what a view shows into a PNG file.
Failure writePicture(const std::string& path, const FrameBuffer& frame);

} // namespace lectern
