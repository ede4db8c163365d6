// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Twips.h"

#include <cstdint>
#include <numeric>

namespace lectern::engine {

// The suite takes a tile's scale from the ratio of its pixels to its twips, and
// rounds to pixels from the tile's corner. Both come out the same for every tile
// only when tiles begin and end on whole twips: every so many pixels.
inline int64_t tileStep(int32_t dpi) {
    return dpi / std::gcd(int64_t{dpi}, TWIPS_PER_INCH);
}

// Twips of so many pixels, a multiple of the step.
inline int64_t tileTwips(int64_t pixels, int32_t dpi) {
    const int64_t step = tileStep(dpi);
    return pixels / step * (TWIPS_PER_INCH * step / dpi);
}

inline int64_t roundDown(int64_t value, int64_t step) {
    return value / step * step;
}

inline int64_t roundUp(int64_t value, int64_t step) {
    return (value + step - 1) / step * step;
}

} // namespace lectern::engine
