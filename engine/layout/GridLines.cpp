// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/GridLines.h"

#include <algorithm>

namespace lectern::engine {

namespace {

constexpr int32_t POINTS_PER_INCH = 72;
// Points at the top and bottom of a row in which the borders of cells may lie.
constexpr int32_t BORDER_POINTS = 2;

// The visible tracks with a pixel among [from, from + length).
std::vector<int32_t> visibleTracks(const Tracks& tracks, int64_t from, int32_t length) {
    std::vector<int32_t> visible;
    const int64_t end = std::min(from + length, tracks.total());
    for (int64_t pixel = std::max<int64_t>(from, 0); pixel < end;) {
        visible.push_back(tracks.trackAt(pixel));
        pixel = tracks.position(visible.back() + 1);
    }
    return visible;
}

// The rows of pixels of a row of cells, without those of borders.
struct Band {
    int64_t top;
    int64_t bottom;

    Band(const SheetWindow& window, int32_t row, int32_t dpi) {
        const int64_t border = (BORDER_POINTS * dpi + POINTS_PER_INCH - 1) / POINTS_PER_INCH;
        const int64_t first = window.rows.position(row) - window.y;
        top = std::max<int64_t>(first + border, 0);
        bottom = std::min<int64_t>(first + window.rows.size(row) - border, window.surface.height);
    }
    // Fills and vertical lines have one colour from top to bottom, letters have not.
    bool hasInk(const Surface& surface, int64_t x) const {
        for (int64_t y = top + 1; y < bottom; ++y) {
            if (surface.row(y)[x] != surface.row(top)[x]) {
                return true;
            }
        }
        return false;
    }
    bool hasInkWithin(const Surface& surface, int64_t from, int64_t to) const {
        for (int64_t x = std::max<int64_t>(from, 0); x < std::min<int64_t>(to, surface.width); ++x) {
            if (hasInk(surface, x)) {
                return true;
            }
        }
        return false;
    }
};

} // namespace

std::vector<LinePart> crossedLines(const SheetWindow& window, int32_t dpi,
                                   const std::function<bool(int32_t column, int32_t row)>& isEmpty) {
    const std::vector<int32_t> columns = visibleTracks(window.columns, window.x, window.surface.width);
    std::vector<LinePart> parts;
    for (const int32_t row : visibleTracks(window.rows, window.y, window.surface.height)) {
        const Band band(window, row, dpi);
        // No space between words is wider than half the height of their row.
        const int64_t space = std::max<int64_t>(window.rows.size(row) / 2, 2);
        for (size_t i = 1; i < columns.size(); ++i) {
            if (!isEmpty(columns[i - 1], row) && !isEmpty(columns[i], row)) {
                continue;
            }
            const int64_t line = window.columns.position(columns[i]) - window.x;
            const int64_t before = std::min(space, window.columns.size(columns[i - 1]) - 1);
            const int64_t behind = std::min(space, window.columns.size(columns[i]) - 1);
            if (band.hasInkWithin(window.surface, line - before, line) &&
                band.hasInkWithin(window.surface, line + 1, line + 1 + behind)) {
                const int64_t top = window.rows.position(row) - window.y;
                parts.push_back({line, std::max<int64_t>(top, 0),
                                 std::min<int64_t>(top + window.rows.size(row), window.surface.height)});
            }
        }
    }
    return parts;
}

} // namespace lectern::engine
