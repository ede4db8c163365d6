// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/Tint.h"

#include <gtest/gtest.h>

#include <vector>

namespace lectern::engine::test {
namespace {

constexpr uint32_t BLACK = 0xFF000000;
constexpr Colour SKY = {128, 192, 255};
constexpr uint32_t SKY_PIXEL = 0xFF80C0FF;

// Four columns and three rows of a larger memory, all white.
struct Paper {
    static constexpr int32_t WIDTH = 4;
    static constexpr int32_t HEIGHT = 3;
    static constexpr int32_t MARGIN = 8; // pixels before and behind

    std::vector<uint32_t> memory = std::vector<uint32_t>(WIDTH * HEIGHT + 2 * MARGIN, WHITE);
    Surface surface{memory.data() + MARGIN, WIDTH, HEIGHT};

    // That the pixels of columns [left, right) of rows [top, bottom) have a
    // colour, and all others of the memory are white.
    void expectOnly(int32_t left, int32_t top, int32_t right, int32_t bottom, uint32_t colour) const {
        for (int32_t i = 0; i < static_cast<int32_t>(memory.size()); ++i) {
            const int32_t pixel = i - MARGIN;
            const bool inMemory = pixel >= 0 && pixel < WIDTH * HEIGHT;
            const int32_t x = pixel % WIDTH;
            const int32_t y = pixel / WIDTH;
            const bool inside = inMemory && x >= left && x < right && y >= top && y < bottom;
            EXPECT_EQ(memory[static_cast<size_t>(i)], inside ? colour : WHITE) << x << ", " << y;
        }
    }
};

TEST(TintTest, WhiteTakesTheColourAndBlackStays) {
    EXPECT_EQ(tinted(WHITE, SKY), SKY_PIXEL);
    EXPECT_EQ(tinted(BLACK, SKY), BLACK);
    EXPECT_EQ(tinted(0xFF808080, SKY), 0xFF406080);
}

TEST(TintTest, OpacityStays) {
    EXPECT_EQ(tinted(0x12FFFFFF, SKY), 0x1280C0FFU);
}

TEST(TintTest, IsLaidOverTheRectangleAlone) {
    const Paper paper;
    tint(paper.surface, 1, 1, 3, 2, SKY);
    paper.expectOnly(1, 1, 3, 2, SKY_PIXEL);
}

TEST(TintTest, IsCutAtTheEdgesOfTheSurface) {
    const Paper paper;
    tint(paper.surface, -5, 1, 2, 99, SKY);
    paper.expectOnly(0, 1, 2, 3, SKY_PIXEL);
    tint(paper.surface, 50, 0, 60, 3, SKY);
    tint(paper.surface, 0, -9, 4, -1, SKY);
    tint(paper.surface, 3, 0, 1, 3, SKY);
    paper.expectOnly(0, 1, 2, 3, SKY_PIXEL);
}

TEST(FillTest, PaintsTheRectangleAlone) {
    const Paper paper;
    fill(paper.surface, 1, 0, 4, 2, BLACK);
    paper.expectOnly(1, 0, 4, 2, BLACK);
}

TEST(FillTest, IsCutAtTheEdgesOfTheSurface) {
    const Paper paper;
    fill(paper.surface, 2, -7, 99, 1, BLACK);
    fill(paper.surface, 0, 3, 4, 9, BLACK);
    fill(paper.surface, -4, 0, 0, 3, BLACK);
    paper.expectOnly(2, 0, 4, 1, BLACK);
}

} // namespace
} // namespace lectern::engine::test
