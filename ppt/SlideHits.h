// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/SlideshowToGoModule.h"

// Bisections among search hits. view/Bisection.h describes their results. They return 0
// if there are no hits.

// Finds a region by the row of its first rectangle, in surface pixels.
int find_first_region_greater_than_eq(int y, const sstg_find_region* regions, int count);
// Finds a slide with hits by its number.
int find_first_slide_greater_than_eq(int slide, const sstg_find_info* infos, int count);
