// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <cstdlib>

// White under the mark of the current hit, 0x40FFFF00, which lies over the
// highlight of every hit, 0x80C0FF.
inline bool isCurrentHit(uint32_t pixel) {
    const auto near = [&](int shift, int value) {
        return std::abs(static_cast<int>(pixel >> shift & 0xFF) - value) <= 2;
    };
    return near(16, 160) && near(8, 208) && near(0, 191);
}
