// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace lectern::gtk4 {

// Bands of equal height, from the top of a picture; the last one may be lower.
class FrameBands {
public:
    // Rows of a band: few enough that a caret's blink copies little, enough that a
    // picture of a telephone has a few dozen textures.
    static constexpr int ROWS = 64;

    explicit FrameBands(int height) : mHeight(height) {}

    int count() const { return (mHeight + ROWS - 1) / ROWS; }
    int top(int band) const { return band * ROWS; }
    int rows(int band) const { return top(band) + ROWS <= mHeight ? ROWS : mHeight - top(band); }

    // The bands from first up to but not including last.
    struct Range {
        int first;
        int last;
    };
    // Those that `height` rows from `y` touch; rows outside the picture do not count.
    Range touchedBy(int y, int height) const {
        const int from = y < 0 ? 0 : y;
        const int to = y + height > mHeight ? mHeight : y + height;
        return from < to ? Range{from / ROWS, (to + ROWS - 1) / ROWS} : Range{0, 0};
    }

private:
    int mHeight;
};

} // namespace lectern::gtk4
