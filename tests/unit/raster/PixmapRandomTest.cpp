// SPDX-License-Identifier: Apache-2.0
// Every operation compared with the plain loops, on thousands of rectangles
// that extend beyond the pixmap on all sides. Compares the whole memory.
#include "Arena.h"
#include "PlainLoops.h"
#include "raster/CpPixmap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr int CASES = 3000;
constexpr int MAX_SIDE = 130; // of pixmaps
constexpr int OVERHANG = 40;  // of rectangles

class RandomCase : public testing::Test {
protected:
    int number(int low, int high) {
        return low + static_cast<int>(mEngine() % static_cast<unsigned>(high - low + 1));
    }
    // Mostly overlapping rectangles, some of them empty or inverted.
    CpRect rectAround(int width, int height) {
        const CpRect r(number(-OVERHANG, width), number(-OVERHANG, height), number(0, width + OVERHANG),
                       number(0, height + OVERHANG));
        return number(0, 3) == 0 ? CpRect(0, 0, width, height) : r;
    }
    uint32_t colour() { return static_cast<uint32_t>(mEngine()); }

    std::mt19937 mEngine{20};
    std::vector<uint32_t> mSource = noise(MAX_SIDE * (MAX_SIDE + 2), 2);
};

// Copies a pixmap with both implementations into equal arenas.
class RandomCopy : public RandomCase {
protected:
    void expectSame(const std::string& what) {
        ASSERT_TRUE(mOurs == mPlain) << what << " differs";
        mOurs.reset();
        mPlain.reset();
    }

    Arena mOurs{50000, 8000};
    Arena mPlain{50000, 8000};
    Arena mSecond{50000, 8000};
};

std::string describe(const CpRect& s, int width, int height) {
    return "(" + std::to_string(s.Left()) + ", " + std::to_string(s.Top()) + ", " +
           std::to_string(s.Right()) + ", " + std::to_string(s.Bottom()) + ") of " + std::to_string(width) +
           " x " + std::to_string(height);
}

TEST_F(RandomCopy, WritesWhatThePlainLoopsWrite) {
    for (int i = 0; i < CASES; i++) {
        const int width = number(1, MAX_SIDE);
        const int height = number(1, MAX_SIDE);
        const CpPixmap pixmap(mSource.data(), width, height);
        const plain::Image image{mSource.data(), width, height};
        const CpRect s = rectAround(width, height);
        const std::string rect = describe(s, width, height);

        pixmap.CopyBits(s, mOurs.start());
        plain::copyBits(image, s, mPlain.start());
        expectSame("CopyBits " + rect);

        pixmap.CopyFrame(s, 0xFF123456, mOurs.start(), mSecond.start());
        EXPECT_TRUE(mSecond == mOurs) << "second copy of " << rect;
        mSecond.reset();
        plain::erase(s, 0xFF123456, mPlain.start());
        plain::copyBits(image, s, mPlain.start());
        expectSame("CopyFrame " + rect);

        const CpRect at(number(-20, 60), number(-20, 60), 0, 0);
        const int stride = number(1, 200);
        pixmap.CopyBitsTo(s, mOurs.start(), at, stride);
        plain::copyBitsTo(image, s, mPlain.start(), at, stride);
        expectSame("CopyBitsTo " + rect);

        pixmap.CopyBitsRotatedLeft(s, mOurs.start());
        plain::turnLeft(image, s, mPlain.start());
        expectSame("CopyBitsRotatedLeft " + rect);

        pixmap.CopyBitsRotatedRight(s, mOurs.start());
        plain::turnRight(image, s, mPlain.start());
        expectSame("CopyBitsRotatedRight " + rect);

        pixmap.CopyBitsRotated180(s, mOurs.start());
        plain::turnAround(image, s, mPlain.start());
        expectSame("CopyBitsRotated180 " + rect);
    }
}

TEST_F(RandomCopy, ScalesAsThePlainLoopsDo) {
    for (int i = 0; i < CASES; i++) {
        const int width = number(1, MAX_SIDE);
        const int height = number(1, MAX_SIDE);
        const CpPixmap pixmap(mSource.data(), width, height);
        const CpRect s = rectAround(width, height);
        const int dstWidth = number(1, 200);
        const int dstHeight = number(1, 200);
        const CpRect target = rectAround(dstWidth, dstHeight);
        pixmap.ScaleCopyToFit(s, mOurs.start(), target, dstWidth, dstHeight);
        plain::scaleToFit({mSource.data(), width, height}, s, mPlain.start(), target, dstWidth, dstHeight);
        expectSame("ScaleCopyToFit " + describe(s, width, height) + " to " +
                   describe(target, dstWidth, dstHeight));
    }
}

