// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "raster/CpRect.h"

// One axis of a rectangle in pixels.
struct Extent {
    int from;
    int to;
};

inline CpRect rectangleOf(const Extent& columns, const Extent& rows) {
    return {columns.from, rows.from, columns.to, rows.to};
}
