// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "base/PackedPixels.h"
#include "engine/host/Export.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace lectern::engine {

// Pixels that an engine paints and this process reads, in shared memory. The
// memory's size is fixed and sealed, so reading is safe whatever the engine
// does. The engine may change the pixels at any time.
class LECTERN_ENGINE_EXPORT SharedSurface {
public:
    static constexpr std::int64_t MAXIMUM_PIXELS = std::int64_t{1} << 26; // 256 MiB

    // REQUIRES: width, height >= 1, width * height <= MAXIMUM_PIXELS. Returns
    // null when the system has no memory for it.
    static std::unique_ptr<SharedSurface> make(std::int32_t width, std::int32_t height);
    ~SharedSurface();
    SharedSurface(const SharedSurface&) = delete;
    SharedSurface& operator=(const SharedSurface&) = delete;

    std::int32_t width() const { return mWidth; }
    std::int32_t height() const { return mHeight; }
    // The memory's file descriptor, to be sent to the engine. letGoMemory
    // closes it; the pixels stay mapped.
    int memory() const { return mMemory.get(); }
    void letGoMemory() { mMemory.reset(); }
    // Copies all pixels to the caller's width * height pixels.
    void copyTo(std::uint32_t* pixels) const;
    // Copies `count` pixels starting at pixel `first`. REQUIRES: they exist.
    void copyTo(std::uint32_t* pixels, std::size_t first, std::size_t count) const;

    // Gives the shared memory back to the system until unpack() restores the pixels, for
    // the engine too. REQUIRES for both: the engine paints nothing meanwhile.
    void pack();
    void unpack() { mPacked.unpack(mPixels); }

private:
    SharedSurface(FileDescriptor memory, std::uint32_t* pixels, std::int32_t width, std::int32_t height);
    std::size_t bytes() const;

    FileDescriptor mMemory;
    std::uint32_t* mPixels;
    PackedPixels mPacked;
    std::int32_t mWidth;
    std::int32_t mHeight;
};

} // namespace lectern::engine
