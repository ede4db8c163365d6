// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstdint>

namespace lectern::engine {

// Pixels in the caller's memory, 0xAARRGGBB, row by row without gaps.
struct Surface {
    uint32_t* pixels = nullptr;
    int32_t width = 0;
    int32_t height = 0;

    uint32_t* row(int64_t y) const { return pixels + y * width; }
    friend bool operator==(const Surface&, const Surface&) = default;
};

// Largest side of a surface in pixels, and largest resolution in dpi.
constexpr int32_t MOST_PIXELS = 16384;
constexpr int32_t MOST_DPI = 2400;
constexpr int32_t DEFAULT_DPI = 72;

struct PixelRect {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// Red, green, blue.
using Colour = std::array<uint8_t, 3>;

constexpr uint32_t WHITE = 0xFFFFFFFF;

// Paints columns [left, right) of rows [top, bottom), or what of them lies on
// the surface, in one colour, 0xAARRGGBB.
void fill(const Surface& surface, int64_t left, int64_t top, int64_t right, int64_t bottom, uint32_t colour);

} // namespace lectern::engine
