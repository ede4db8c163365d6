// SPDX-License-Identifier: Apache-2.0
#include "engine/layout/PicturePlaces.h"

#include <gtest/gtest.h>

#include <set>

namespace lectern::engine {
namespace {

TEST(PicturePlacesTest, ASlideIsWhereItWasKept) {
    PicturePlaces places(2);
    const std::int32_t place = places.take();
    EXPECT_EQ(places.find(3), std::nullopt) << "not painted yet";
    places.keep(place, 3);
    EXPECT_EQ(places.find(3), place);
    EXPECT_EQ(places.find(2), std::nullopt);
}

TEST(PicturePlacesTest, WhatWasUsedLongestAgoGivesWay) {
    PicturePlaces places(2);
    places.keep(places.take(), 0);
    places.keep(places.take(), 1);
    const std::optional<std::int32_t> first = places.find(0);
    const std::int32_t taken = places.take();
    EXPECT_NE(taken, first);
    EXPECT_EQ(places.find(1), std::nullopt);
    places.keep(taken, 2);
    EXPECT_EQ(places.find(0), first);
    EXPECT_EQ(places.find(2), taken);
}

TEST(PicturePlacesTest, EmptyPlacesAreTakenFirstAndOneAgainWhenNothingWasKept) {
    PicturePlaces places(3);
    const std::int32_t place = places.take();
    EXPECT_EQ(places.take(), place);
    std::set<std::int32_t> taken;
    for (std::int32_t slide = 0; slide < 3; slide++) {
        const std::int32_t next = places.take();
        places.keep(next, slide);
        taken.insert(next);
    }
    EXPECT_EQ(taken, (std::set<std::int32_t>{0, 1, 2}));
}

TEST(PicturePlacesTest, ASinglePlaceIsTheOneOfEverySlide) {
    PicturePlaces places(1);
    places.keep(places.take(), 5);
    EXPECT_EQ(places.find(5), 0);
    EXPECT_EQ(places.take(), 0);
    EXPECT_EQ(places.find(5), std::nullopt) << "it is painted over";
}

TEST(PicturePlacesTest, LookingAheadUsesNothing) {
    PicturePlaces places(2);
    places.keep(places.take(), 0);
    places.keep(places.take(), 1);
    const std::int32_t next = places.next();
    EXPECT_TRUE(places.has(0));
    EXPECT_FALSE(places.has(2));
    EXPECT_EQ(places.next(), next);
    EXPECT_EQ(places.find(0), next) << "used longest ago, and still there";
    const std::int32_t other = places.next();
    EXPECT_NE(other, next);
    EXPECT_EQ(places.take(), other);
}

TEST(PicturePlacesTest, ClearedNothingIsThere) {
    PicturePlaces places(2);
    places.keep(places.take(), 0);
    places.clear();
    EXPECT_EQ(places.find(0), std::nullopt);
}

} // namespace
} // namespace lectern::engine
