// SPDX-License-Identifier: Apache-2.0
#include "engine/office/Tint.h"

#include <algorithm>

namespace lectern::engine {

namespace {

uint32_t product(uint32_t pixel, const Colour& colour) {
    const auto channel = [&](int shift, uint8_t of) {
        return (((pixel >> shift & 0xFF) * of + 127) / 255) << shift;
    };
    return (pixel & 0xFF000000) | channel(16, colour[0]) | channel(8, colour[1]) | channel(0, colour[2]);
}

} // namespace

void tint(const Surface& surface, int64_t top, const TextBox& box, int32_t first, int32_t last,
          const Colour& colour) {
    const int64_t from = std::max<int64_t>(box.top - top, first);
    const int64_t to = std::min<int64_t>(box.bottom - top, last);
    const int32_t left = std::clamp(box.left, 0, surface.width);
    const int32_t right = std::clamp(box.right, left, surface.width);
    for (int64_t row = from; row < to; ++row)
        std::transform(surface.row(row) + left, surface.row(row) + right, surface.row(row) + left,
                       [&](uint32_t pixel) { return product(pixel, colour); });
}

} // namespace lectern::engine
