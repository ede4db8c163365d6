// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/Tint.h"

#include <algorithm>

namespace lectern::engine {

uint32_t tinted(uint32_t pixel, const Colour& colour) {
    const auto channel = [&](int shift, uint8_t of) {
        return (((pixel >> shift & 0xFF) * of + 127) / 255) << shift;
    };
    return (pixel & 0xFF000000) | channel(16, colour[0]) | channel(8, colour[1]) | channel(0, colour[2]);
}

void tint(const Surface& surface, int64_t left, int64_t top, int64_t right, int64_t bottom,
          const Colour& colour) {
    const int64_t first = std::clamp<int64_t>(left, 0, surface.width);
    const int64_t last = std::clamp<int64_t>(right, first, surface.width);
    const int64_t end = std::min<int64_t>(bottom, surface.height);
    for (int64_t row = std::max<int64_t>(top, 0); row < end; ++row) {
        std::transform(surface.row(row) + first, surface.row(row) + last, surface.row(row) + first,
                       [&](uint32_t pixel) { return tinted(pixel, colour); });
    }
}

} // namespace lectern::engine
