// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace lectern::engine {

// A line of a slide's outline and its depth: 0 for the title, 1 and more for text.
struct OutlineItem {
    std::u16string text;
    int32_t level = 0;
};

} // namespace lectern::engine
