// SPDX-License-Identifier: Apache-2.0
#include "touch/PinchAnchor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

// A pinch at (100, 200) of a view at zoom 2, with zooms from 1 to 8.
PinchAnchor begunPinch() {
    PinchAnchor pinch;
    pinch.begin({100, 200}, 2.0, 1.0, 8.0);
    return pinch;
}

TEST(PinchAnchor, KeepsWhatLiesUnderTheFingersThere) {
    PinchAnchor pinch = begunPinch();
    pinch.move({150, 180}, 1.5);
    const CpRect shown = pinch.preview(CpRect(100, 200, 200, 300));
    EXPECT_EQ(shown.Left(), 150);
    EXPECT_EQ(shown.Top(), 180);
    EXPECT_EQ(shown.Width(), 150);
    EXPECT_EQ(shown.Height(), 150);
}

TEST(PinchAnchor, PreviewAndEndAgreeInsideTheLimits) {
    PinchAnchor pinch = begunPinch();
    for (const double factor : {0.5, 0.8, 1.0, 2.0, 4.0}) {
        pinch.move({100, 200}, factor);
        EXPECT_DOUBLE_EQ(pinch.previewFactor(), factor);
        EXPECT_DOUBLE_EQ(pinch.finalFactor(), factor);
    }
}

TEST(PinchAnchor, ResistsBeyondTheLimits) {
    PinchAnchor pinch = begunPinch();
    pinch.move({100, 200}, 0.25);
    EXPECT_LT(pinch.previewFactor(), 0.5);
    EXPECT_GT(pinch.previewFactor(), 0.25);
    EXPECT_DOUBLE_EQ(pinch.finalFactor(), 0.5);
    pinch.move({100, 200}, 8.0);
    EXPECT_GT(pinch.previewFactor(), 4.0);
    EXPECT_LT(pinch.previewFactor(), 8.0);
    EXPECT_DOUBLE_EQ(pinch.finalFactor(), 4.0);
}

TEST(PinchAnchor, IgnoresFactorsThatAreNoZoom) {
    PinchAnchor pinch = begunPinch();
    pinch.move({100, 200}, 1.5);
    for (const double factor : {0.0, -2.0, std::numeric_limits<double>::infinity(), std::nan("")}) {
        pinch.move({10, 20}, factor);
        EXPECT_DOUBLE_EQ(pinch.previewFactor(), 1.5);
    }
}

} // namespace
