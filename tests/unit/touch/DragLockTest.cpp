// SPDX-License-Identifier: Apache-2.0
#include "touch/DragLock.h"

#include <gtest/gtest.h>

namespace {

constexpr double DPI = 160.0;

TEST(DragLock, KeepsANearlyStraightDragOnItsAxis) {
    DragLock lock;
    lock.begin();
    EXPECT_EQ(lock.apply(3, 20, DPI).x, 0);
    EXPECT_EQ(lock.apply(60, 40, DPI).x, 0) << "also where it bends later";
    EXPECT_EQ(lock.apply(60, 40, DPI).y, 40);
    lock.begin();
    EXPECT_EQ(lock.apply(-20, 3, DPI).y, 0);
}

TEST(DragLock, LeavesAnObliqueDragFree) {
    DragLock lock;
    lock.begin();
    lock.apply(15, 20, DPI);
    const CpPoint way = lock.apply(5, 200, DPI);
    EXPECT_EQ(way.x, 5);
    EXPECT_EQ(way.y, 200);
}

TEST(DragLock, DecidesWhenThePenHasMovedFurtherThanInATap) {
    DragLock lock;
    lock.begin();
    EXPECT_EQ(lock.apply(2, 5, DPI).x, 2);
    EXPECT_EQ(lock.apply(2, 8, DPI).x, 0);
    lock.begin();
    EXPECT_EQ(lock.apply(2, 8, 2 * DPI).x, 2) << "8 pixels of a finer screen are less";
}

} // namespace
