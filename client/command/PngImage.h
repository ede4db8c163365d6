// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstdio>

namespace lectern {

// Writes width * height pixels of 0xAARRGGBB, the alpha left out, as a PNG
// picture. False when the stream or the memory fails.
bool writePng(std::FILE* stream, const uint32_t* pixels, int width, int height);

} // namespace lectern
