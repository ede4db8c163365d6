// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/PixelMemory.h"

#include <sys/mman.h>

#include <new>

namespace lectern::engine {

PixelMemory::~PixelMemory() {
    if (mPixels != nullptr) {
        munmap(mPixels, bytes());
    }
}

void PixelMemory::require(size_t pixels) {
    if (pixels <= mCount) {
        return;
    }
    void* const memory =
        mmap(nullptr, pixels * sizeof *mPixels, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        throw std::bad_alloc();
    }
    // Large pages, where the system has any, save most of the page faults.
    madvise(memory, pixels * sizeof *mPixels, MADV_HUGEPAGE);
    if (mPixels != nullptr) {
        munmap(mPixels, bytes());
    }
    mPixels = static_cast<uint32_t*>(memory);
    mCount = pixels;
}

void PixelMemory::discard() {
    if (mPixels != nullptr) {
        madvise(mPixels, bytes(), MADV_DONTNEED);
    }
}

} // namespace lectern::engine
