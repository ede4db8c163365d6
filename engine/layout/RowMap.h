// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/FlowPages.h"

#include <vector>

namespace lectern::engine {

// The rows of the whole text at a resolution: row r of a page lies exactly
// r * TWIPS_PER_INCH / dpi twips below the page's top, whatever is painted with it, and
// the pages follow each other without a gap.
class RowMap {
public:
    struct Page {
        int64_t firstRow;
        int64_t rows;
        int64_t left; // twips
        int64_t top;  // twips
    };

    RowMap() = default;
    RowMap(const std::vector<FlowPage>& pages, int32_t dpi);

    const std::vector<Page>& pages() const { return mPages; }
    int32_t dpi() const { return mDpi; }
    // Number of rows of the whole text; at least one after a layout.
    int64_t rows() const { return mPages.empty() ? 0 : mPages.back().firstRow + mPages.back().rows; }

    // The row that contains a place; at most the last row.
    int64_t rowOf(const FlowPlace& place) const;
    // The y coordinate in twips, in the suite's view, of the top of a row.
    // REQUIRES: 0 <= row < rows().
    int64_t viewY(int64_t row) const;
    const Page& pageOf(int64_t row) const;
    // The row, at most rows(), and the pixel column at a point of the suite's
    // view, given in twips.
    int64_t rowAt(int64_t viewY) const;
    int32_t columnAt(int64_t viewX, int64_t row) const;

private:
    std::vector<Page> mPages;
    int32_t mDpi = 1;
};

} // namespace lectern::engine
