// SPDX-License-Identifier: Apache-2.0
#include "engine/office/word/BoxTint.h"

#include "engine/layout/Tint.h"

#include <algorithm>

namespace lectern::engine {

void tint(const Surface& surface, int64_t top, const TextBox& box, int32_t first, int32_t last,
          const Colour& colour) {
    tint(surface, box.left, std::max<int64_t>(box.top - top, first), box.right,
         std::min<int64_t>(box.bottom - top, last), colour);
}

} // namespace lectern::engine
