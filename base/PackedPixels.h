// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lectern {

// Keeps a picture that nobody needs for a while in less memory. Runs of equal pixels
// become one pixel with a count; texts, tables and plain slides shrink to a few percent.
class PackedPixels {
public:
    // Whose memory the pixels are, which decides how it is given back.
    enum class Memory {
        PRIVATE, // of this process alone
        SHARED,  // a shared writable mapping of a memory file
    };

    // Packs the pixels, and gives the whole pages of their memory back to the system: the
    // pixels are undefined until unpack(). Does nothing if they are packed already, or if
    // packing would not save at least half of the memory.
    void pack(uint32_t* pixels, size_t count, Memory memory);
    // Restores the pixels that pack() took. Does nothing if there are none.
    void unpack(uint32_t* pixels);
    bool empty() const { return mWords.empty(); }

private:
    // A header for each run, its length * 2 + 1 with one pixel behind it, and for the
    // pixels between two runs, their number * 2 with those pixels behind it.
    std::vector<uint32_t> mWords;
};

} // namespace lectern
