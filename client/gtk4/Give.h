// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/gtk4/Geometry.h"

namespace lectern::gtk4 {

// How far the picture follows a finger beyond the edge of the document: half as fast at
// first, then less and less, and never further than a part of the view.
class Give {
public:
    // beyond: how far the finger is beyond the edges; above 0 beyond the right or bottom
    // one, which the picture leaves to the left or upwards.
    void pull(Point beyond, Size view) {
        mOffset = {-along(beyond.x, view.width), -along(beyond.y, view.height)};
    }
    // The finger has left: the picture returns during `seconds`.
    void relax(double seconds) {
        mOffset = mOffset * std::exp(-seconds / RETURN);
        if (std::abs(mOffset.x) < STILL && std::abs(mOffset.y) < STILL) {
            mOffset = {};
        }
    }
    void end() { mOffset = {}; }
    Point offset() const { return mOffset; }

private:
    static constexpr double MOST = 0.125;  // of the view's side
    static constexpr double RETURN = 0.06; // seconds in which two thirds of it are gone
    static constexpr double STILL = 0.5;   // pixels that nobody sees

    static double along(double beyond, int side) {
        const double most = side * MOST;
        return most <= 0 ? 0 : most * beyond / (std::abs(beyond) + 2 * most);
    }

    Point mOffset;
};

} // namespace lectern::gtk4
