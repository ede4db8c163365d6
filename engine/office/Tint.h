// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/office/PlacedRanges.h"
#include "engine/office/TilePainter.h"

#include <array>

namespace lectern::engine {

// Red, green, blue.
using Colour = std::array<uint8_t, 3>;

// Lays a colour over the part of a box that lies in rows [first, last) of the
// stretch that starts at row `top` of the text, as a marker pen would: white
// takes the colour, black stays.
void tint(const Surface& surface, int64_t top, const TextBox& box, int32_t first, int32_t last,
          const Colour& colour);

} // namespace lectern::engine
