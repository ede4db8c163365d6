// SPDX-License-Identifier: Apache-2.0
#include "word/HitBisection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

// Regions of one rectangle each, at the given rows.
class Regions {
public:
    explicit Regions(const std::vector<int>& rows) {
        for (const int y : rows) {
            mRectangles.push_back({5, y, 30, 10});
        }
        for (const module_rect& rectangle : mRectangles) {
            mRegions.push_back({static_cast<uint32_t>(mRegions.size()), &rectangle, 1});
        }
    }
    int find(int y) const {
        return find_first_region_greater_than_eq(y, mRegions.data(), static_cast<int>(mRegions.size()));
    }

private:
    std::vector<module_rect> mRectangles;
    std::vector<wtg_find_region> mRegions;
};

int findResult(unsigned int position, const std::vector<wtg_find_result>& results) {
    return find_first_result_greater_than_eq(position, results.data(), static_cast<int>(results.size()));
}

TEST(RegionBisection, OneEntryIsAnsweredAtOnce) {
    EXPECT_EQ(Regions({100}).find(0), 0);
    EXPECT_EQ(Regions({100}).find(5000), 0);
}

TEST(RegionBisection, NoEntriesGiveZero) {
    EXPECT_EQ(find_first_region_greater_than_eq(3, nullptr, 0), 0);
    EXPECT_EQ(find_first_region_greater_than_eq(3, nullptr, 7), 0);
    EXPECT_EQ(find_first_region_greater_than_eq(3, nullptr, -7), 0);
}

TEST(RegionBisection, FindsTheEntryThatBracketsTheRow) {
    const Regions regions({10, 20, 30, 40});
    EXPECT_EQ(regions.find(25), 2);
    EXPECT_EQ(regions.find(30), 2);
    EXPECT_EQ(regions.find(20), 2) << "the middle one counts when its predecessor is the row itself";
    EXPECT_EQ(regions.find(15), 1);
    EXPECT_EQ(regions.find(35), 3);
}

TEST(RegionBisection, FirstEntryIsReachedOnlyByRunningOut) {
    EXPECT_EQ(Regions({10, 20, 30, 40}).find(5), 0);
    EXPECT_EQ(Regions({10, 20, 30, 40}).find(10), 1) << "its successor brackets its row too";
}

TEST(RegionBisection, PastTheLastEntryGivesTheLast) {
    EXPECT_EQ(Regions({10, 20, 30, 40}).find(41), 3);
    EXPECT_EQ(Regions({10, 20}).find(1000), 1);
}

TEST(RegionBisection, StepsThatCycleEndWithTheFirstAtOrAbove) {
    // From 5 of 10 left to 2, right to 6, left to 3 ...
    const Regions regions({0, 10, 20, 30, 40, 50, 60, 70, 80, 90});
    for (int y = -5; y <= 95; ++y) {
        const int i = regions.find(y);
        ASSERT_GE(i, 0);
        ASSERT_LE(i, 9);
        if (y > 0 && y <= 90 && y % 10 != 0) {
            EXPECT_EQ(i, y / 10 + 1) << "row " << y;
        }
    }
}

TEST(RegionBisection, EndsInsideTheArrayForAnyRowsAndAnyOrder) {
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::vector<int> rows(std::uniform_int_distribution<size_t>(1, 40)(random));
        std::generate(rows.begin(), rows.end(),
                      [&] { return std::uniform_int_distribution<int>(-50, 50)(random); });
        const int i = Regions(rows).find(std::uniform_int_distribution<int>(-60, 60)(random));
        ASSERT_GE(i, 0);
        ASSERT_LT(i, static_cast<int>(rows.size()));
    }
}

TEST(RegionBisection, ARegionWithoutRectanglesLiesAtRowZero) {
    const wtg_find_region regions[] = {{0, nullptr, 0}, {1, nullptr, 3}};
    EXPECT_EQ(find_first_region_greater_than_eq(0, regions, 2), 1);
}

TEST(ResultBisection, OneEntryIsAnsweredAtOnce) {
    EXPECT_EQ(findResult(500, {{0, 10, 15}}), 0);
    EXPECT_EQ(find_first_result_greater_than_eq(500, nullptr, 3), 0);
}

TEST(ResultBisection, AnswersWithTheHitOrItsSuccessor) {
    const std::vector<wtg_find_result> results = {{0, 10, 15}, {0, 20, 25}, {0, 30, 35}, {0, 40, 45}};
    EXPECT_EQ(findResult(10, results), 0);
    EXPECT_EQ(findResult(20, results), 2);
    EXPECT_EQ(findResult(22, results), 2);
    EXPECT_EQ(findResult(40, results), 3);
    EXPECT_EQ(findResult(0, results), 0);
    EXPECT_EQ(findResult(100, results), 3) << "beyond the last";
}

TEST(ResultBisection, EndsInsideTheArrayNearTheHitForAnyNumberOfHits) {
    for (unsigned int count = 1; count <= 60; ++count) {
        std::vector<wtg_find_result> results;
        for (unsigned int i = 0; i < count; ++i) {
            results.push_back({0, 100 * i + 10, 100 * i + 15});
        }
        for (unsigned int own = 0; own < count; ++own) {
            const int i = findResult(results[own].start, results);
            ASSERT_GE(i, static_cast<int>(own)) << count << " hits";
            ASSERT_LE(i, static_cast<int>(std::min(own + 1, count - 1))) << count << " hits";
        }
    }
}

} // namespace
