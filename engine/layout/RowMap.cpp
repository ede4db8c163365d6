// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/RowMap.h"

#include "engine/layout/Twips.h"

#include <algorithm>
#include <iterator>

namespace lectern::engine {

namespace {

int64_t divideUp(int64_t value, int64_t by) {
    return (value + by - 1) / by;
}

} // namespace

RowMap::RowMap(const std::vector<FlowPage>& pages, int32_t dpi) : mDpi(dpi) {
    int64_t row = 0;
    for (const FlowPage& page : pages) {
        const int64_t rows = std::max<int64_t>(divideUp(page.height * dpi, TWIPS_PER_INCH), 1);
        mPages.push_back({row, rows, page.left, page.top});
        row += rows;
    }
}

int64_t RowMap::rowOf(const FlowPlace& place) const {
    const Page& page = mPages[std::min(place.page, mPages.size() - 1)];
    return page.firstRow + std::clamp<int64_t>(place.y * mDpi / TWIPS_PER_INCH, 0, page.rows - 1);
}

const RowMap::Page& RowMap::pageOf(int64_t row) const {
    const auto next = std::upper_bound(mPages.begin(), mPages.end(), row,
                                       [](int64_t r, const Page& page) { return r < page.firstRow; });
    return next == mPages.begin() ? *next : *std::prev(next);
}

int64_t RowMap::viewY(int64_t row) const {
    const Page& page = pageOf(row);
    return page.top + divideUp((row - page.firstRow) * TWIPS_PER_INCH, mDpi);
}

int64_t RowMap::rowAt(int64_t viewY) const {
    const auto next = std::upper_bound(mPages.begin(), mPages.end(), viewY,
                                       [](int64_t place, const Page& page) { return place < page.top; });
    const Page& page = next == mPages.begin() ? *next : *std::prev(next);
    return page.firstRow + std::clamp<int64_t>((viewY - page.top) * mDpi / TWIPS_PER_INCH, 0, page.rows);
}

int32_t RowMap::columnAt(int64_t viewX, int64_t row) const {
    return static_cast<int32_t>((viewX - pageOf(row).left) * mDpi / TWIPS_PER_INCH);
}

} // namespace lectern::engine
