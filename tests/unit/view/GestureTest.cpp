// SPDX-License-Identifier: Apache-2.0
#include "ProbeView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double POSITIVE_INFINITY = std::numeric_limits<double>::infinity();

class Gesture : public testing::Test {
protected:
    void SetUp() override {
        view.mDirty = false;
        view.mOffscreenDirty = false;
        view.mScroll.set(100, 200);
    }
    ProbeView view;
};

TEST_F(Gesture, StartTakesTheScaleAsItIs) {
    view.mGestureAppliedScale = 3.0;
    EXPECT_TRUE(view.handleGestureStart(17.5, 0.0));
    EXPECT_TRUE(view.mGestureActive);
    EXPECT_EQ(view.mGestureAppliedScale, 1.0);
    EXPECT_EQ(view.mGestureRequestScale, 17.5);
    EXPECT_THAT(view.calls, IsEmpty());
    EXPECT_FALSE(view.mDirty);
}

TEST_F(Gesture, ChangeIsRelativeToTheCurrentScale) {
    view.mScale = 2.0;
    view.handleGestureStart(1.0, 0.0);
    EXPECT_TRUE(view.handleGestureChange(1.25, 0.0));
    EXPECT_DOUBLE_EQ(view.mGestureRequestScale, 1.25);
}

TEST_F(Gesture, ChangeStaysWithinTheViewsScales) {
    view.mScale = 2.0;
    view.handleGestureChange(10.0, 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 2.0);
    view.handleGestureChange(0.1, 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 0.5);
    view.mMinScale = 0.5;
    view.mMaxScale = 3.0;
    view.handleGestureChange(10.0, 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 1.5);
    view.handleGestureChange(0.1, 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 0.25);
}

TEST_F(Gesture, ChangeSurvivesWildScales) {
    view.mScale = 2.0;
    view.handleGestureChange(POSITIVE_INFINITY, 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 2.0);
    view.handleGestureChange(-POSITIVE_INFINITY, 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 0.5);
    view.handleGestureChange(-1.0, 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 0.5);
    view.handleGestureChange(std::numeric_limits<double>::max(), 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 2.0);
}

TEST_F(Gesture, IgnoresAScaleThatIsNotANumber) {
    view.handleGestureStart(std::nan(""), 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 1.0);
    view.handleGestureChange(1.5, 0.0);
    view.handleGestureChange(std::nan(""), 0.0);
    EXPECT_EQ(view.mGestureRequestScale, 1.5);
}

TEST_F(Gesture, EndTakesOverWhatTheLastFrameShowed) {
    view.mScale = 1.5;
    view.handleGestureStart(1.0, 0.0);
    view.mPenDown = true;
    view.mGestureAppliedScale = 2.0;
    view.mGestureScroll.set(-33, 444);
    EXPECT_TRUE(view.handleGestureEnd(9.0, 9.0)); // its arguments are ignored
    EXPECT_FALSE(view.mGestureActive);
    EXPECT_FALSE(view.mPenDown);
    EXPECT_EQ(view.mScale, 3.0);
    EXPECT_EQ(view.mScroll.x, -33); // not clamped
    EXPECT_EQ(view.mScroll.y, 444);
    EXPECT_TRUE(view.mOffscreenDirty);
    EXPECT_TRUE(view.mDirty);
    EXPECT_THAT(view.calls,
                ElementsAre("recenterDocument locked", "resizeDocument locked", "ReinitSearchRects locked"));
}

TEST_F(Gesture, EndLaysOutForTheNewScaleAndPosition) {
    view.handleGestureStart(1.0, 0.0);
    view.mGestureAppliedScale = 2.0;
    view.mGestureScroll.set(-33, 444);
    view.handleGestureEnd(1.0, 0.0);
    EXPECT_EQ(view.scaleAtLayout, 2.0);
    EXPECT_EQ(view.scrollAtLayout.x, -33);
    EXPECT_EQ(view.scrollAtLayout.y, 444);
}

TEST_F(Gesture, EndWithoutAChangeOnlyClearsTheFlags) {
    view.handleGestureStart(2.0, 0.0);
    view.mPenDown = true;
    view.mGestureScroll.set(1, 1);
    EXPECT_TRUE(view.handleGestureEnd(2.0, 0.0));
    EXPECT_FALSE(view.mGestureActive);
    EXPECT_FALSE(view.mPenDown);
    EXPECT_EQ(view.mScale, 1.0);
    EXPECT_EQ(view.mScroll.x, 100);
    EXPECT_FALSE(view.mOffscreenDirty);
    EXPECT_FALSE(view.mDirty);
    EXPECT_THAT(view.calls, IsEmpty());
}

TEST_F(Gesture, EndCountsTheSmallestChange) {
    view.handleGestureStart(1.0, 0.0);
    view.mGestureAppliedScale = std::nextafter(1.0, 2.0);
    view.handleGestureEnd(1.0, 0.0);
    EXPECT_TRUE(view.mDirty);
}

TEST_F(Gesture, EndRefusesAFactorThatLeavesNoScale) {
    for (const double factor : {0.0, -2.0, POSITIVE_INFINITY, -POSITIVE_INFINITY, std::nan("")}) {
        view.handleGestureStart(1.0, 0.0);
        view.mGestureAppliedScale = factor;
        EXPECT_TRUE(view.handleGestureEnd(1.0, 0.0));
        EXPECT_FALSE(view.mGestureActive);
        EXPECT_EQ(view.mScale, 1.0) << factor;
        EXPECT_EQ(view.mScroll.x, 100);
    }
    EXPECT_THAT(view.calls, IsEmpty());
}

TEST_F(Gesture, StartsAfreshEveryTime) {
    view.handleGestureStart(1.0, 0.0);
    view.mGestureAppliedScale = 2.0;
    view.handleGestureEnd(1.0, 0.0);
    view.calls.clear();
    view.handleGestureStart(1.0, 0.0);
    view.handleGestureEnd(1.0, 0.0);
    EXPECT_EQ(view.mScale, 2.0);
    EXPECT_THAT(view.calls, IsEmpty());
}

} // namespace
