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

// The elements of an array that an engine sent. Valid as long as `array` lives.
template<class Element>
std::span<const Element> elementsOf(GVariant* array) {
    gsize count = 0;
    const void* elements = g_variant_get_fixed_array(array, &count, sizeof(Element));
    return {static_cast<const Element*>(elements), count};
}

inline std::vector<std::int32_t> numbersOf(GVariant* array) {
    const std::span<const std::int32_t> numbers = elementsOf<std::int32_t>(array);
    return {numbers.begin(), numbers.end()};
}

// Packs such numbers.
inline GLibHolder<GVariant> packed(const std::vector<std::int32_t>& numbers) {
    return GLibHolder<GVariant>(g_variant_ref_sink(g_variant_new_fixed_array(
        G_VARIANT_TYPE_INT32, numbers.data(), numbers.size(), sizeof(std::int32_t))));
}

// Converts each four numbers to a rectangle; ignores a remainder.
inline std::vector<module_rect> rectanglesOf(GVariant* array) {
    const std::span<const std::int32_t> numbers = elementsOf<std::int32_t>(array);
    std::vector<module_rect> rectangles;
    rectangles.reserve(numbers.size() / 4);
    for (std::size_t i = 0; i + 4 <= numbers.size(); i += 4) {
        rectangles.push_back({numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3]});
    }
    return rectangles;
}

// The length of a zero-terminated UTF-16 text, as the modules' callers pass it.
inline std::size_t unitCount(const std::uint16_t* text) {
    std::size_t length = 0;
    while (text[length] != 0) {
        length++;
    }
    return length;
}

// Packs such a text.
inline GLibHolder<GVariant> unitsOf(const std::uint16_t* text) {
    return GLibHolder<GVariant>(g_variant_ref_sink(
        g_variant_new_fixed_array(G_VARIANT_TYPE_UINT16, text, unitCount(text), sizeof(std::uint16_t))));
}

} // namespace lectern::engine
