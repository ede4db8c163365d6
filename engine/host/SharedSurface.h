// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/FileDescriptor.h"
#include "engine/host/Export.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace lectern::engine {

// Pixels that an engine paints and this process reads, in memory that both
// map. Its size is fixed here and sealed: whatever the engine does, reading
// stays inside. The engine may change the pixels at any time.
class LECTERN_ENGINE_EXPORT SharedSurface {
public:
    static constexpr std::int64_t MAXIMUM_PIXELS = std::int64_t{1} << 26; // 256 MiB

    // REQUIRES: width, height >= 1, width * height <= MAXIMUM_PIXELS. Null when
    // the system has no memory for it.
    static std::unique_ptr<SharedSurface> make(std::int32_t width, std::int32_t height);
    ~SharedSurface();
    SharedSurface(const SharedSurface&) = delete;
    SharedSurface& operator=(const SharedSurface&) = delete;

    std::int32_t width() const { return mWidth; }
    std::int32_t height() const { return mHeight; }
    // The memory file, for the engine; closed by letGoMemory, the pixels stay.
    int memory() const { return mMemory.get(); }
    void letGoMemory() { mMemory.reset(); }
    // Copies all pixels to width * height of the caller's.
    void copyTo(std::uint32_t* pixels) const;
    // Copies `count` pixels from the `first` on, which must be there.
    void copyTo(std::uint32_t* pixels, std::size_t first, std::size_t count) const;

private:
    SharedSurface(FileDescriptor memory, const void* pixels, std::int32_t width, std::int32_t height);
    std::size_t bytes() const;

    FileDescriptor mMemory;
    const void* mPixels;
    std::int32_t mWidth;
    std::int32_t mHeight;
};

} // namespace lectern::engine
