// SPDX-License-Identifier: Apache-2.0
#pragma once

// A point in pixels; x grows to the right, y downwards. Sums saturate at the limits
// of int.
struct CpPoint {
    int x;
    int y;

    CpPoint(int px, int py) : x(px), y(py) {}

    CpPoint& set(int px, int py);
    CpPoint& operator+=(const CpPoint& d);
    void Offset(int dx, int dy);

    // Writes the line "label (x,y)" to standard output.
    void Print(const char* label) const;
};
