// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/GLibHolder.h"
#include "modules/ModuleTypes.h"

#include <glib.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lectern::engine {

// The numbers or units of an array that an engine sent; valid as long as it is.
template<class Element>
std::span<const Element> elementsOf(GVariant* array) {
    gsize count = 0;
    const void* elements = g_variant_get_fixed_array(array, &count, sizeof(Element));
    return {static_cast<const Element*>(elements), count};
}

// Four numbers make a rectangle; what is left over is none.
inline std::vector<module_rect> rectanglesOf(GVariant* array) {
    const std::span<const std::int32_t> numbers = elementsOf<std::int32_t>(array);
    std::vector<module_rect> rectangles;
    rectangles.reserve(numbers.size() / 4);
    for (std::size_t i = 0; i + 4 <= numbers.size(); i += 4) {
        rectangles.push_back({numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3]});
    }
    return rectangles;
}

// Zero-terminated units, as modules give and take texts.
inline GLibHolder<GVariant> unitsOf(const std::uint16_t* text) {
    std::size_t length = 0;
    while (text[length] != 0) {
        length++;
    }
    return GLibHolder<GVariant>(g_variant_ref_sink(
        g_variant_new_fixed_array(G_VARIANT_TYPE_UINT16, text, length, sizeof(std::uint16_t))));
}

} // namespace lectern::engine
