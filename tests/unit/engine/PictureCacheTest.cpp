// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/PictureCache.h"

#include <gtest/gtest.h>

namespace lectern::engine {
namespace {

class PictureCacheTest : public testing::Test {
protected:
    Surface surfaceOf(std::int32_t width, std::int32_t height, std::uint32_t pixel = 0) {
        pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), pixel);
        return {pixels.data(), width, height};
    }
    bool has(std::int32_t slide) { return cache.copyTo(slide, surfaceOf(10, 10)); }

    PictureCache cache{1000}; // two pictures of 10 x 10
    std::vector<std::uint32_t> pixels;
};

TEST_F(PictureCacheTest, GivesBackWhatWasKeptInThatSizeOnly) {
    cache.keep(3, surfaceOf(10, 10, 0xFF123456));
    ASSERT_TRUE(has(3));
    EXPECT_EQ(pixels, std::vector<std::uint32_t>(100, 0xFF123456));
    EXPECT_FALSE(has(2));
    EXPECT_FALSE(cache.copyTo(3, surfaceOf(20, 5)));
}

TEST_F(PictureCacheTest, ForgetsWhatWasUsedLongestAgo) {
    cache.keep(0, surfaceOf(10, 10));
    cache.keep(1, surfaceOf(10, 10));
    ASSERT_TRUE(has(0));
    cache.keep(2, surfaceOf(10, 10));
    EXPECT_TRUE(has(0));
    EXPECT_FALSE(has(1));
    EXPECT_TRUE(has(2));
}

TEST_F(PictureCacheTest, NeverHoldsMoreThanItMay) {
    for (std::int32_t slide = 0; slide < 50; slide++) {
        cache.keep(slide, surfaceOf(1 + slide % 20, 12));
        EXPECT_LE(cache.bytes(), 1000U);
    }
    cache.keep(99, surfaceOf(20, 20));
    EXPECT_FALSE(cache.copyTo(99, surfaceOf(20, 20))) << "larger than all of it";
    cache.clear();
    EXPECT_EQ(cache.bytes(), 0U);
}

} // namespace
} // namespace lectern::engine
