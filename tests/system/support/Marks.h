// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstdlib>

inline bool isNear(uint32_t pixel, int red, int green, int blue) {
    const auto near = [&](int shift, int value) {
        return std::abs(static_cast<int>(pixel >> shift & 0xFF) - value) <= 2;
    };
    return near(16, red) && near(8, green) && near(0, blue);
}

// The colour of white under the current hit's mark, which lies over the
// highlight of all hits, 0x80C0FF: 0x40FFFF00 in a word-processing document,
inline bool isCurrentHit(uint32_t pixel) {
    return isNear(pixel, 160, 208, 191);
}
// and 0x40FF0000 in a presentation.
inline bool isCurrentSlideHit(uint32_t pixel) {
    return isNear(pixel, 158, 143, 190);
}
