// SPDX-License-Identifier: Apache-2.0
#include "raster/CpPixmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <numeric>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

constexpr uint32_t UNTOUCHED = 0xDEADBEEF;

// A pixmap whose pixels are their own indices.
class Numbered : public CpPixmap {
public:
    Numbered(int width, int height) : CpPixmap(width, height) { std::iota(Pixels(), Pixels() + Area(), 0U); }
};

using Pixels = std::vector<uint32_t>;

TEST(Pixmap, HasNoSecondOwner) {
    static_assert(!std::is_copy_constructible_v<CpPixmap> && !std::is_copy_assignable_v<CpPixmap>);
    static_assert(!std::is_move_constructible_v<CpPixmap>);
}

TEST(Pixmap, TakesOverThePixelsOfAnother) {
    CpPixmap first(2, 3);
    {
        CpPixmap second(4, 1);
        second.Pixels()[3] = 7;
        const uint32_t* const pixels = second.Pixels();
        first = std::move(second);
        EXPECT_EQ(first.Pixels(), pixels);
    }
    EXPECT_EQ(first.Width(), 4);
    EXPECT_EQ(first.Height(), 1);
    EXPECT_EQ(first.Pixels()[3], 7U);
}

TEST(Pixmap, OwnsClearedPixelsOfItsSize) {
    const CpPixmap pixmap(30, 20);
    ASSERT_NE(pixmap.Pixels(), nullptr);
    EXPECT_EQ(Pixels(pixmap.Pixels(), pixmap.Pixels() + 600), Pixels(600, 0));
    EXPECT_EQ(pixmap.Left(), 0);
    EXPECT_EQ(pixmap.Top(), 0);
    EXPECT_EQ(CpPixmap::depth(), 4);
    EXPECT_EQ(pixmap.pixelsperline(), 120);
}

TEST(Pixmap, KeepsThePlaceOfItsRectangle) {
    const CpPixmap pixmap(CpRect(-7, 100, 3, 104));
    ASSERT_NE(pixmap.Pixels(), nullptr);
    EXPECT_EQ(pixmap.Left(), -7);
    EXPECT_EQ(pixmap.Top(), 100);
    EXPECT_EQ(pixmap.Width(), 10);
    EXPECT_EQ(pixmap.Height(), 4);
}

TEST(Pixmap, WithoutASizeHasNoPixels) {
    EXPECT_EQ(CpPixmap(0, 10).Pixels(), nullptr);
    EXPECT_EQ(CpPixmap(10, 0).Pixels(), nullptr);
    EXPECT_EQ(CpPixmap(-1, 10).Pixels(), nullptr);
    EXPECT_EQ(CpPixmap(-10, -10).Pixels(), nullptr);
    EXPECT_EQ(CpPixmap(CpRect(5, 5, 5, 9)).Pixels(), nullptr);
}

TEST(Pixmap, WithASizeBeyondIntHasNoPixels) {
    EXPECT_EQ(CpPixmap(65536, 65536).Pixels(), nullptr); // overflows to 0
    EXPECT_EQ(CpPixmap(65536, 65537).Pixels(), nullptr); // overflows to 65536
    EXPECT_EQ(CpPixmap(INT_MAX, INT_MAX).Pixels(), nullptr);
    EXPECT_EQ(CpPixmap(CpRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX)).Pixels(), nullptr);
}

TEST(Pixmap, NeverFreesWhatItWraps) {
    uint32_t pixels[6] = {1, 2, 3, 4, 5, 6};
    {
        CpPixmap pixmap(pixels, 3, 2);
        EXPECT_EQ(pixmap.Pixels(), pixels);
        pixmap.Pixels()[4] = 50;
    }
    EXPECT_EQ(pixels[4], 50U);
    EXPECT_EQ(pixels[5], 6U);
}

TEST(Pixmap, PrintsItsBounds) {
    testing::internal::CaptureStdout();
    CpPixmap(CpRect(3, 4, 13, 24)).Print("surface");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "surface: (3, 4) 10 x 20\n");
}

TEST(Pixmap, StoresBlueFirstAndAlphaLast) {
    CpPixmap pixmap(1, 1);
    pixmap.Pixels()[0] = 0xAA112233;
    const auto* bytes = reinterpret_cast<const unsigned char*>(pixmap.Pixels());
    EXPECT_EQ(bytes[0], 0x33);
    EXPECT_EQ(bytes[1], 0x22);
    EXPECT_EQ(bytes[2], 0x11);
    EXPECT_EQ(bytes[3], 0xAA);
}

TEST(CopyBits, PutsTheOverlapWhereTheWholeRectangleWouldHaveIt) {
    const Numbered pixmap(2, 2);
    Pixels dst(16, UNTOUCHED);
    pixmap.CopyBits(CpRect(-1, -1, 3, 3), dst.data());
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(dst, (Pixels{u, u, u, u, u, 0, 1, u, u, 2, 3, u, u, u, u, u}));
}

