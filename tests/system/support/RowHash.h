// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

// A hash of a row of pixels: FNV-1a over the colours.
inline uint64_t rowHash(const uint32_t* pixels, int width) {
    uint64_t value = 1469598103934665603ULL;
    for (int x = 0; x < width; ++x) {
        value = (value ^ (pixels[x] & 0xFFFFFFU)) * 1099511628211ULL;
    }
    return value;
}
