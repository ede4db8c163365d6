// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/Surface.h"

#include <algorithm>

namespace lectern::engine {

void fill(const Surface& surface, int64_t left, int64_t top, int64_t right, int64_t bottom, uint32_t colour) {
    const int64_t first = std::clamp<int64_t>(left, 0, surface.width);
    const int64_t last = std::clamp<int64_t>(right, first, surface.width);
    const int64_t end = std::min<int64_t>(bottom, surface.height);
    for (int64_t row = std::max<int64_t>(top, 0); row < end; ++row) {
        std::fill(surface.row(row) + first, surface.row(row) + last, colour);
    }
}

} // namespace lectern::engine
