// SPDX-License-Identifier: Apache-2.0
#include "client/gtk4/KeyMoves.h"

#include <gtest/gtest.h>

using namespace lectern::gtk4;

namespace {

constexpr GdkModifierType NONE{};
constexpr KeyPlace TEXT{};
constexpr KeyPlace SLIDE{true, false, false};
constexpr KeyPlace MAGNIFIED_SLIDE{true, true, false};

} // namespace

TEST(KeyMoves, ScrollTextsByArrowsPagesAndSpace) {
    EXPECT_EQ(keyMove(GDK_KEY_Down, NONE, TEXT), KeyMove::Down);
    EXPECT_EQ(keyMove(GDK_KEY_KP_Left, NONE, TEXT), KeyMove::Left);
    EXPECT_EQ(keyMove(GDK_KEY_Page_Up, NONE, TEXT), KeyMove::PageUp);
    EXPECT_EQ(keyMove(GDK_KEY_space, NONE, TEXT), KeyMove::PageDown);
    EXPECT_EQ(keyMove(GDK_KEY_space, GDK_SHIFT_MASK, TEXT), KeyMove::PageUp);
    EXPECT_EQ(keyMove(GDK_KEY_End, NONE, TEXT), KeyMove::End);
}

TEST(KeyMoves, TurnSlidesByPageKeysAtEveryZoom) {
    for (const KeyPlace& place : {SLIDE, MAGNIFIED_SLIDE}) {
        EXPECT_EQ(keyMove(GDK_KEY_Page_Down, NONE, place), KeyMove::NextSlide);
        EXPECT_EQ(keyMove(GDK_KEY_Page_Up, NONE, place), KeyMove::PreviousSlide);
        EXPECT_EQ(keyMove(GDK_KEY_space, NONE, place), KeyMove::NextSlide);
    }
}

TEST(KeyMoves, TurnSlidesByArrowsOnlyWhereTheyCannotMoveThePicture) {
    EXPECT_EQ(keyMove(GDK_KEY_Right, NONE, SLIDE), KeyMove::NextSlide);
    EXPECT_EQ(keyMove(GDK_KEY_Right, NONE, MAGNIFIED_SLIDE), KeyMove::Right);
    EXPECT_EQ(keyMove(GDK_KEY_Up, NONE, {true, true, true}), KeyMove::PreviousSlide);
}

TEST(KeyMoves, ZoomWithAndWithoutControl) {
    for (const GdkModifierType modifiers : {NONE, GDK_CONTROL_MASK}) {
        EXPECT_EQ(keyMove(GDK_KEY_plus, modifiers, TEXT), KeyMove::ZoomIn);
        EXPECT_EQ(keyMove(GDK_KEY_minus, modifiers, TEXT), KeyMove::ZoomOut);
        EXPECT_EQ(keyMove(GDK_KEY_0, modifiers, TEXT), KeyMove::ZoomToFit);
    }
}

TEST(KeyMoves, LeaveOtherKeysToOthers) {
    EXPECT_FALSE(keyMove(GDK_KEY_x, NONE, TEXT));
    EXPECT_FALSE(keyMove(GDK_KEY_Left, GDK_ALT_MASK, TEXT));
    EXPECT_FALSE(keyMove(GDK_KEY_Page_Down, GDK_CONTROL_MASK, TEXT));
    EXPECT_FALSE(keyMove(GDK_KEY_Tab, NONE, SLIDE));
}
