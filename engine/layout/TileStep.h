// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Twips.h"

#include <cstdint>
#include <numeric>

namespace lectern::engine {

// Number of pixels after which tile edges fall on whole twips. The suite derives
// a tile's scale from its pixels and twips and rounds from the tile's corner;
// both are equal for all tiles only when tiles start and end on such pixels.
inline int64_t tileStep(int32_t dpi) {
    return dpi / std::gcd(int64_t{dpi}, TWIPS_PER_INCH);
}

// Converts a number of pixels that is a multiple of the step to twips.
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
