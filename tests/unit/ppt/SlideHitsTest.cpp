// SPDX-License-Identifier: Apache-2.0
#include "ppt/SlideHits.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

namespace {

int slideAtOrAbove(int slide, const std::vector<int>& slides) {
    std::vector<sstg_find_info> infos;
    for (const int s : slides) {
        infos.push_back({s, 1, 0});
    }
    return find_first_slide_greater_than_eq(slide, infos.data(), static_cast<int>(infos.size()));
}

int regionAtOrAbove(int y, const std::vector<int>& rows) {
    std::vector<module_rect> rectangles;
    for (const int row : rows) {
        rectangles.push_back({0, row, 1, 1});
    }
    std::vector<sstg_find_region> regions;
    for (const module_rect& r : rectangles) {
        regions.push_back({&r, 1});
    }
    return find_first_region_greater_than_eq(y, regions.data(), static_cast<int>(regions.size()));
}

TEST(SlideHits, FindTheFirstAtOrAboveTheKey) {
    const std::vector<int> slides = {2, 5, 7, 9, 12};
    EXPECT_EQ(slideAtOrAbove(6, slides), 2);
    EXPECT_EQ(slideAtOrAbove(7, slides), 2);
    EXPECT_EQ(slideAtOrAbove(12, slides), 4);
    EXPECT_EQ(slideAtOrAbove(11, slides), 4);
    EXPECT_EQ(slideAtOrAbove(3, slides), 1);
    EXPECT_EQ(slideAtOrAbove(0, slides), 0);
    EXPECT_EQ(regionAtOrAbove(6, slides), 2);
    EXPECT_EQ(regionAtOrAbove(-100, slides), 0);
}

TEST(SlideHits, StepsAreTheAgreedOnes) {
    // For a key that both neighbours have, the first step ends at the later one.
    EXPECT_EQ(slideAtOrAbove(5, {1, 5, 5, 5, 9}), 2);
    // Entry 0 is never examined: with two entries and the first one's key the
    // result is the second.
    EXPECT_EQ(slideAtOrAbove(4, {4, 8}), 1);
    EXPECT_EQ(slideAtOrAbove(3, {4, 8}), 0);
    EXPECT_EQ(slideAtOrAbove(2, {2, 5, 7}), 1);
    // Out of order: an entry that has the key and follows a greater one leads
    // to the right.
    EXPECT_EQ(regionAtOrAbove(5, {9, 9, 5, 7}), 3);
}

TEST(SlideHits, BeyondTheLastKeyItIsTheLast) {
    EXPECT_EQ(slideAtOrAbove(100, {2, 5, 7, 9, 12}), 4);
    EXPECT_EQ(regionAtOrAbove(INT_MAX, {2, 5}), 1);
}

TEST(SlideHits, StepsThatCycleEndAtTheFirstAtOrAboveTheKey) {
    std::vector<int> slides;
    for (int i = 0; i < 100; ++i) {
        slides.push_back(10 * i);
    }
    for (int slide = 0; slide < 1000; ++slide) {
        const int found = slideAtOrAbove(slide, slides);
        ASSERT_GE(found, 0);
        ASSERT_LT(found, 100);
        ASSERT_LE(std::abs(found - (slide + 9) / 10), 1) << slide;
    }
}

TEST(SlideHits, FewEntriesAndNone) {
    EXPECT_EQ(slideAtOrAbove(5, {}), 0);
    EXPECT_EQ(slideAtOrAbove(5, {3}), 0);
    EXPECT_EQ(slideAtOrAbove(1, {3}), 0);
    EXPECT_EQ(find_first_slide_greater_than_eq(5, nullptr, 4), 0);
    EXPECT_EQ(find_first_region_greater_than_eq(5, nullptr, 4), 0);
    const sstg_find_info info{3, 1, 0};
    EXPECT_EQ(find_first_slide_greater_than_eq(5, &info, -4), 0);
}

TEST(SlideHits, RegionsWithoutRectanglesAreAtTheTop) {
    const sstg_find_region regions[] = {{nullptr, 3}, {nullptr, 0}, {nullptr, 1}};
    EXPECT_EQ(find_first_region_greater_than_eq(0, regions, 3), 1);
    EXPECT_EQ(find_first_region_greater_than_eq(5, regions, 3), 2);
}

TEST(SlideHits, UnorderedKeysEndInsideTheArray) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> key(-20, 20);
    for (int round = 0; round < 20000; ++round) {
        std::vector<int> slides(static_cast<size_t>(1 + round % 17));
        for (int& slide : slides) {
            slide = key(random);
        }
        const int found = slideAtOrAbove(key(random), slides);
        ASSERT_GE(found, 0);
        ASSERT_LT(found, static_cast<int>(slides.size()));
    }
}

} // namespace
