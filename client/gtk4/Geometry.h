// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cmath>

namespace lectern::gtk4 {

// A point or a way, in device pixels of the picture.
struct Point {
    double x = 0;
    double y = 0;

    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
    friend Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
    friend bool operator==(Point a, Point b) = default;
};

inline double distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// A size in device pixels.
struct Size {
    int width = 0;
    int height = 0;

    friend bool operator==(Size a, Size b) = default;
};

// Converts between pixels of a widget and pixels of the screen, of which the widget has
// `scale` for each of its own; 1.0 or more.
class PixelGrid {
public:
    // Longest side of a picture that the service paints.
    static constexpr int LONGEST_SIDE = 16384;

    explicit PixelGrid(double scale) : mScale(scale) {}

    double scale() const { return mScale; }
    double toWidget(double device) const { return device / mScale; }
    double toDevice(double widget) const { return widget * mScale; }
    Point toDevice(double x, double y) const { return {x * mScale, y * mScale}; }
    // The whole device pixels of a widget; at least one.
    Size picture(int width, int height) const { return {side(width), side(height)}; }
    // By how much a widget that begins at `origin` must move to begin on a device pixel.
    double toPixelEdge(double origin) const { return std::round(origin * mScale) / mScale - origin; }

private:
    int side(int widget) const {
        // 1e-6: a product like 100 * 1.1 may miss its whole number by a rounding.
        return std::clamp(static_cast<int>(widget * mScale + 1e-6), 1, LONGEST_SIDE);
    }

    double mScale;
};

inline int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

} // namespace lectern::gtk4