TEST(CopyBits, CountsSourceRowsFromThePixmapsOwnCorner) {
    CpPixmap pixmap(CpRect(100, 100, 102, 102));
    std::iota(pixmap.Pixels(), pixmap.Pixels() + 4, 10U);
    Pixels dst(2, UNTOUCHED);
    pixmap.CopyBits(CpRect(0, 1, 2, 2), dst.data());
    EXPECT_EQ(dst, (Pixels{12, 13}));
}

TEST(CopyBits, OfARectangleThatGoesOnForEverStopsAtThePixmap) {
    const Numbered pixmap(2, 3);
    Pixels dst(8, UNTOUCHED);
    pixmap.CopyBits(CpRect(0, 1, 2, INT_MAX), dst.data());
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(dst, (Pixels{2, 3, 4, 5, u, u, u, u}));
}

TEST(CopyBitsTo, StartsAtThePlacesCornerWithTheFirstKeptPixel) {
    const Numbered pixmap(2, 2);
    Pixels dst(20, UNTOUCHED);
    pixmap.CopyBitsTo(CpRect(-3, -3, 2, 2), dst.data(), CpRect(1, 2, 0, 0), 5);
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(dst, (Pixels{u, u, u, u, u, u, u, u, u, u, u, 0, 1, u, u, u, 2, 3, u, u}));
}

// 0 1 2
// 3 4 5
TEST(PickColumns, TakesTheColumnsOfOneRow) {
    const Numbered pixmap(20, 2);
    const std::vector<int> columns = {0, 0, 3, 4, 4, 7, 8, 9, 11, 19};
    std::vector<uint32_t> picked(11, UNTOUCHED);
    pixmap.PickColumns(1, columns.data(), picked.data(), columns.size());
    EXPECT_EQ(picked, (std::vector<uint32_t>{20, 20, 23, 24, 24, 27, 28, 29, 31, 39, UNTOUCHED}));
}

TEST(CopyTurned, IsTurnedExactlyAndStaysInsideTheImage) {
    const Numbered pixmap(3, 2); // 0 1 2
                                 // 3 4 5
    const auto turned = [&](void (CpPixmap::*copy)(uint32_t*) const) {
        std::vector<uint32_t> pixels(8, UNTOUCHED);
        (pixmap.*copy)(pixels.data() + 1);
        EXPECT_EQ(pixels.front(), UNTOUCHED);
        EXPECT_EQ(pixels.back(), UNTOUCHED);
        return std::vector<uint32_t>(pixels.begin() + 1, pixels.end() - 1);
    };
    EXPECT_EQ(turned(&CpPixmap::CopyTurnedLeft), (std::vector<uint32_t>{2, 5, 1, 4, 0, 3}));
    EXPECT_EQ(turned(&CpPixmap::CopyTurnedRight), (std::vector<uint32_t>{3, 0, 4, 1, 5, 2}));
    EXPECT_EQ(turned(&CpPixmap::CopyTurnedHalf), (std::vector<uint32_t>{5, 4, 3, 2, 1, 0}));
}

TEST(CopyBitsRotatedLeft, LeavesTheFirstRowAndEndsOneBeyondTheImage) {
    const Numbered pixmap(3, 2);
    Pixels dst(9, UNTOUCHED);
    pixmap.CopyBitsRotatedLeft(CpRect(0, 0, 3, 2), dst.data());
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(dst, (Pixels{u, u, 2, 5, 1, 4, 0, 3, u}));
}

TEST(CopyBitsRotatedRight, StartsAtColumnWidthOfRowsAsLongAsTheHeight) {
    const Numbered pixmap(3, 2);
    Pixels dst(9, UNTOUCHED);
    pixmap.CopyBitsRotatedRight(CpRect(0, 0, 3, 2), dst.data());
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(dst, (Pixels{u, u, 3, 0, 4, 1, 5, 2, u}));
}

TEST(CopyBitsRotated180, LandsOneRowAndOnePixelBeyondTheMirrorPosition) {
    const Numbered pixmap(3, 2);
    Pixels dst(11, UNTOUCHED);
    pixmap.CopyBitsRotated180(CpRect(0, 0, 3, 2), dst.data());
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(dst, (Pixels{u, u, u, u, 5, 4, 3, 2, 1, 0, u}));
}

TEST(ScaleCopyToFit, ToHalfTheSizeTakesEverySecondPixel) {
    const Numbered pixmap(100, 100);
    Pixels dst(2500, UNTOUCHED);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(0, 0, 50, 50), 50, 50);
    for (uint32_t y = 0; y < 50; y++) {
        for (uint32_t x = 0; x < 50; x++) {
            ASSERT_EQ(dst[50 * y + x], 200 * y + 2 * x);
        }
    }
}

