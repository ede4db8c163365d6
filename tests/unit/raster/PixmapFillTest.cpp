// SPDX-License-Identifier: Apache-2.0
#include "raster/CpPixmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <set>
#include <vector>

namespace {

constexpr uint32_t HALF_RED = 0x80FF0000;
constexpr uint32_t BLENDED_RED = 0x007F0000; // HALF_RED over 0

// The indices that a fill of cleared pixels has changed.
std::set<long> changed(const CpPixmap& pixmap, long count) {
    std::set<long> indices;
    for (long i = 0; i < count; i++) {
        if (pixmap.Pixels()[i] != 0) {
            indices.insert(i);
        }
    }
    return indices;
}

// The area and the spare pixels of an owning pixmap.
long allPixels(const CpPixmap& pixmap) {
    return long{pixmap.Area()} + std::max(pixmap.Width(), pixmap.Height()) + 1;
}

TEST(Blend, ShiftsEachProductOnItsOwnAndKeepsAlpha) {
    uint32_t pixel = 0xFF000000;
    CpPixmap pixmap(&pixel, 1, 1);
    CpRect r(0, 0, 1, 1);
    pixmap.DrawAlphaRectOnPix(r, HALF_RED);
    EXPECT_EQ(pixel, 0xFF7F0000U);
    pixel = 0x12FFFFFF;
    pixmap.DrawAlphaRectOnPix(r, 0x00FFFFFF);
    EXPECT_EQ(pixel, 0x12FEFEFEU);
    pixmap.DrawAlphaRectOnPix(r, 0xFFFFFFFF);
    EXPECT_EQ(pixel, 0x12FEFEFEU);
    pixmap.DrawAlphaRectOnPix(r, 0xFF010203);
    EXPECT_EQ(pixel, 0x12000102U);
}

TEST(AlphaRect, IsCutToThePixmapForTheCallerToo) {
    CpPixmap pixmap(100, 50);
    CpRect r(-5, -5, 1000, 1000);
    EXPECT_EQ(pixmap.DrawAlphaRectOnPix(r, HALF_RED), 0);
    EXPECT_EQ(r.Left(), 0);
    EXPECT_EQ(r.Top(), 0);
    EXPECT_EQ(r.Right(), 100);
    EXPECT_EQ(r.Bottom(), 50);
    EXPECT_EQ(std::count(pixmap.Pixels(), pixmap.Pixels() + 5000, BLENDED_RED), 5000);
    EXPECT_EQ(changed(pixmap, allPixels(pixmap)).size(), 5000U);
}

TEST(AlphaRect, OutsideIsLeftAsItIs) {
    CpPixmap pixmap(100, 50);
    for (const CpRect& outside :
         {CpRect(101, 0, 200, 50), CpRect(0, 51, 100, 99), CpRect(-9, 0, 0, 50), CpRect(0, -9, 100, 0)}) {
        CpRect r = outside;
        EXPECT_EQ(pixmap.DrawAlphaRectOnPix(r, HALF_RED), 0);
        EXPECT_EQ(r.Left(), outside.Left());
        EXPECT_EQ(r.Top(), outside.Top());
        EXPECT_EQ(r.Right(), outside.Right());
        EXPECT_EQ(r.Bottom(), outside.Bottom());
    }
    EXPECT_TRUE(changed(pixmap, allPixels(pixmap)).empty());
}

TEST(AlphaRect, ThatTouchesTheFarEdgeIsCutToNothing) {
    CpPixmap pixmap(100, 50);
    CpRect r(100, 50, 120, 70);
    EXPECT_EQ(pixmap.DrawAlphaRectOnPix(r, HALF_RED), 0);
    EXPECT_EQ(r.Right(), 100);
    EXPECT_EQ(r.Bottom(), 50);
    EXPECT_TRUE(changed(pixmap, allPixels(pixmap)).empty());
}

TEST(AlphaTriangle, HasItsLegsAlongTheTopAndTheRight) {
    CpPixmap pixmap(8, 8);
    EXPECT_EQ(pixmap.DrawAlphaTriOnPix(2, 1, 3, HALF_RED), 0);
    EXPECT_EQ(changed(pixmap, allPixels(pixmap)), (std::set<long>{10, 11, 12, 19, 20, 28}));
}

TEST(AlphaTriangle, IsShortenedAtTheRightAndThenAtTheBottom) {
    CpPixmap atRight(8, 8);
    atRight.DrawAlphaTriOnPix(6, 0, 5, HALF_RED);
    EXPECT_EQ(changed(atRight, allPixels(atRight)), (std::set<long>{6, 7, 15}));
    CpPixmap atBottom(8, 8);
    atBottom.DrawAlphaTriOnPix(0, 6, 5, HALF_RED);
    EXPECT_EQ(changed(atBottom, allPixels(atBottom)), (std::set<long>{48, 49, 57}));
}

TEST(AlphaTriangle, IsNotShortenedAtTheLeftAndTheTop) {
    CpPixmap pixmap(8, 8);
    pixmap.DrawAlphaTriOnPix(-2, -2, 4, HALF_RED);
    EXPECT_EQ(changed(pixmap, allPixels(pixmap)), (std::set<long>{0, 1, 2, 3, 9, 10, 11, 18, 19, 27}));
}

TEST(AlphaTriangle, OutsideDrawsNothing) {
    CpPixmap pixmap(8, 8);
    pixmap.DrawAlphaTriOnPix(9, 0, 3, HALF_RED);
    pixmap.DrawAlphaTriOnPix(0, 9, 3, HALF_RED);
    pixmap.DrawAlphaTriOnPix(-3, 0, 3, HALF_RED);
    pixmap.DrawAlphaTriOnPix(0, -3, 3, HALF_RED);
    pixmap.DrawAlphaTriOnPix(8, 0, 3, HALF_RED);
    pixmap.DrawAlphaTriOnPix(0, 0, 0, HALF_RED);
    pixmap.DrawAlphaTriOnPix(1, 1, INT_MIN, HALF_RED);
    EXPECT_TRUE(changed(pixmap, allPixels(pixmap)).empty());
}

TEST(AlphaTriangle, OfAnyPlaceAndSizeStaysInTheMemory) {
    const int values[] = {INT_MIN, -1000000, -9, 0, 3, 8, 1000000, INT_MAX};
    for (const int x : values) {
        for (const int y : values) {
            for (const int size : values) {
                CpPixmap owning(8, 8);
                EXPECT_EQ(owning.DrawAlphaTriOnPix(x, y, size, HALF_RED), 0);
                std::vector<uint32_t> pixels(64);
                CpPixmap wrapping(pixels.data(), 8, 8);
                EXPECT_EQ(wrapping.DrawAlphaTriOnPix(x, y, size, HALF_RED), 0);
            }
        }
    }
}

TEST(VerticalLine, IncludesItsEndRow) {
    CpPixmap pixmap(4, 6);
    EXPECT_EQ(pixmap.DrawVerticalAlphaLine(1, 2, 4, HALF_RED), 0);
    EXPECT_EQ(changed(pixmap, allPixels(pixmap)), (std::set<long>{9, 13, 17}));
}

TEST(VerticalLine, ReachesRowHeightInTheSparePixels) {
    CpPixmap pixmap(4, 2);
    pixmap.DrawVerticalAlphaLine(4, -9, 99, HALF_RED);
    EXPECT_EQ(changed(pixmap, allPixels(pixmap)), (std::set<long>{4, 8, 12}));
}

TEST(VerticalLine, OutsideOrWithoutLengthDrawsNothing) {
    CpPixmap pixmap(4, 6);
    pixmap.DrawVerticalAlphaLine(5, 0, 5, HALF_RED);
    pixmap.DrawVerticalAlphaLine(-1, 0, 5, HALF_RED);
    pixmap.DrawVerticalAlphaLine(1, 3, 3, HALF_RED);
    pixmap.DrawVerticalAlphaLine(1, 4, 3, HALF_RED);
    pixmap.DrawVerticalAlphaLine(1, -5, -1, HALF_RED);
    pixmap.DrawVerticalAlphaLine(1, 7, 9, HALF_RED);
    EXPECT_TRUE(changed(pixmap, allPixels(pixmap)).empty());
}

TEST(HorizontalLine, EndsAtTheHeight) {
    CpPixmap pixmap(200, 100);
    EXPECT_EQ(pixmap.DrawHorizontalAlphaLine(0, 0, 150, HALF_RED), 0);
    const std::set<long> columns = changed(pixmap, allPixels(pixmap));
    EXPECT_EQ(columns.size(), 101U);
    EXPECT_EQ(*columns.begin(), 0);
    EXPECT_EQ(*columns.rbegin(), 100);
}

TEST(HorizontalLine, ReachesColumnHeightOfRowHeightInTheSparePixels) {
    CpPixmap tall(2, 5);
    tall.DrawHorizontalAlphaLine(5, -9, 99, HALF_RED);
    EXPECT_EQ(changed(tall, allPixels(tall)), (std::set<long>{10, 11, 12, 13, 14, 15}));
    CpPixmap wide(5, 2);
    wide.DrawHorizontalAlphaLine(2, 1, 99, HALF_RED);
    EXPECT_EQ(changed(wide, allPixels(wide)), (std::set<long>{11, 12}));
}

TEST(HorizontalLine, OutsideOrWithoutLengthDrawsNothing) {
    CpPixmap pixmap(9, 6);
    pixmap.DrawHorizontalAlphaLine(7, 0, 5, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(-1, 0, 5, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(1, 3, 3, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(1, 4, 3, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(1, -5, -1, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(1, 10, 12, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(1, 8, 9, HALF_RED); // already beyond the height
    EXPECT_TRUE(changed(pixmap, allPixels(pixmap)).empty());
}

TEST(Lines, OnAWrappedImageStopAtItsEnd) {
    std::vector<uint32_t> pixels(8 + 8);
    CpPixmap pixmap(pixels.data(), 4, 2);
    pixmap.DrawVerticalAlphaLine(4, 0, 99, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(2, 0, 99, HALF_RED);
    pixmap.DrawHorizontalAlphaLine(1, 3, 99, HALF_RED);
    EXPECT_EQ(pixels[4], BLENDED_RED);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0U), 15);
}

} // namespace
