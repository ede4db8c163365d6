// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpRect.h"

#include <algorithm>

// What a double tap shows: a zoom at which that which lies under the point `from` of the
// view lies under `to`.
struct TapTarget {
    static constexpr double ZOOM = 2.5; // of the fit, on nothing in particular

    double zoom = 1.0;
    CpPoint from{0, 0};
    CpPoint to{0, 0};

    // An area of the view, shown at the present zoom `scale`, as wide as the view, about
    // the tapped row.
    static TapTarget widthOf(const CpRect& area, const CpPoint& point, double scale, int viewWidth) {
        const int middle = area.Left() + area.Width() / 2;
        return {scale * viewWidth / std::max(1, area.Width()), {middle, point.y}, {viewWidth / 2, point.y}};
    }
};
