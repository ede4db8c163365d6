// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/RowMap.h"

#include <cstdint>
#include <vector>

namespace lectern::engine {

// Pixels of the caller's, 0xAARRGGBB, row by row without gaps.
struct Surface {
    uint32_t* pixels = nullptr;
    int32_t width = 0;
    int32_t height = 0;

    uint32_t* row(int64_t y) const { return pixels + y * width; }
    friend bool operator==(const Surface&, const Surface&) = default;
};

// Paints rows of the laid-out text so that a row looks the same whatever it is
// painted with.
class TilePainter {
public:
    explicit TilePainter(lok::Document& painter) : mPainter(painter) {}

    // Paints rows [first, last) of the stretch that starts at row `top` of the
    // text: 0 <= first <= last <= surface.height. Rows behind the text are white.
    void paint(const RowMap& map, int64_t top, const Surface& surface, int32_t first, int32_t last);

private:
    void paintPage(const RowMap& map, const RowMap::Page& page, int64_t from, int64_t to, int32_t width,
                   uint32_t* target);

    lok::Document& mPainter;
    std::vector<uint32_t> mTile; // kept between paints
};

} // namespace lectern::engine
