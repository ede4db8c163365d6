// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/WrappedRows.h"

namespace lectern::engine {

void WrappedRows::resize(int64_t width, int64_t room) {
    if (width == mWidth && room == mRoom) {
        return;
    }
    clear();
    mMemory.require(static_cast<size_t>(width * room));
    mWidth = width;
    mRoom = room;
}

std::optional<RowRange> WrappedRows::missing(const RowRange& window) {
    if (mPainted.contains(window)) {
        return std::nullopt;
    }
    if (mPainted.isEmpty() || !mPainted.overlaps(window)) {
        clear();
        return window;
    }
    if (window.first < mPainted.first) {
        mPainted.last = std::min(mPainted.last, window.first + mRoom);
        return RowRange{window.first, mPainted.first};
    }
    mPainted.first = std::max(mPainted.first, window.last - mRoom);
    return RowRange{mPainted.last, window.last};
}

std::optional<RowRange> WrappedRows::ahead(const RowRange& window, bool below, int64_t most, int64_t end) {
    RowRange rows;
    if (below) {
        rows = {mPainted.last, std::min({mPainted.last + most, window.first + mRoom, end})};
    } else {
        rows = {std::max({mPainted.first - most, window.last - mRoom, int64_t{0}}), mPainted.first};
    }
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    mPainted.first = std::max(mPainted.first, rows.last - mRoom);
    mPainted.last = std::min(mPainted.last, rows.first + mRoom);
    return rows;
}

} // namespace lectern::engine
