// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ScrollPlan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using lectern::Drag;
using lectern::Point;
using lectern::ScrollPlan;

constexpr int WIDTH = 480;
constexpr int HEIGHT = 800;

// A simulated view that reacts to drags.
struct Scrolled {
    Point position = {};
    Point last{0, 10'000}; // largest position
    int rowsAbove = 0;     // rows before row 0, shown only by a push
    int drags = 0;
    int found = 300; // rows shown by one push

    void drag(const Drag& by) {
        ++drags;
        position.x = std::clamp(position.x + by.from.x - by.to.x, 0, last.x);
        int y = position.y + by.from.y - by.to.y;
        while (y < 0 && rowsAbove > 0) {
            const int shown = std::min(found, rowsAbove);
            rowsAbove -= shown;
            last.y += shown;
            y += shown;
        }
        position.y = std::clamp(y, std::min(last.y, 0), std::max(last.y, 0));
    }

    void follow(Point target) {
        ScrollPlan plan(WIDTH, HEIGHT, target);
        while (const auto step = plan.next(position)) {
            ASSERT_LE(std::abs(step->from.y - step->to.y), HEIGHT - 1);
            ASSERT_LE(std::abs(step->from.x - step->to.x), WIDTH - 1);
            drag(*step);
            ASSERT_LT(drags, 1'000);
        }
    }
};

TEST(ScrollPlan, NeedsNoDragWhereTheTargetIsReached) {
    ScrollPlan plan(WIDTH, HEIGHT, {0, 300});
    EXPECT_EQ(plan.next({0, 300}), std::nullopt);
}

TEST(ScrollPlan, DragsUpwardsToScrollDownAndStaysInTheView) {
    ScrollPlan down(WIDTH, HEIGHT, {0, 100});
    EXPECT_EQ(down.next({0, 0}), (Drag{{479, 799}, {479, 699}}));
    ScrollPlan up(WIDTH, HEIGHT, {0, 100});
    EXPECT_EQ(up.next({0, 150}), (Drag{{479, 266}, {479, 316}}));
    ScrollPlan far(WIDTH, HEIGHT, {0, 9'000});
    EXPECT_EQ(far.next({0, 0}), (Drag{{479, 799}, {479, 0}}));
}

TEST(ScrollPlan, LeavesTheHeadersOfASheetAlone) {
    for (const Point target : {Point{0, 500}, Point{500, 0}, Point{500, 500}, Point{200, 0}, Point{0, 0}}) {
        ScrollPlan plan(WIDTH, HEIGHT, target);
        const auto step = plan.next({500, 500});
        if (step) {
            EXPECT_GE(step->from.x, WIDTH / 3);
            EXPECT_GE(step->from.y, HEIGHT / 3);
        }
    }
}

TEST(ScrollPlan, ReachesAPlaceBelowExactly) {
    Scrolled view;
    view.follow({0, 4'321});
    EXPECT_EQ(view.position, (Point{0, 4'321}));
    EXPECT_EQ(view.drags, 6);
}

TEST(ScrollPlan, ReachesAPlaceAboveExactly) {
    Scrolled view{.position = {0, 9'000}};
    view.follow({0, 7});
    EXPECT_EQ(view.position, (Point{0, 7}));
}

TEST(ScrollPlan, MovesBothAxesAtOnce) {
    Scrolled view{.position = {700, 100}, .last = {1'000, 10'000}};
    view.follow({3, 500});
    EXPECT_EQ(view.position, (Point{3, 500}));
    EXPECT_EQ(view.drags, 3);
}

TEST(ScrollPlan, EndsAtTheDocumentsEnd) {
    Scrolled view{.last = {0, 1'000}};
    view.follow({0, 2'000'000'000});
    EXPECT_EQ(view.position, (Point{0, 1'000}));
    EXPECT_LE(view.drags, 4);
}

TEST(ScrollPlan, EndsWhereAnAxisCannotMove) {
    Scrolled view;
    view.follow({50, 100});
    EXPECT_EQ(view.position, (Point{0, 100}));
}

TEST(ScrollPlan, BelievesRowZeroOnlyWhenNothingLiesAbove) {
    for (const int above : {0, 1, 299, 799, 3'000}) {
        Scrolled view{.position = {0, 650}, .rowsAbove = above};
        view.follow({0, 0});
        EXPECT_EQ(view.position, (Point{0, 0})) << above;
        EXPECT_EQ(view.rowsAbove, 0) << above;
    }
}

TEST(ScrollPlan, IsNotMisledByAPushThatEndsWhereItBegan) {
    Scrolled view{.rowsAbove = 799 * 3, .found = 799};
    view.follow({0, 0});
    EXPECT_EQ(view.rowsAbove, 0);
    EXPECT_EQ(view.position, (Point{0, 0}));
}

TEST(ScrollPlan, ComesBackToTheStartOfADocumentShorterThanTheView) {
    Scrolled view{.position = {0, -200}, .last = {0, -500}};
    view.follow({0, 0});
    EXPECT_EQ(view.position, (Point{0, 0}));
    EXPECT_LE(view.drags, 4);
}

TEST(ScrollPlan, EndsWithAViewThatDoesNotObey) {
    ScrollPlan plan(1, 1, {5, 5});
    int drags = 0;
    for (Point position; plan.next(position); position.y = 100 - position.y) {
        ASSERT_LE(++drags, 100'000);
    }
    EXPECT_EQ(drags, 100'000);
}

} // namespace
