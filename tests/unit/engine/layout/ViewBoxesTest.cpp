// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/ViewBoxes.h"

#include <gtest/gtest.h>

namespace lectern::engine::test {
namespace {

using Boxes = std::vector<ViewBox>;

TEST(ViewBoxesTest, AreReadInTheirOrder) {
    EXPECT_EQ(readViewBoxes("284, 568, 12, 276; 1, -2, 3000000000, 4"),
              (Boxes{{284, 568, 12, 276}, {1, -2, 3'000'000'000, 4}}));
    EXPECT_EQ(readViewBoxes("1, 2, 3, 4;"), (Boxes{{1, 2, 3, 4}}));
    EXPECT_EQ(readViewBoxes(""), Boxes());
}

TEST(ViewBoxesTest, EndWithTheFirstThatIsNone) {
    EXPECT_EQ(readViewBoxes("1, 2, 3, 4; EMPTY; 5, 6, 7, 8"), (Boxes{{1, 2, 3, 4}}));
    EXPECT_EQ(readViewBoxes("1, 2, 3"), Boxes());
}

} // namespace
} // namespace lectern::engine::test
