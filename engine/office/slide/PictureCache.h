// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/Surface.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

namespace lectern::engine {

// Keeps the slides painted last, so that going back to one costs a copy. Never
// holds more than `mostBytes` of pixels.
class PictureCache {
public:
    explicit PictureCache(size_t mostBytes) : mMostBytes(mostBytes) {}

    // Copies the slide as it was kept in the surface's size; false when it is
    // not there.
    bool copyTo(int32_t slide, const Surface& surface);
    // Keeps what the surface shows; what was used longest ago gives way. Larger
    // pictures than fit are not kept.
    void keep(int32_t slide, const Surface& surface);
    void clear();
    size_t bytes() const { return mBytes; }

private:
    struct Picture {
        int32_t slide;
        int32_t width;
        int32_t height;
        std::vector<uint32_t> pixels;
    };

    size_t mMostBytes;
    size_t mBytes = 0;
    std::list<Picture> mPictures; // the one used last comes first
};

} // namespace lectern::engine
