// SPDX-License-Identifier: Apache-2.0
// Views of large screens, up to 4096 x 4096 pixels.
#include "tests/system/command/ServedCommandFixture.h"

#include <algorithm>
#include <ostream>

namespace {

struct ScreenSize {
    int width;
    int height;
    std::string text() const { return std::to_string(width) + "x" + std::to_string(height); }
};

void PrintTo(const ScreenSize& size, std::ostream* out) {
    *out << size.text();
}

class LargeViewTest : public CommandTest, public testing::WithParamInterface<ScreenSize> {
protected:
    static constexpr uint32_t WHITE = 0xFFFFFF;

    Picture shown(const std::string& file, std::vector<std::string> options = {}) {
        options.insert(options.end(), {"--size", GetParam().text()});
        return opened(file, options);
    }
    static bool has(const Picture& picture, uint32_t colour) {
        return std::find(picture.pixels.begin(), picture.pixels.end(), colour) != picture.pixels.end();
    }
    // True if any pixel of these rows is dark, as text is.
    static bool hasText(const Picture& picture, int firstRow, int lastRow) {
        const auto* pixels = picture.pixels.data();
        return std::any_of(pixels + firstRow * picture.width, pixels + lastRow * picture.width,
                           [](uint32_t pixel) { return (pixel & 0xFF) < 0x80; });
    }
    // True if `small` is the top left part of `large`.
    static bool begins(const Picture& large, const Picture& small) {
        for (int row = 0; row < small.height; ++row) {
            const auto* left = small.pixels.data() + row * small.width;
            if (!std::equal(left, left + small.width, large.pixels.data() + row * large.width)) {
                return false;
            }
        }
        return true;
    }
};

TEST_P(LargeViewTest, SheetBeginsWithItsFirstCellsAndHasNoGaps) {
    const Picture large = shown(sample("tour.xlsx"));
    EXPECT_TRUE(begins(large, opened(sample("tour.xlsx"), {"--size", "480x800"})));
    for (const uint32_t gap : {0xABCDEFU, 0xFEDCBAU}) { // the ground behind a sheet
        EXPECT_FALSE(has(large, gap));
    }
}

TEST_P(LargeViewTest, TextReachesTheLowerEdge) {
    constexpr int LINES = 40; // higher than a line and the space between paragraphs
    const Picture large = shown(longDocument(200));
    EXPECT_TRUE(hasText(large, 0, LINES));
    EXPECT_TRUE(hasText(large, large.height - LINES, large.height));
}

TEST_P(LargeViewTest, SlideFillsTheViewInOneDirection) {
    const Picture large = shown(sample("tour.pptx"));
    const auto at = [&large](int x, int y) { return large.pixels[static_cast<size_t>(y * large.width + x)]; };
    const int middleX = large.width / 2;
    const int middleY = large.height / 2;
    const bool fillsWidth = at(1, middleY) == WHITE && at(large.width - 2, middleY) == WHITE;
    const bool fillsHeight = at(middleX, 1) == WHITE && at(middleX, large.height - 2) == WHITE;
    EXPECT_TRUE(fillsWidth || fillsHeight);
}

INSTANTIATE_TEST_SUITE_P(Screens, LargeViewTest,
                         testing::Values(ScreenSize{1080, 1920}, ScreenSize{1920, 1080},
                                         ScreenSize{2160, 3840}, ScreenSize{4096, 4096}),
                         [](const auto& size) { return "Pixels" + size.param.text(); });

} // namespace
