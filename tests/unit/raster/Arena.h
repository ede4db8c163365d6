// SPDX-License-Identifier: Apache-2.0
// Memory for destinations with noise before and after them, so that a
// comparison of two arenas shows every stray write.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

inline std::vector<uint32_t> noise(size_t count, uint32_t seed) {
    std::mt19937 engine(seed);
    std::vector<uint32_t> pixels(count);
    for (uint32_t& pixel : pixels) {
        pixel = static_cast<uint32_t>(engine());
    }
    return pixels;
}

class Arena {
public:
    Arena(size_t count, size_t guard) : mPristine(noise(count + 2 * guard, 1)), mGuard(guard) { reset(); }

    void reset() { mPixels = mPristine; }
    uint32_t* start() { return mPixels.data() + mGuard; }
    bool operator==(const Arena& other) const { return mPixels == other.mPixels; }

private:
    std::vector<uint32_t> mPristine;
    std::vector<uint32_t> mPixels;
    size_t mGuard;
};
