// SPDX-License-Identifier: Apache-2.0
#include "engine/host/SharedSurface.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <system_error>
#include <thread>
#include <utility>

namespace lectern::engine {
namespace {

// Least number of pixels (2 MiB) that two threads copy: above it a second thread
// pays, because one processor does not use all of the memory's bandwidth.
constexpr std::size_t SHARED = std::size_t{512} * 1024;

void copyPixels(std::uint32_t* to, const std::uint32_t* from, std::size_t count) {
    const std::size_t half = count < SHARED ? 0 : count / 2;
    const auto copyHalf = [&] { std::memcpy(to, from, half * sizeof *to); };
    std::thread helper;
    try {
        if (half > 0) {
            helper = std::thread(copyHalf);
        }
    } catch (const std::system_error&) {
        copyHalf(); // the system cannot create a thread
    }
    std::memcpy(to + half, from + half, (count - half) * sizeof *to);
    if (helper.joinable()) {
        helper.join();
    }
}

} // namespace

std::unique_ptr<SharedSurface> SharedSurface::make(std::int32_t width, std::int32_t height) {
    const auto bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4;
    FileDescriptor memory(memfd_create("lectern-surface", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (!memory || ftruncate(memory.get(), static_cast<off_t>(bytes)) != 0 ||
        fcntl(memory.get(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) != 0) {
        return nullptr;
    }
    void* pixels = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, memory.get(), 0);
    if (pixels == MAP_FAILED) {
        return nullptr;
    }
    return std::unique_ptr<SharedSurface>(
        new SharedSurface(std::move(memory), static_cast<std::uint32_t*>(pixels), width, height));
}

SharedSurface::SharedSurface(FileDescriptor memory, std::uint32_t* pixels, std::int32_t width,
                             std::int32_t height)
    : mMemory(std::move(memory)), mPixels(pixels), mWidth(width), mHeight(height) {}

SharedSurface::~SharedSurface() {
    munmap(mPixels, bytes());
}

std::size_t SharedSurface::bytes() const {
    return static_cast<std::size_t>(mWidth) * static_cast<std::size_t>(mHeight) * 4;
}

void SharedSurface::copyTo(std::uint32_t* pixels) const {
    copyTo(pixels, 0, bytes() / sizeof *pixels);
}

void SharedSurface::copyTo(std::uint32_t* pixels, std::size_t first, std::size_t count) const {
    copyPixels(pixels, mPixels + first, count);
}

void SharedSurface::pack() {
    mPacked.pack(mPixels, bytes() / sizeof *mPixels, PackedPixels::Memory::SHARED);
}

} // namespace lectern::engine
