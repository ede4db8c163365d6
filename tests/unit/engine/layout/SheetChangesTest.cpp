// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/SheetChanges.h"

#include <gtest/gtest.h>

namespace lectern::engine {
namespace {

using Sorts = std::vector<SheetChanges::Sort>;
using Visibilities = std::vector<SheetChanges::Visibility>;

TEST(SheetChanges, KeepTheLastSortByEachColumn) {
    SheetChanges changes;
    changes.sort({1, true});
    changes.sort({2, false});
    changes.sort({1, false});
    EXPECT_EQ(changes.sorts(), (Sorts{{2, false}, {1, false}}));
}

TEST(SheetChanges, KeepTheLastSizeOfEachTrack) {
    SheetChanges changes;
    for (int twips = 1; twips <= 100; twips++) {
        changes.resize(Axis::Rows, 3, twips);
    }
    EXPECT_EQ(changes.sizes(Axis::Rows), (std::map<std::int32_t, std::int32_t>{{3, 100}}));
    EXPECT_TRUE(changes.sizes(Axis::Columns).empty());
}

TEST(SheetChanges, JoinRunsOfTracksThatAreShownOrHidden) {
    SheetChanges changes;
    changes.show(Axis::Columns, {4, 6}, false);
    changes.show(Axis::Columns, {7, 9}, false);
    EXPECT_EQ(changes.visibilities(Axis::Columns), (Visibilities{{{4, 9}, false}}));
    changes.show(Axis::Columns, {5, 5}, true);
    EXPECT_EQ(changes.visibilities(Axis::Columns),
              (Visibilities{{{4, 4}, false}, {{5, 5}, true}, {{6, 9}, false}}));
    changes.show(Axis::Columns, {0, 20}, true);
    EXPECT_EQ(changes.visibilities(Axis::Columns), (Visibilities{{{0, 20}, true}}));
    EXPECT_TRUE(changes.visibilities(Axis::Rows).empty());
}

TEST(SheetChanges, AgreeWithASimpleModel) {
    SheetChanges changes;
    std::vector<int> model(40, -1);
    unsigned random = 1;
    const auto next = [&random](unsigned below) {
        random = random * 1'103'515'245 + 12'345;
        return static_cast<std::int32_t>((random >> 16) % below);
    };
    for (int step = 0; step < 500; step++) {
        const std::int32_t first = next(40);
        const std::int32_t last = first + next(static_cast<unsigned>(40 - first));
        const bool visible = next(2) == 1;
        changes.show(Axis::Rows, {first, last}, visible);
        std::fill(model.begin() + first, model.begin() + last + 1, visible ? 1 : 0);
        std::vector<int> shown(40, -1);
        for (const SheetChanges::Visibility& one : changes.visibilities(Axis::Rows)) {
            std::fill(shown.begin() + one.run.first, shown.begin() + one.run.last + 1, one.visible ? 1 : 0);
        }
        ASSERT_EQ(shown, model) << "step " << step;
    }
}

TEST(SheetChanges, SurviveAsNumbers) {
    SheetChanges changes;
    changes.sort({2, true});
    changes.sort({0, false});
    changes.resize(Axis::Columns, 3, 500);
    changes.resize(Axis::Columns, 4, SheetChanges::FITTING);
    changes.show(Axis::Rows, {10, 12}, false);
    changes.hidden().push_back({Axis::Rows, {{10, 10}, {12, 12}}});
    const std::vector<std::int32_t> numbers = changes.numbers();
    const std::optional<SheetChanges> read = SheetChanges::read(numbers);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->numbers(), numbers);
    EXPECT_EQ(read->sorts(), changes.sorts());
    EXPECT_EQ(read->sizes(Axis::Columns), changes.sizes(Axis::Columns));
    EXPECT_EQ(read->visibilities(Axis::Rows), changes.visibilities(Axis::Rows));
    EXPECT_EQ(read->hidden(), changes.hidden());
    EXPECT_TRUE(SheetChanges::read(SheetChanges().numbers()));
}

TEST(SheetChanges, AreNotReadFromOtherNumbers) {
    SheetChanges changes;
    changes.sort({2, true});
    changes.show(Axis::Rows, {10, 12}, false);
    std::vector<std::int32_t> numbers = changes.numbers();
    for (std::size_t length = 0; length < numbers.size(); length++) {
        EXPECT_FALSE(SheetChanges::read(std::span(numbers).first(length))) << length;
    }
    numbers.push_back(0);
    EXPECT_FALSE(SheetChanges::read(numbers)) << "one too many";
    EXPECT_FALSE(SheetChanges::read(std::vector<std::int32_t>{-1, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(SheetChanges::read(std::vector<std::int32_t>{0, 0, 1, 7, 5, 1, 0, 0, 0})) << "ends before";
    EXPECT_FALSE(SheetChanges::read(std::vector<std::int32_t>(4, 2'000'000'000)));
}

} // namespace
} // namespace lectern::engine
