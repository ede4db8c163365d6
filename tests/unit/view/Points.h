// SPDX-License-Identifier: Apache-2.0
// Points and rectangles that tests compare and print.
#pragma once

#include "raster/CpPoint.h"
#include "raster/CpRect.h"

#include <ostream>

inline bool operator==(const CpPoint& a, const CpPoint& b) {
    return a.x == b.x && a.y == b.y;
}
inline std::ostream& operator<<(std::ostream& out, const CpPoint& p) {
    return out << '(' << p.x << ", " << p.y << ')';
}
inline bool operator==(const CpRect& a, const CpRect& b) {
    return a.Left() == b.Left() && a.Top() == b.Top() && a.Right() == b.Right() && a.Bottom() == b.Bottom();
}
inline std::ostream& operator<<(std::ostream& out, const CpRect& r) {
    return out << '(' << r.Left() << ", " << r.Top() << ", " << r.Right() << ", " << r.Bottom() << ')';
}
