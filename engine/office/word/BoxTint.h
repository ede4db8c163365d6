// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/office/word/PlacedRanges.h"

namespace lectern::engine {

// Blends a colour over the part of a box that lies in rows [first, last) of the
// stretch that starts at row `top` of the text.
void tint(const Surface& surface, int64_t top, const TextBox& box, int32_t first, int32_t last,
          const Colour& colour);

} // namespace lectern::engine
