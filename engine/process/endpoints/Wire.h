// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/Surface.h"
#include "engine/protocol/Vocabulary.h"

#include <gio/gio.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

// Conversions between the types of the documents' operations and those of the protocol.
namespace lectern::engine {

// Converts an input of an operation; numbers are passed unchanged.
template<class T>
struct Wire {
    using Type = T;
    static T read(T value) { return value; }
};
template<>
struct Wire<bool> {
    using Type = gboolean;
    static bool read(gboolean value) { return value != FALSE; }
};
template<>
struct Wire<Axis> {
    using Type = gint;
    static Axis read(gint value) { return value == 0 ? Axis::Columns : Axis::Rows; }
};
template<>
struct Wire<ClickType> {
    using Type = gint;
    static ClickType read(gint value) { return static_cast<ClickType>(value); }
};
// UTF-16 units, not necessarily well-formed.
template<>
struct Wire<std::u16string> {
    using Type = GVariant*;
    static std::u16string read(GVariant* units) {
        gsize count = 0;
        const void* first = g_variant_get_fixed_array(units, &count, sizeof(char16_t));
        const auto* text = static_cast<const char16_t*>(first);
        return {text, text + count};
    }
};

template<>
struct Wire<std::vector<std::int32_t>> {
    using Type = GVariant*;
    static std::vector<std::int32_t> read(GVariant* numbers) {
        gsize count = 0;
        const void* first = g_variant_get_fixed_array(numbers, &count, sizeof(gint32));
        const auto* number = static_cast<const gint32*>(first);
        return {number, number + count};
    }
};

// Converts an output of an operation.
template<class Number>
requires std::is_arithmetic_v<Number> Number written(Number number) {
    return number;
}
inline gint written(ClickType type) {
    return static_cast<gint>(type);
}
inline GVariant* written(const std::u16string& text) {
    return g_variant_new_fixed_array(G_VARIANT_TYPE_UINT16, text.data(), text.size(), sizeof(char16_t));
}
inline GVariant* written(const std::vector<std::int32_t>& numbers) {
    return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, numbers.data(), numbers.size(), sizeof(gint32));
}
inline GVariant* written(const std::vector<std::uint32_t>& numbers) {
    return g_variant_new_fixed_array(G_VARIANT_TYPE_UINT32, numbers.data(), numbers.size(), sizeof(guint32));
}
inline GVariant* written(const std::vector<PixelRect>& rectangles) {
    static_assert(sizeof(PixelRect) == 4 * sizeof(gint32));
    return g_variant_new_fixed_array(G_VARIANT_TYPE_INT32, rectangles.data(), 4 * rectangles.size(),
                                     sizeof(gint32));
}

} // namespace lectern::engine