TEST(ScaleCopyToFit, WithAnEmptyTargetDoesNothing) {
    const Numbered pixmap(4, 4);
    Pixels dst(16, UNTOUCHED);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(0, 0, 0, 4), 4, 4);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(0, 0, 4, 0), 4, 4);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(4, 4, 0, 0), 4, 4);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(0, 0, 4, 4), 0, 4);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(0, 0, 4, 4), 4, -1);
    EXPECT_EQ(dst, Pixels(16, UNTOUCHED));
}

TEST(ScaleCopyToFit, OfASourceOutsideThePixmapReadsNothingOutside) {
    const Numbered pixmap(4, 4);
    for (const CpRect& src : {CpRect(50, 50, 60, 60), CpRect(-60, -60, -50, -50), CpRect(0, 50, 4, 60),
                              CpRect(INT_MAX, INT_MAX, INT_MIN, INT_MIN), CpRect(3, 3, 1, 1)}) {
        Pixels dst(64, UNTOUCHED);
        pixmap.ScaleCopyToFit(src, dst.data(), CpRect(0, 0, 8, 8), 8, 8);
        for (const uint32_t pixel : dst) {
            EXPECT_TRUE(pixel == UNTOUCHED || pixel < 16) << pixel;
        }
    }
}

// 3 pixels drawn 3017 wide: in single precision the running sum passes the
// source's right edge, and the last row has nothing after it.
TEST(ScaleCopyToFit, StopsAtTheLastPixelWhenTheSumPassesTheEdge) {
    const Numbered pixmap(16673, 1);
    Pixels dst(3017, UNTOUCHED);
    pixmap.ScaleCopyToFit(CpRect(16670, 0, 16673, 1), dst.data(), CpRect(0, 0, 3017, 1), 3017, 1);
    EXPECT_EQ(dst.front(), 16670U);
    EXPECT_EQ(dst.back(), UNTOUCHED);
}

TEST(ScaleCopyToFit, OfARowThatSticksOutGoesOnInTheNextOne) {
    const Numbered pixmap(4, 2);
    Pixels dst(8, UNTOUCHED);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(2, 0, 6, 2), 4, 2);
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(dst, (Pixels{u, u, 0, 1, 2, 3, 4, 5}));
}

TEST(ScaleCopyToFit, ToATargetFarBeyondTheImageFillsTheImage) {
    const Numbered pixmap(4, 2);
    Pixels dst(50, UNTOUCHED);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(0, 0, 1 << 20, 1 << 20), 10, 5);
    EXPECT_EQ(dst, Pixels(50, 0));
    dst.assign(50, UNTOUCHED);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(-(1 << 19), -(1 << 19), 1 << 19, 1 << 19), 10, 5);
    // The first pixels of each target row land inside the image; the last row
    // that lands there wins.
    EXPECT_EQ(std::count(dst.begin(), dst.end(), UNTOUCHED), 0);
}

TEST(ScaleCopyToFit, ToATargetOfMillionsOfPixelsASideDoesNothing) {
    const Numbered pixmap(4, 2);
    Pixels dst(50, UNTOUCHED);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(0, 0, INT_MAX, 5), 10, 5);
    pixmap.ScaleCopyToFit(pixmap, dst.data(), CpRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX), 10, 5);
    EXPECT_EQ(dst, Pixels(50, UNTOUCHED));
}

TEST(ScaleCopyToFit, ToATargetAsideOfTheImageDoesNothing) {
    const Numbered pixmap(4, 2);
    Pixels dst(50, UNTOUCHED);
    for (const CpRect& aside : {CpRect(0, 5, 10, 9), CpRect(0, -4, 10, 0), CpRect(0, INT_MAX - 4, 4, INT_MAX),
                                CpRect(INT_MIN, 0, INT_MIN + 4, 4), CpRect(0, INT_MIN, 4, INT_MIN + 4)}) {
        pixmap.ScaleCopyToFit(pixmap, dst.data(), aside, 10, 5);
    }
    EXPECT_EQ(dst, Pixels(50, UNTOUCHED));
}

TEST(CopyFrame, PutsTheOverlapOnTheBackgroundTwice) {
    const Numbered pixmap(2, 2);
    Pixels frame(17, UNTOUCHED);
    Pixels last(17, UNTOUCHED);
    pixmap.CopyFrame(CpRect(-1, -1, 3, 3), 9, frame.data(), last.data());
    const uint32_t u = UNTOUCHED;
    EXPECT_EQ(frame, (Pixels{9, 9, 9, 9, 9, 0, 1, 9, 9, 2, 3, 9, 9, 9, 9, 9, u}));
    EXPECT_EQ(last, frame);
}

