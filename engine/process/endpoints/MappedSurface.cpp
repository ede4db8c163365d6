// SPDX-License-Identifier: Apache-2.0
#include "engine/process/endpoints/MappedSurface.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <utility>

namespace lectern::engine {

std::optional<MappedSurface> MappedSurface::map(int memory, std::int32_t width, std::int32_t height) {
    struct stat file {};
    if (width < 1 || height < 1 || fstat(memory, &file) != 0) {
        return std::nullopt;
    }
    const std::size_t bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    if (file.st_size < 0 || static_cast<std::size_t>(file.st_size) < bytes) {
        return std::nullopt;
    }
    void* address = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, memory, 0);
    if (address == MAP_FAILED) {
        return std::nullopt;
    }
    return MappedSurface(address, bytes);
}

MappedSurface::MappedSurface(MappedSurface&& other) noexcept
    : mAddress(std::exchange(other.mAddress, nullptr)), mBytes(other.mBytes) {}

MappedSurface& MappedSurface::operator=(MappedSurface&& other) noexcept {
    std::swap(mAddress, other.mAddress);
    std::swap(mBytes, other.mBytes);
    return *this;
}

MappedSurface::~MappedSurface() {
    if (mAddress != nullptr) {
        munmap(mAddress, mBytes);
    }
}

void MappedSurface::discard() {
    madvise(mAddress, mBytes, MADV_REMOVE);
}

} // namespace lectern::engine
