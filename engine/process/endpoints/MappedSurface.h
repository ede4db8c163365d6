// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace lectern::engine {

// Pixels in memory that the service shares with this process. Movable; unmapped
// on destruction.
class MappedSurface {
public:
    // Maps width * height pixels of the memory file, which stays the caller's.
    // Returns nothing when a size is below 1 or the file is too small.
    static std::optional<MappedSurface> map(int memory, std::int32_t width, std::int32_t height);

    MappedSurface(MappedSurface&& other) noexcept;
    MappedSurface& operator=(MappedSurface&& other) noexcept;
    ~MappedSurface();

    // Returns the memory to the system; the painted pixels are lost.
    void discard();

    std::uint32_t* pixels() const { return static_cast<std::uint32_t*>(mAddress); }

private:
    MappedSurface(void* address, std::size_t bytes) : mAddress(address), mBytes(bytes) {}

    void* mAddress;
    std::size_t mBytes;
};

} // namespace lectern::engine