TEST_F(RandomCopy, ScalesSmallSourcesFarToTheRightAsThePlainLoopsDo) {
    const std::vector<uint32_t> wide = noise(40000, 3);
    for (int i = 0; i < CASES / 10; i++) {
        const CpPixmap pixmap(const_cast<uint32_t*>(wide.data()), 20000, 2);
        const int left = number(16000, 19990);
        const CpRect s(left, 0, left + number(1, 9), number(1, 2));
        const CpRect target(0, 0, number(1000, 4000), number(1, 9));
        pixmap.ScaleCopyToFit(s, mOurs.start(), target, target.Right(), target.Bottom());
        plain::scaleToFit({wide.data(), 20000, 2}, s, mPlain.start(), target, target.Right(),
                          target.Bottom());
        expectSame("ScaleCopyToFit " + describe(s, 20000, 2) + " to " + std::to_string(target.Right()));
    }
}

// Fills a pixmap that wraps an arena or owns its memory.
class RandomFill : public RandomCase {
protected:
    void fillBoth(CpPixmap& pixmap, const plain::Canvas& canvas) {
        const int width = pixmap.Width();
        const int height = pixmap.Height();
        CpRect ours = rectAround(width, height);
        CpRect theirs = ours;
        const uint32_t shade = colour();
        EXPECT_EQ(pixmap.DrawAlphaRectOnPix(ours, shade), 0);
        plain::alphaRect(canvas, theirs, shade);
        EXPECT_EQ(describe(ours, width, height), describe(theirs, width, height));
        const int x = number(-OVERHANG, width + OVERHANG);
        const int y = number(-OVERHANG, height + OVERHANG);
        const int end = number(-OVERHANG, MAX_SIDE + OVERHANG);
        EXPECT_EQ(pixmap.DrawAlphaTriOnPix(x, y, end, shade), 0);
        plain::alphaTriangle(canvas, x, y, end, shade);
        EXPECT_EQ(pixmap.DrawVerticalAlphaLine(x, y, end, shade), 0);
        plain::verticalLine(canvas, x, y, end, shade);
        EXPECT_EQ(pixmap.DrawHorizontalAlphaLine(y, x, end, shade), 0);
        plain::horizontalLine(canvas, y, x, end, shade);
    }
};

TEST_F(RandomFill, OfAWrappedImageChangesNothingBehindIt) {
    Arena ours(MAX_SIDE * MAX_SIDE, 1000);
    Arena theirs(MAX_SIDE * MAX_SIDE, 1000);
    for (int i = 0; i < CASES; i++) {
        const int width = number(1, MAX_SIDE);
        const int height = number(1, MAX_SIDE);
        CpPixmap pixmap(ours.start(), width, height);
        fillBoth(pixmap, {theirs.start(), width, height, static_cast<long long>(width) * height});
        ASSERT_TRUE(ours == theirs) << width << " x " << height << ", case " << i;
    }
}

TEST_F(RandomFill, OfAnOwnedImageReachesTheSpareRowAndColumn) {
    for (int i = 0; i < CASES; i++) {
        CpPixmap pixmap(number(1, MAX_SIDE), number(1, MAX_SIDE));
        const size_t count = static_cast<size_t>(pixmap.Area()) +
                             static_cast<size_t>(std::max(pixmap.Width(), pixmap.Height())) + 1;
        std::copy_n(mSource.begin(), count, pixmap.Pixels());
        std::vector<uint32_t> theirs(mSource.begin(), mSource.begin() + static_cast<ptrdiff_t>(count));
        fillBoth(pixmap, {theirs.data(), pixmap.Width(), pixmap.Height(), static_cast<long long>(count)});
        ASSERT_TRUE(std::equal(theirs.begin(), theirs.end(), pixmap.Pixels()))
            << pixmap.Width() << " x " << pixmap.Height() << ", case " << i;
    }
}

} // namespace
