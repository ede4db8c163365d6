// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/PictureCache.h"

#include <algorithm>

namespace lectern::engine {

namespace {

size_t pixelsOf(const Surface& surface) {
    return static_cast<size_t>(surface.width) * static_cast<size_t>(surface.height);
}

} // namespace

bool PictureCache::copyTo(int32_t slide, const Surface& surface) {
    const auto found = std::find_if(mPictures.begin(), mPictures.end(), [&](const Picture& picture) {
        return picture.slide == slide && picture.width == surface.width && picture.height == surface.height;
    });
    if (found == mPictures.end())
        return false;
    mPictures.splice(mPictures.begin(), mPictures, found);
    std::copy(found->pixels.begin(), found->pixels.end(), surface.pixels);
    return true;
}

void PictureCache::keep(int32_t slide, const Surface& surface) {
    const size_t pixels = pixelsOf(surface);
    const size_t bytes = pixels * sizeof(uint32_t);
    if (bytes > mMostBytes)
        return;
    // The memory of the picture that gives way serves the new one when it fits.
    std::vector<uint32_t> memory;
    while (mBytes + bytes > mMostBytes) {
        mBytes -= mPictures.back().pixels.size() * sizeof(uint32_t);
        memory = std::move(mPictures.back().pixels);
        mPictures.pop_back();
    }
    if (memory.size() != pixels)
        memory = {};
    memory.assign(surface.pixels, surface.pixels + pixels);
    mPictures.push_front({slide, surface.width, surface.height, std::move(memory)});
    mBytes += bytes;
}

void PictureCache::clear() {
    mPictures.clear();
    mBytes = 0;
}

} // namespace lectern::engine
