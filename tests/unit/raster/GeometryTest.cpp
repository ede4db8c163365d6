// SPDX-License-Identifier: Apache-2.0
#include "raster/CpPoint.h"
#include "raster/CpRect.h"
#include "raster/Saturate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

namespace {

void expectEdges(const CpRect& r, int left, int top, int right, int bottom) {
    EXPECT_EQ(r.Left(), left);
    EXPECT_EQ(r.Top(), top);
    EXPECT_EQ(r.Right(), right);
    EXPECT_EQ(r.Bottom(), bottom);
}

TEST(Point, IsTwoIntsCopiedByValue) {
    static_assert(std::is_trivially_copyable_v<CpPoint> && std::is_standard_layout_v<CpPoint>);
    static_assert(sizeof(CpPoint) == 2 * sizeof(int) && offsetof(CpPoint, y) == sizeof(int));
    CpPoint a(1, 2);
    CpPoint b(a);
    b.x = 7;
    EXPECT_EQ(a.x, 1);
    a = b;
    EXPECT_EQ(a.x, 7);
    EXPECT_EQ(a.y, 2);
}

TEST(Point, SetAndPlusReturnThePointItself) {
    CpPoint p(0, 0);
    EXPECT_EQ(&p.set(3, -4), &p);
    EXPECT_EQ(&(p += CpPoint(10, 20)), &p);
    EXPECT_EQ(p.x, 13);
    EXPECT_EQ(p.y, 16);
    p.Offset(-3, 4);
    EXPECT_EQ(p.x, 10);
    EXPECT_EQ(p.y, 20);
}

TEST(Point, SumsStopAtTheEndsOfInt) {
    CpPoint p(INT_MAX - 1, INT_MIN + 1);
    p.Offset(5, -5);
    EXPECT_EQ(p.x, INT_MAX);
    EXPECT_EQ(p.y, INT_MIN);
}

TEST(Point, PrintsLabelAndCoordinates) {
    testing::internal::CaptureStdout();
    CpPoint(-3, 44).Print("pen");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "pen (-3,44)\n");
}

TEST(Rect, IsFourIntsLeftTopRightBottom) {
    static_assert(std::is_trivially_copyable_v<CpRect> && sizeof(CpRect) == 4 * sizeof(int));
    expectEdges(CpRect(), 0, 0, 0, 0);
    const CpRect r(CpPoint(1, 2), CpPoint(3, 4));
    expectEdges(r, 1, 2, 3, 4);
    int inMemory[4];
    std::memcpy(inMemory, &r, sizeof r);
    EXPECT_THAT(inMemory, testing::ElementsAre(1, 2, 3, 4));
    CpRect copy;
    copy = r;
    expectEdges(copy, 1, 2, 3, 4);
    copy.Set(5, 6, 7, 8);
    expectEdges(copy, 5, 6, 7, 8);
    copy.setEmpty();
    expectEdges(copy, 0, 0, 0, 0);
}

TEST(Rect, SizeIsHalfOpenAndContainmentIsNot) {
    const CpRect r(0, 0, 10, 5);
    EXPECT_EQ(r.Width(), 10);
    EXPECT_EQ(r.Height(), 5);
    EXPECT_EQ(r.Area(), 50);
    EXPECT_FALSE(r.Empty());
    EXPECT_TRUE(r.Contains(CpPoint(10, 5)));
    EXPECT_TRUE(r.Contains(CpPoint(0, 0)));
    EXPECT_FALSE(r.Contains(CpPoint(11, 5)));
    EXPECT_FALSE(r.Contains(CpPoint(10, 6)));
    EXPECT_FALSE(r.Contains(CpPoint(-1, 0)));
    EXPECT_FALSE(r.Contains(CpPoint(0, -1)));
}

TEST(Rect, IsEmptyWithoutWidthOrHeight) {
    EXPECT_TRUE(CpRect(5, 5, 5, 9).Empty());
    EXPECT_EQ(CpRect(5, 5, 5, 9).Area(), 0);
    EXPECT_TRUE(CpRect(5, 9, 6, 9).Empty());
    EXPECT_TRUE(CpRect(6, 0, 5, 9).Empty());
    EXPECT_TRUE(CpRect(0, 9, 5, 0).Empty());
    EXPECT_FALSE(CpRect(0, 0, 1, 1).Empty());
}

TEST(Rect, AreaIsAPlainProductThatWraps) {
    EXPECT_EQ(CpRect(0, 0, -3, 4).Area(), -12);
    EXPECT_EQ(CpRect(0, 0, -3, -4).Area(), 12);
    EXPECT_EQ(CpRect(0, 0, 65536, 65536).Area(), 0);
    EXPECT_EQ(CpRect(0, 0, 65536, 32768).Area(), INT_MIN);
}

TEST(Rect, SizesStopAtTheEndsOfInt) {
    const CpRect r(INT_MIN, INT_MAX, INT_MAX, INT_MIN);
    EXPECT_EQ(r.Width(), INT_MAX);
    EXPECT_EQ(r.Height(), INT_MIN);
    EXPECT_EQ(r.MidPoint().x, INT_MAX / 2);
    EXPECT_EQ(r.Area(), INT_MIN); // INT_MAX * INT_MIN overflows to this
}

