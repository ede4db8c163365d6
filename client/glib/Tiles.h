// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/TouchCalls.h>

#include <cstdint>
#include <vector>

namespace lectern {

// Finds the part of a picture that has changed, by the hashes of its square tiles: it
// needs no copy of the picture before.
class Tiles {
public:
    static constexpr int SIDE = 64; // pixels

    // Returns the smallest rectangle of tiles that covers all changes since the last
    // call, cut at the picture's edges: all of it for the first picture and after a change
    // of size, and an empty one at (0, 0) without changes.
    touch::Rectangle update(const uint32_t* pixels, int width, int height);
    // Forgets the picture.
    void clear() { mHashes.clear(); }

private:
    int mWidth = 0;
    int mHeight = 0;
    std::vector<uint64_t> mHashes; // row by row
};

} // namespace lectern
