// SPDX-License-Identifier: Apache-2.0
#include "ProbeView.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>

namespace {

struct Edges {
    int left, top, right, bottom;
};

bool sees(const CpPoint& scroll, int width, int height, const Edges& r) {
    return r.left >= scroll.x && r.right >= scroll.x && r.left <= scroll.x + width &&
           r.right <= scroll.x + width && r.top >= scroll.y && r.bottom >= scroll.y &&
           r.top <= scroll.y + height && r.bottom <= scroll.y + height;
}

// The rule written in another form: a shift for each axis.
CpPoint expectedScroll(CpPoint scroll, int width, int height, int docWidth, int docHeight, const Edges& r,
                       bool flag) {
    if (sees(scroll, width, height, r)) {
        return scroll;
    }
    const int middleX = r.left + (r.right - r.left) / 2;
    const int middleY = r.top + (r.bottom - r.top) / 2;
    const int far = (3 * width) / 8;
    const int near = (2 * width) / 6 - 10;
    const int shiftX = middleX < docWidth / 4         ? far
                       : middleX < docWidth / 3       ? near
                       : middleX > (3 * docWidth) / 4 ? -far
                       : middleX > (2 * docWidth) / 3 ? -near
                                                      : 0;
    const int shiftY = flag ? (middleY < docHeight / 3 ? (3 * height) / 8 : 0)
                            : (middleY > (2 * docHeight) / 3 ? 45 - (3 * height) / 8 : 0);
    scroll.set(middleX + shiftX - width / 2, middleY + shiftY - height / 2);
    if (!sees(scroll, width, height, r)) {
        scroll.set(r.left - width / 2 + (r.right - r.left) / 2, r.top - height / 2 + (r.bottom - r.top) / 2);
    }
    return scroll;
}

TEST(CenterAboutRect, LeavesAVisibleRectangleWhereItIs) {
    ProbeView view(320, 480);
    CpPixmap surface(1000, 2000);
    view.mDocPixmap = &surface;
    view.mScroll.set(100, 200);
    view.CenterAboutRect(CpRect(100, 200, 420, 680), true); // exactly the view; its edges are included
    EXPECT_EQ(view.mScroll.x, 100);
    EXPECT_EQ(view.mScroll.y, 200);
}

TEST(CenterAboutRect, PutsARectangleOffCentreTowardsTheDocumentsMiddle) {
    ProbeView view(320, 480);
    CpPixmap surface(1000, 3000);
    view.mDocPixmap = &surface;
    // Middle (120, 310): the left quarter, the upper third.
    view.CenterAboutRect(CpRect(100, 500, 140, 520), true);
    EXPECT_EQ(view.mScroll.x, 120 + 120 - 160);
    EXPECT_EQ(view.mScroll.y, 510 + 180 - 240);
    // Middle (900, 2710): the right quarter, the lower third.
    view.CenterAboutRect(CpRect(880, 2700, 920, 2720), false);
    EXPECT_EQ(view.mScroll.x, 900 - 120 - 160);
    EXPECT_EQ(view.mScroll.y, 2710 - 135 - 240);
}

TEST(CenterAboutRect, CentresPlainlyWhatTheShiftWouldHide) {
    ProbeView view(320, 480);
    CpPixmap surface(1000, 3000);
    view.mDocPixmap = &surface;
    view.CenterAboutRect(CpRect(0, 1000, 300, 1020), true); // when shifted, its left end would be cut off
    EXPECT_EQ(view.mScroll.x, 150 - 160);
    EXPECT_EQ(view.mScroll.y, 1010 - 240);
}

TEST(CenterAboutRect, FollowsTheRuleForRandomRectangles) {
    std::mt19937 random(20240501);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 20000; ++round) {
        const int width = pick(1, 200);
        const int height = pick(1, 300);
        const int docWidth = pick(0, 500);
        const int docHeight = pick(0, 900);
        ProbeView view(width, height);
        // Wraps no memory; only its bounds are used.
        CpPixmap surface(nullptr, docWidth, docHeight);
        view.mDocPixmap = &surface;
        view.mScroll.set(pick(-50, 500), pick(-50, 900));
        const int left = pick(-100, 600);
        const int top = pick(-100, 1000);
        const Edges r{left, top, left + pick(-20, 200), top + pick(-20, 100)};
        const bool flag = pick(0, 1) == 1;
        const CpPoint expected = expectedScroll(view.mScroll, width, height, docWidth, docHeight, r, flag);
        view.CenterAboutRect(CpRect(r.left, r.top, r.right, r.bottom), flag);
        ASSERT_EQ(view.mScroll.x, expected.x) << "round " << round;
        ASSERT_EQ(view.mScroll.y, expected.y) << "round " << round;
    }
}

TEST(CenterAboutRect, NeitherClampsNorRepaints) {
    ProbeView view(320, 480);
    CpPixmap surface(100, 100);
    view.mDocPixmap = &surface;
    view.mDirty = false;
    view.CenterAboutRect(CpRect(5000, 5000, 5010, 5010), true);
    EXPECT_GT(view.mScroll.x, 4000);
    EXPECT_TRUE(view.calls.empty());
    EXPECT_FALSE(view.mDirty);
}

TEST(CenterAboutRect, SurvivesWildRectanglesAndNoSurface) {
    ProbeView view(320, 480);
    view.CenterAboutRect(CpRect(INT_MIN, INT_MIN, INT_MIN, INT_MIN), true);
    EXPECT_EQ(view.mScroll.x, INT_MIN);
    view.CenterAboutRect(CpRect(INT_MIN, INT_MIN, INT_MAX, INT_MAX), false);
    EXPECT_EQ(view.mScroll.x, -1 - 160);
    EXPECT_EQ(view.mScroll.y, -1 - 240);
    view.CenterAboutRect(CpRect(INT_MAX, INT_MAX, INT_MAX, INT_MAX), true);
    EXPECT_EQ(view.mScroll.x, INT_MAX - 160 - 120);
    EXPECT_EQ(view.mScroll.y, INT_MAX - 240);
}

} // namespace
