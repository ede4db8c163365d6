// SPDX-License-Identifier: Apache-2.0
#include "word/HitBisection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace {

// Regions with one rectangle each, at the given rows.
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

// The defined steps in another form, without a limit on their number. Where
// they leave the entries or do not end, the result is the first entry at or
// above the key.
template<typename Step, typename Key>
int agreed(int count, unsigned int wanted, Step step, Key key) {
    int i = count / 2;
    for (int steps = 0; i > 0 && i < count && steps < 1000; ++steps) {
        const int next = step(i);
        if (next == i) {
            return i;
        }
        i = next;
    }
    if (i == 0) {
        return 0;
    }
    const auto isAtOrAbove = [&](int entry) { return key(entry) >= wanted; };
    for (i = 0; i < count - 1 && !isAtOrAbove(i); ++i) {
    }
    return i;
}

int right(int i, int count) {
    return (i + 1) + (count - (i + 1)) / 2;
}

TEST(RegionBisection, TakesTheAgreedSteps) {
    std::mt19937 random(11);
    const auto number = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 20000; ++round) {
        std::vector<int> rows(static_cast<size_t>(number(1, 12)));
        std::generate(rows.begin(), rows.end(), [&] { return number(0, 30); });
        if (number(0, 3) > 0) {
            std::sort(rows.begin(), rows.end());
        }
        const auto count = static_cast<int>(rows.size());
        const int y = number(0, 32);
        const auto row = [&rows](int i) { return rows[static_cast<size_t>(i)]; };
        const auto step = [&](int i) {
            if (row(i) >= y && y >= row(i - 1)) {
                return i;
            }
            return row(i) <= y ? right(i, count) : i / 2;
        };
        const auto key = [&](int i) { return static_cast<unsigned int>(row(i)); };
        ASSERT_EQ(Regions(rows).find(y), agreed(count, static_cast<unsigned int>(y), step, key))
            << "round " << round;
    }
}

TEST(ResultBisection, TakesTheAgreedSteps) {
    std::mt19937 random(12);
    const auto number = [&random](int low, int high) {
        return static_cast<unsigned int>(std::uniform_int_distribution<int>(low, high)(random));
    };
    for (int round = 0; round < 20000; ++round) {
        std::vector<wtg_find_result> results(number(1, 12));
        unsigned int position = 0;
        for (wtg_find_result& result : results) {
            position += number(0, 9);
            result = {0, position, position + number(0, 5)};
        }
        const auto count = static_cast<int>(results.size());
        const unsigned int wanted = number(0, 60);
        const auto result = [&results](int i) { return results[static_cast<size_t>(i)]; };
        const auto step = [&](int i) {
            const bool predecessorBelow = wanted >= result(i - 1).start;
            if (result(i).end >= wanted) {
                return predecessorBelow ? i : (i - 1) / 2;
            }
            return predecessorBelow ? right(i, count) : (i - 1) / 2;
        };
        const auto key = [&](int i) { return result(i).end; };
        ASSERT_EQ(findResult(wanted, results), agreed(count, wanted, step, key)) << "round " << round;
    }
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
    // From 5 of 10 to the left to 2, to the right to 6, to the left to 3 ...
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
