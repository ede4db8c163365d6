// SPDX-License-Identifier: Apache-2.0
#include "client/glib/Tiles.h"

#include <xxhash.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace lectern {

namespace {

struct HashRelease {
    void operator()(XXH3_state_t* state) const { XXH3_freeState(state); }
};
using HashState = std::unique_ptr<XXH3_state_t, HashRelease>;

int tilesIn(int length) {
    return (length + Tiles::SIDE - 1) / Tiles::SIDE;
}

// A half-open range of tiles along one axis.
struct Range {
    int from = 0;
    int to = 0;
    void include(int tile) {
        from = to == 0 ? tile : std::min(from, tile);
        to = std::max(to, tile + 1);
    }
    int start() const { return from * Tiles::SIDE; }
    int length(int whole) const { return std::min(whole, to * Tiles::SIDE) - start(); }
};

} // namespace

touch::Rectangle Tiles::update(const uint32_t* pixels, int width, int height) {
    const int columns = tilesIn(width);
    const int rows = tilesIn(height);
    const bool first = mHashes.empty() || mWidth != width || mHeight != height;
    mWidth = width;
    mHeight = height;
    mHashes.resize(static_cast<size_t>(columns) * static_cast<size_t>(rows));
    const HashState state(XXH3_createState());
    Range across;
    Range down;
    size_t tile = 0;
    for (int row = 0; row < rows; ++row) {
        const int bottom = std::min(height, (row + 1) * SIDE);
        for (int column = 0; column < columns; ++column, ++tile) {
            const int left = column * SIDE;
            const size_t bytes = static_cast<size_t>(std::min(SIDE, width - left)) * sizeof(uint32_t);
            XXH3_64bits_reset(state.get());
            for (int y = row * SIDE; y < bottom; ++y) {
                XXH3_64bits_update(
                    state.get(), pixels + static_cast<size_t>(y) * static_cast<size_t>(width) + left, bytes);
            }
            const uint64_t hash = XXH3_64bits_digest(state.get());
            if (std::exchange(mHashes[tile], hash) != hash || first) {
                across.include(column);
                down.include(row);
            }
        }
    }
    if (across.to == 0) {
        return {};
    }
    return {across.start(), down.start(), across.length(width), down.length(height)};
}

} // namespace lectern
