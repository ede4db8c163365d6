// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"

#include <cstdint>

namespace lectern::engine {

// A pixel under a marker pen: white takes the colour, black stays.
uint32_t tinted(uint32_t pixel, const Colour& colour);

// Lays a colour over columns [left, right) of rows [top, bottom), or what of
// them lies on the surface.
void tint(const Surface& surface, int64_t left, int64_t top, int64_t right, int64_t bottom,
          const Colour& colour);

} // namespace lectern::engine
