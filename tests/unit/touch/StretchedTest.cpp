// SPDX-License-Identifier: Apache-2.0
#include "touch/Stretched.h"

#include <gtest/gtest.h>

#include <climits>
#include <numeric>
#include <vector>

namespace {

class StretchedTest : public testing::Test {
protected:
    StretchedTest() : picture(4, 2) { std::iota(picture.Pixels(), picture.Pixels() + 8, 1U); }

    // A frame of 4 x 3 pixels.
    std::vector<uint32_t> stretched(const CpRect& to) const {
        std::vector<uint32_t> frame(12, 0);
        copyStretched(picture, to, frame.data(), 4, 3);
        return frame;
    }

    CpPixmap picture; // 1 2 3 4
                      // 5 6 7 8
};

using Pixels = std::vector<uint32_t>;

TEST_F(StretchedTest, PicturesAreMagnifiedAndShrunk) {
    EXPECT_EQ(stretched(CpRect(0, 0, 4, 2)), (Pixels{1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 0, 0}));
    EXPECT_EQ(stretched(CpRect(0, 0, 2, 1)), (Pixels{6, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(stretched(CpRect(0, 0, 8, 4)), (Pixels{1, 1, 2, 2, 1, 1, 2, 2, 5, 5, 6, 6}));
}

TEST_F(StretchedTest, OnlyThePartInsideTheFrameIsCopied) {
    EXPECT_EQ(stretched(CpRect(-2, -1, 2, 1)), (Pixels{7, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(stretched(CpRect(3, 2, 7, 4)), (Pixels{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
    const Pixels nothing(12, 0);
    EXPECT_EQ(stretched(CpRect(4, 0, 8, 2)), nothing);
    EXPECT_EQ(stretched(CpRect(2, 2, 2, 2)), nothing);
    EXPECT_EQ(stretched(CpRect(INT_MAX - 1, 0, INT_MAX, 2)), nothing);
    EXPECT_EQ(stretched(CpRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX))[0], 7U) << "its middle is at 0";
}

TEST_F(StretchedTest, PictureWithoutPixelsIsNothing) {
    std::vector<uint32_t> frame(12, 0);
    copyStretched(CpPixmap(0, 0), CpRect(0, 0, 4, 3), frame.data(), 4, 3);
    EXPECT_EQ(frame, Pixels(12, 0));
}

} // namespace
