// SPDX-License-Identifier: Apache-2.0
// Shared by the programs that paint documents for viewing.
#pragma once

#include <png.h>

#include <chrono>
#include <cstdint>

namespace rendering {

// Milliseconds since an arbitrary moment.
inline double now() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Writes rows of 0xAARRGGBB without gaps. Returns false on failure.
inline bool writePng(const char* path, const uint32_t* pixels, int32_t width, int32_t height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_BGRA;
    return png_image_write_to_file(&image, path, 0, pixels, 0, nullptr) != 0;
}

} // namespace rendering