TEST(Rect, ContainsLooksAtTheColumnsOfARectangleOnly) {
    const CpRect r(0, 0, 10, 10);
    EXPECT_TRUE(r.Contains(CpRect(2, 50, 8, 60)));
    EXPECT_TRUE(r.Contains(CpRect(0, -9, 10, -5)));
    EXPECT_FALSE(r.Contains(CpRect(2, 2, 12, 3)));
    EXPECT_FALSE(r.Contains(CpRect(-1, 2, 5, 3)));
    EXPECT_FALSE(r.Contains(CpRect(12, 2, 5, 3))) << "crossed edges are no way in";
    EXPECT_FALSE(r.Contains(CpRect(5, 2, -1, 3)));
}

TEST(Rect, ClipCutsOnlyTheEdgesThatReachOutside) {
    CpRect around(-5, -5, 20, 20);
    around.clip(10, 10);
    expectEdges(around, 0, 0, 10, 10);
    CpRect outside(15, 15, 20, 20);
    outside.clip(10, 10);
    expectEdges(outside, 15, 15, 10, 10);
    EXPECT_TRUE(outside.Empty());
    CpRect before(-9, -8, -7, -6);
    before.clip(10, 10);
    expectEdges(before, 0, 0, -7, -6);
}

TEST(Rect, IntersectLeavesCrossedEdgesWhenDisjoint) {
    CpRect r(0, 0, 10, 10);
    r.Intersect(CpRect(20, 20, 30, 30));
    expectEdges(r, 20, 20, 10, 10);
    EXPECT_TRUE(r.Empty());
    CpRect overlapping(0, 5, 10, 15);
    overlapping.Intersect(CpRect(-3, 8, 6, 30));
    expectEdges(overlapping, 0, 8, 6, 15);
}

TEST(Rect, OffsetMovesBothCorners) {
    CpRect r(1, 2, 3, 4);
    r.Offset(10, -10);
    expectEdges(r, 11, -8, 13, -6);
    r.Offset(CpPoint(-1, 1));
    expectEdges(r, 10, -7, 12, -5);
}

TEST(Rect, MidPointIsHalfTheSizeTruncated) {
    EXPECT_EQ(CpRect(4, 6, 10, 16).MidPoint().x, 3);
    EXPECT_EQ(CpRect(4, 6, 10, 16).MidPoint().y, 5);
    EXPECT_EQ(CpRect(0, 0, -3, -3).MidPoint().x, -1);
    EXPECT_EQ(CpRect(0, 0, -3, -3).MidPoint().y, -1);
}

TEST(Rect, AboveAndLeftOfAreAlwaysTrue) {
    const CpRect a(0, 0, 1, 1);
    const CpRect b(50, 50, 60, 60);
    EXPECT_TRUE(a.Above(b) && b.Above(a) && a.Above(a));
    EXPECT_TRUE(a.LeftOf(b) && b.LeftOf(a) && a.LeftOf(a));
}

TEST(Rect, PrintsLabelCornerAndSize) {
    testing::internal::CaptureStdout();
    CpRect(-1, 2, 9, 7).Print("view");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "view: (-1, 2) 10 x 5\n");
}

TEST(Between, IncludesBothEnds) {
    EXPECT_TRUE(between(1, 1, 3) && between(1, 3, 3) && between(1, 2, 3));
    EXPECT_FALSE(between(1, 0, 3) || between(1, 4, 3) || between(3, 2, 1));
    EXPECT_TRUE(CpRect::between(-1, 0, 0));
    EXPECT_FALSE(CpRect::between(-1, 1, 0));
}

TEST(Saturate, NotANumberIsZeroAndTheRestStaysInRange) {
    EXPECT_EQ(saturateToInt(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(saturateToInt(HUGE_VAL), INT_MAX);
    EXPECT_EQ(saturateToInt(-HUGE_VAL), INT_MIN);
    EXPECT_EQ(saturateToInt(1e10), INT_MAX);
    EXPECT_EQ(saturateToInt(-1e10), INT_MIN);
    EXPECT_EQ(saturateToInt(2147483646.9), INT_MAX - 1);
    EXPECT_EQ(saturateToInt(-2147483647.9), INT_MIN + 1);
}

TEST(Saturate, TruncatesTowardZero) {
    EXPECT_EQ(saturateToInt(2.9), 2);
    EXPECT_EQ(saturateToInt(-2.9), -2);
    EXPECT_EQ(saturateToInt(-0.5), 0);
}

TEST(Saturate, SumsAndDifferencesStopAtTheEnds) {
    EXPECT_EQ(saturatedSum(INT_MAX, 1), INT_MAX);
    EXPECT_EQ(saturatedSum(INT_MIN, -1), INT_MIN);
    EXPECT_EQ(saturatedSum(-2, 5), 3);
    EXPECT_EQ(saturatedDifference(INT_MIN, 1), INT_MIN);
    EXPECT_EQ(saturatedDifference(0, INT_MIN), INT_MAX);
    EXPECT_EQ(saturatedDifference(2, 5), -3);
}

} // namespace
