// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/PixelMemory.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace lectern::engine {

// Rows [first, last) of a large picture.
struct RowRange {
    int64_t first = 0;
    int64_t last = 0;

    int64_t count() const { return last - first; }
    bool isEmpty() const { return first >= last; }
    bool contains(const RowRange& other) const { return other.first >= first && other.last <= last; }
    bool overlaps(const RowRange& other) const { return first < other.last && other.first < last; }
    friend bool operator==(const RowRange&, const RowRange&) = default;
};

// The painted rows of a large picture around a window that moves up and down. Row
// y is kept at y mod room of the memory, so that no pixel moves when the window
// does.
//
// Painting goes part by part: missing() or ahead() names the next rows and drops
// those that they replace, and write() stores them.
class WrappedRows {
public:
    // Sets the pixels of a row and the number of rows that have room, each at
    // least 1. Drops all rows if that is not the present size.
    void resize(int64_t width, int64_t room);
    // Drops all rows.
    void clear() { mPainted = {}; }
    const RowRange& painted() const { return mPainted; }
    int64_t room() const { return mRoom; }

    // The next rows to paint of a window; nothing when all are painted. REQUIRES:
    // the window has at least one row, and not more than the room.
    std::optional<RowRange> missing(const RowRange& window);
    // Rows next to the painted ones, at most `most` of them, below or above, from
    // 0 to `end`; nothing when there is no room without dropping a row of the
    // window. REQUIRES: the window is painted.
    std::optional<RowRange> ahead(const RowRange& window, bool below, int64_t most, int64_t end);

    // Stores the rows that were named last, or those of them next to the painted ones; pixelsOf(y) returns
    // the pixels of one.
    template<class PixelsOf>
    void write(const RowRange& rows, PixelsOf pixelsOf) {
        for (int64_t y = rows.first; y < rows.last; ++y) {
            std::copy_n(pixelsOf(y), mWidth, at(y));
        }
        mPainted = mPainted.isEmpty()
                       ? rows
                       : RowRange{std::min(mPainted.first, rows.first), std::max(mPainted.last, rows.last)};
    }
    // The pixels of a painted row.
    const uint32_t* row(int64_t y) const { return at(y); }

private:
    uint32_t* at(int64_t y) const { return mMemory.pixels() + (y % mRoom + mRoom) % mRoom * mWidth; }

    PixelMemory mMemory;
    int64_t mWidth = 0;
    int64_t mRoom = 0;
    RowRange mPainted;
};

} // namespace lectern::engine
