// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/SelectionReach.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace lectern::gtk4;
using Step = SelectionReach::Step;
using Kind = Step::Kind;
using testing::ElementsAre;

namespace {

constexpr double LINE = 20;
constexpr Point LEFT{100, 100};  // of a word
constexpr Point RIGHT{150, 100}; // of the same

} // namespace

TEST(SelectionReach, ForwardsFromTheStartOfTheAnchorToThePointer) {
    SelectionReach reach({LEFT, RIGHT}, false, LINE);
    for (const Point to : {Point{300, 100}, Point{300, 105}, Point{10, 140}}) {
        EXPECT_THAT(reach.stepsTo(to), ElementsAre(Step{Kind::MoveEnd, to}, Step{Kind::MoveStart, LEFT}));
    }
}

TEST(SelectionReach, BackwardsFromTheEndOfTheAnchorToThePointer) {
    SelectionReach reach({LEFT, RIGHT}, false, LINE);
    for (const Point to : {Point{50, 100}, Point{50, 108}, Point{300, 60}}) {
        EXPECT_THAT(reach.stepsTo(to), ElementsAre(Step{Kind::MoveStart, to}, Step{Kind::MoveEnd, RIGHT}));
    }
}

TEST(SelectionReach, MovesOnlyTheEndAmongTheCellsRightOfAndBelowTheAnchor) {
    SelectionReach reach({LEFT, LEFT}, true, LINE);
    EXPECT_THAT(reach.stepsTo({200, 300}), ElementsAre(Step{Kind::MoveEnd, {200, 300}}));
    EXPECT_THAT(reach.stepsTo({400, 100}), ElementsAre(Step{Kind::MoveEnd, {400, 100}}));
}

TEST(SelectionReach, BeginsAnewAtTheAnchorForCellsOnItsOtherSides) {
    SelectionReach reach({LEFT, LEFT}, true, LINE);
    const Point above{200, 50};
    EXPECT_THAT(reach.stepsTo(above), ElementsAre(Step{Kind::SelectWord, LEFT}, Step{Kind::MoveEnd, above}));
    const Point below{200, 300};
    EXPECT_THAT(reach.stepsTo(below), ElementsAre(Step{Kind::SelectWord, LEFT}, Step{Kind::MoveEnd, below}));
    EXPECT_THAT(reach.stepsTo(below), ElementsAre(Step{Kind::MoveEnd, below}));
}

TEST(SelectionReach, KeepsItsAnchorAtTheTextWhenTheDocumentMoves) {
    SelectionReach reach({LEFT, RIGHT}, false, LINE);
    reach.moveAnchor({0, -80});
    EXPECT_THAT(reach.stepsTo({10, 90}),
                ElementsAre(Step{Kind::MoveEnd, {10, 90}}, Step{Kind::MoveStart, {100, 20}}));
}
