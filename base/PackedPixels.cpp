// SPDX-License-Identifier: Apache-2.0
#include "base/PackedPixels.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>

namespace lectern {
namespace {

// The shortest run of equal pixels that takes less room as a run.
constexpr size_t SHORTEST_RUN = 3;

size_t runLength(const uint32_t* pixels, size_t count) {
    size_t length = 1;
    while (length < count && pixels[length] == pixels[0]) {
        length++;
    }
    return length;
}

// Returns nothing if the words would be more than half as many as the pixels.
std::vector<uint32_t> packed(const uint32_t* pixels, size_t count) {
    std::vector<uint32_t> words;
    size_t i = 0;
    while (i < count) {
        size_t run = runLength(pixels + i, count - i);
        if (run >= SHORTEST_RUN) {
            words.push_back(static_cast<uint32_t>(run * 2 + 1));
            words.push_back(pixels[i]);
            i += run;
        } else {
            const size_t first = i;
            while (i < count && run < SHORTEST_RUN) {
                i += run;
                run = i < count ? runLength(pixels + i, count - i) : 0;
            }
            words.push_back(static_cast<uint32_t>((i - first) * 2));
            words.insert(words.end(), pixels + first, pixels + i);
        }
        if (words.size() > count / 2) {
            return {};
        }
    }
    words.shrink_to_fit();
    return words;
}

// The pages that lie wholly inside.
void giveBackPages(uint32_t* pixels, size_t count, PackedPixels::Memory memory) {
    const auto page = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    const uintptr_t first = (reinterpret_cast<uintptr_t>(pixels) + page - 1) / page * page;
    const uintptr_t end = reinterpret_cast<uintptr_t>(pixels + count) / page * page;
    if (first < end) {
        // If this fails, the pixels stay, which only costs memory.
        madvise(reinterpret_cast<void*>(first), end - first,
                memory == PackedPixels::Memory::PRIVATE ? MADV_DONTNEED : MADV_REMOVE);
    }
}

} // namespace

void PackedPixels::pack(uint32_t* pixels, size_t count, Memory memory) {
    if (!empty()) {
        return;
    }
    mWords = packed(pixels, count);
    if (!empty()) {
        giveBackPages(pixels, count, memory);
    }
}

void PackedPixels::unpack(uint32_t* pixels) {
    for (size_t i = 0; i < mWords.size();) {
        const size_t length = mWords[i] / 2;
        const bool isRun = mWords[i] % 2 != 0;
        i++;
        if (isRun) {
            // Zeros are there already if the memory was given back, or was never written:
            // that stays without pages.
            const auto differs = [colour = mWords[i]](uint32_t pixel) { return pixel != colour; };
            if (mWords[i] != 0 || std::any_of(pixels, pixels + length, differs)) {
                std::fill_n(pixels, length, mWords[i]);
            }
            pixels += length;
        } else {
            pixels = std::copy_n(&mWords[i], length, pixels);
        }
        i += isRun ? 1 : length;
    }
    mWords = {};
}

} // namespace lectern
