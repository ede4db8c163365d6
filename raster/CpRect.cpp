// SPDX-License-Identifier: Apache-2.0
#include "raster/CpRect.h"

#include <algorithm>
#include <cstdio>

void CpRect::Set(int left, int top, int right, int bottom) {
    mTopLeft.set(left, top);
    mBottomRight.set(right, bottom);
}

int CpRect::Area() const {
    return static_cast<int>(static_cast<unsigned>(Height()) * static_cast<unsigned>(Width()));
}

bool CpRect::Empty() const {
    return Left() >= Right() || Top() >= Bottom();
}

void CpRect::setEmpty() {
    Set(0, 0, 0, 0);
}

bool CpRect::Contains(const CpPoint& p) const {
    return between(Left(), p.x, Right()) && between(Top(), p.y, Bottom());
}

bool CpRect::Contains(const CpRect& r) const {
    return between(Left(), r.Left(), Right()) && between(Left(), r.Right(), Right());
}

void CpRect::Intersect(const CpRect& r) {
    Set(std::max(Left(), r.Left()), std::max(Top(), r.Top()), std::min(Right(), r.Right()),
        std::min(Bottom(), r.Bottom()));
}

void CpRect::clip(int width, int height) {
    Set(std::max(Left(), 0), std::max(Top(), 0), std::min(Right(), width), std::min(Bottom(), height));
}

void CpRect::Offset(const CpPoint& d) {
    mTopLeft += d;
    mBottomRight += d;
}

void CpRect::Offset(int dx, int dy) {
    Offset(CpPoint(dx, dy));
}

CpPoint CpRect::MidPoint() const {
    return CpPoint(Width() / 2, Height() / 2);
}

void CpRect::Print(const char* label) const {
    std::printf("%s: (%d, %d) %d x %d\n", label, Left(), Top(), Width(), Height());
}
