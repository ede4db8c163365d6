// SPDX-License-Identifier: Apache-2.0
#include "engine/proxy/Surface.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <utility>

namespace lectern::engine {

std::unique_ptr<Surface> Surface::make(std::int32_t width, std::int32_t height) {
    const auto bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    FileDescriptor memory(memfd_create("lectern-surface", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!memory || ftruncate(memory.get(), static_cast<off_t>(bytes)) != 0 ||
        fcntl(memory.get(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0) {
        return nullptr;
    }
    const void* pixels = mmap(nullptr, bytes, PROT_READ, MAP_SHARED, memory.get(), 0);
    if (pixels == MAP_FAILED) {
        return nullptr;
    }
    return std::unique_ptr<Surface>(new Surface(std::move(memory), pixels, width, height));
}

Surface::Surface(FileDescriptor memory, const void* pixels, std::int32_t width, std::int32_t height)
    : mMemory(std::move(memory)), mPixels(pixels), mWidth(width), mHeight(height) {}

Surface::~Surface() {
    munmap(const_cast<void*>(mPixels), bytes());
}

std::size_t Surface::bytes() const {
    return static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight) * 4;
}

void Surface::copyTo(std::uint32_t* pixels) const {
    std::memcpy(pixels, mPixels, bytes());
}

void Surface::copyTo(std::uint32_t* pixels, std::size_t first, std::size_t count) const {
    std::memcpy(pixels, static_cast<const std::uint32_t*>(mPixels) + first, count * sizeof *pixels);
}

} // namespace lectern::engine
