// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>

namespace lectern::engine {

// Memory for pixels, straight from the system: it takes memory only where it is
// written, and all can be given back at once.
class PixelMemory {
public:
    PixelMemory() = default;
    ~PixelMemory();
    PixelMemory(const PixelMemory&) = delete;
    PixelMemory& operator=(const PixelMemory&) = delete;

    // Makes room for that many pixels. The pixels are lost if there was less.
    // Throws std::bad_alloc.
    void require(size_t pixels);
    // Gives the memory back to the system; the pixels become 0.
    void discard();
    uint32_t* pixels() const { return mPixels; }

private:
    size_t bytes() const { return mCount * sizeof *mPixels; }

    uint32_t* mPixels = nullptr;
    size_t mCount = 0;
};

} // namespace lectern::engine
