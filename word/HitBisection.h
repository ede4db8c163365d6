// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/WordToGoModule.h"

#include <cstdint>

// Bisections among hits; see view/Bisection.h for what they answer.

// By the row of the first rectangle, in buffer pixels.
int find_first_region_greater_than_eq(int y, const wtg_find_region* regions, int count);
// By the hit's end; may answer with the hit that has this position or the next.
int find_first_result_greater_than_eq(unsigned int position, const wtg_find_result* results, int count);

// The row of a hit's first rectangle, in buffer pixels; 0 without rectangles.
inline int firstRow(const wtg_find_region& region) {
    return region.rectangle_count > 0 && region.rectangles != nullptr ? region.rectangles[0].y : 0;
}