TEST(CopyFrame, PutsThePartInsideOnTheBackgroundOnce) {
    const Numbered pixmap(3, 2);
    Pixels frame(7, UNTOUCHED);
    pixmap.CopyFrame(CpRect(2, 0, 4, 3), 9, frame.data(), nullptr);
    EXPECT_EQ(frame, (Pixels{2, 9, 5, 9, 9, 9, UNTOUCHED}));
}

TEST(CopyFrame, OfNothingWritesNothing) {
    const Numbered pixmap(4, 4);
    for (const CpRect& s : {CpRect(), CpRect(3, 3, 1, 1), CpRect(INT_MAX, 0, INT_MIN, 4)}) {
        Pixels frame(1, UNTOUCHED);
        pixmap.CopyFrame(s, 9, frame.data(), frame.data());
        EXPECT_EQ(frame[0], UNTOUCHED);
    }
}

TEST(CopyFrame, WithoutAnOverlapIsAllBackground) {
    const Numbered pixmap(4, 4);
    const CpPixmap none(nullptr, 4, 4);
    for (const CpRect& s : {CpRect(4, 0, 6, 2), CpRect(-2, 0, 0, 2), CpRect(0, 4, 2, 6), CpRect(0, -2, 2, 0),
                            CpRect(INT_MAX - 2, INT_MAX - 2, INT_MAX, INT_MAX),
                            CpRect(INT_MIN, INT_MIN, INT_MIN + 2, INT_MIN + 2)}) {
        for (const CpPixmap* from : {static_cast<const CpPixmap*>(&pixmap), &none}) {
            Pixels frame(5, UNTOUCHED);
            from->CopyFrame(s, 9, frame.data(), nullptr);
            EXPECT_EQ(frame, (Pixels{9, 9, 9, 9, UNTOUCHED}));
        }
    }
}

class NoPixels : public testing::TestWithParam<CpRect> {};

TEST_P(NoPixels, LeaveEveryDestinationAlone) {
    const CpPixmap owning(0, 10);
    const CpPixmap wrapping(nullptr, 10, 10);
    const CpRect s = GetParam();
    for (const CpPixmap* pixmap : {&owning, &wrapping}) {
        Pixels dst(4, UNTOUCHED);
        pixmap->CopyBits(s, dst.data());
        pixmap->CopyBitsTo(s, dst.data(), s, 2);
        pixmap->CopyBitsRotatedLeft(s, dst.data());
        pixmap->CopyBitsRotatedRight(s, dst.data());
        pixmap->CopyBitsRotated180(s, dst.data());
        pixmap->ScaleCopyToFit(s, dst.data(), CpRect(0, 0, 2, 2), 2, 2);
        EXPECT_EQ(dst, Pixels(4, UNTOUCHED));
    }
}

TEST_P(NoPixels, TakeEveryFill) {
    CpPixmap owning(0, 10);
    CpPixmap inverted(-5, -5);
    CpPixmap wrapping(nullptr, 10, 10);
    for (CpPixmap* pixmap : {&owning, &inverted, &wrapping}) {
        CpRect r = GetParam();
        EXPECT_EQ(pixmap->DrawAlphaRectOnPix(r, 0x80FFFFFF), 0);
        EXPECT_EQ(pixmap->DrawAlphaTriOnPix(0, 0, 5, 0x80FFFFFF), 0);
        EXPECT_EQ(pixmap->DrawVerticalAlphaLine(0, 0, 10, 0x80FFFFFF), 0);
        EXPECT_EQ(pixmap->DrawHorizontalAlphaLine(0, 0, 10, 0x80FFFFFF), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Whichever, NoPixels,
                         testing::Values(CpRect(0, 0, 2, 2), CpRect(), CpRect(2, 2, 0, 0),
                                         CpRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX)));

// Rectangles that clip everything must not move the destination pointer either.
TEST(Copies, OfNothingWriteNothing) {
    const Numbered pixmap(4, 4);
    for (const CpRect& s : {CpRect(), CpRect(3, 3, 1, 1), CpRect(4, 0, 9, 4), CpRect(-9, 0, 0, 4),
                            CpRect(INT_MAX, 0, INT_MIN, 4), CpRect(INT_MIN, INT_MIN, 0, 0)}) {
        Pixels dst(1, UNTOUCHED);
        pixmap.CopyBits(s, dst.data());
        pixmap.CopyBitsTo(s, dst.data(), CpRect(INT_MAX, INT_MAX, 0, 0), INT_MAX);
        pixmap.CopyBitsRotatedLeft(s, dst.data());
        pixmap.CopyBitsRotatedRight(s, dst.data());
        pixmap.CopyBitsRotated180(s, dst.data());
        EXPECT_EQ(dst[0], UNTOUCHED);
    }
}

} // namespace
