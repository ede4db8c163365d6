// SPDX-License-Identifier: Apache-2.0
#include "raster/CpPoint.h"

#include "raster/Saturate.h"

#include <cstdio>

CpPoint& CpPoint::set(int px, int py) {
    x = px;
    y = py;
    return *this;
}

CpPoint& CpPoint::operator+=(const CpPoint& d) {
    Offset(d.x, d.y);
    return *this;
}

void CpPoint::Offset(int dx, int dy) {
    x = saturatedSum(x, dx);
    y = saturatedSum(y, dy);
}

void CpPoint::Print(const char* label) const {
    std::printf("%s (%d,%d)\n", label, x, y);
}
