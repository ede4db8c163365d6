// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstdio>

namespace lectern {

// Writes width * height pixels of 0xAARRGGBB as a PNG image without alpha.
// Returns false when writing fails or memory runs out.
bool writePng(std::FILE* stream, const uint32_t* pixels, int width, int height);

} // namespace lectern
