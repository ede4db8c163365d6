// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/SlideshowToGoModule.h"

// Bisections among hits; see view/Bisection.h for what they answer.

// By the row of the first rectangle, in surface pixels.
int find_first_region_greater_than_eq(int y, const sstg_find_region* regions, int count);
// By the slide.
int find_first_slide_greater_than_eq(int slide, const sstg_find_info* infos, int count);
