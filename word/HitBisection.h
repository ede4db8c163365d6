// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/WordToGoModule.h"

#include <cstdint>

// Bisections among search hits. view/Bisection.h describes their results. They return 0
// if there are no hits.

// Finds a region by the row of its first rectangle, in buffer pixels.
int find_first_region_greater_than_eq(int y, const wtg_find_region* regions, int count);
// Finds a hit by its end. The result may be the hit at this position or the next one.
int find_first_result_greater_than_eq(unsigned int position, const wtg_find_result* results, int count);

// The row of a hit's first rectangle, in buffer pixels; 0 without rectangles.
inline int firstRow(const wtg_find_region& region) {
    return region.rectangle_count > 0 && region.rectangles != nullptr ? region.rectangles[0].y : 0;
}
