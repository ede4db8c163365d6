// SPDX-License-Identifier: Apache-2.0
// A client's frame buffer with room before and after it, where only turned
// paints may write.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

class Frame {
public:
    static constexpr unsigned int UNTOUCHED = 0xDEADBEEFU;

    Frame(int width, int height)
        : mWidth(width), mSlack(static_cast<size_t>(width + height) * 4),
          mSize(static_cast<size_t>(width) * static_cast<size_t>(height)),
          mMemory(2 * mSlack + mSize, UNTOUCHED) {}

    unsigned int* pixels() { return mMemory.data() + mSlack; }
    unsigned int& operator[](long index) { return pixels()[index]; }
    unsigned int operator[](long index) const { return mMemory[mSlack + static_cast<size_t>(index)]; }
    unsigned int at(int column, int row) const {
        return mMemory.at(mSlack + static_cast<size_t>(row) * static_cast<size_t>(mWidth) +
                          static_cast<size_t>(column));
    }
    size_t size() const { return mSize; }
    void fill(unsigned int colour) { std::fill_n(pixels(), mSize, colour); }
    // Compares the frame and the room around it.
    bool operator==(const Frame& other) const { return mMemory == other.mMemory; }
    bool isUntouched() const {
        return std::all_of(mMemory.begin(), mMemory.end(), [](unsigned int p) { return p == UNTOUCHED; });
    }
    bool slackIsUntouched() const {
        const auto same = [](unsigned int p) { return p == UNTOUCHED; };
        return std::all_of(mMemory.begin(), mMemory.begin() + static_cast<long>(mSlack), same) &&
               std::all_of(mMemory.end() - static_cast<long>(mSlack), mMemory.end(), same);
    }

private:
    int mWidth;
    size_t mSlack;
    size_t mSize;
    std::vector<unsigned int> mMemory;
};
