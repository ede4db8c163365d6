// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "modules/WordToGoModule.h"

// Where to go on among hits: bisections that find the first entry at or above
// a key, as a rule. They start in the middle, step left by halving the index and
// never look at entry 0, so that with few entries, or keys out of order, the
// answer may be a neighbour. They always end, in 0 to count - 1; 0 for no entries.

// By the row of the first rectangle, in buffer pixels.
int find_first_region_greater_than_eq(int y, const wtg_find_region* regions, int count);
// By the hit's end; may answer with the hit that has this position or the next.
int find_first_result_greater_than_eq(unsigned int position, const wtg_find_result* results, int count);

// The row of a hit's first rectangle, in buffer pixels; 0 without rectangles.
inline int firstRow(const wtg_find_region& region) {
    return region.rectangle_count > 0 && region.rectangles != nullptr ? region.rectangles[0].y : 0;
}
