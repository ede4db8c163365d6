// SPDX-License-Identifier: Apache-2.0
#pragma once

// A point in pixels, x to the right and y downwards. Sums stop at the ends of int.
struct CpPoint {
    int x;
    int y;

    CpPoint(int px, int py) : x(px), y(py) {}

    CpPoint& set(int px, int py);
    CpPoint& operator+=(const CpPoint& d);
    void Offset(int dx, int dy);

    // Writes "label (x,y)" as a line to standard output.
    void Print(const char* label) const;
};
