// SPDX-License-Identifier: Apache-2.0
#include "engine/modules/Utf16.h"

#include "base/GLibHolder.h"

#include <algorithm>
#include <limits>

namespace lectern::engine {
namespace {

bool isHighSurrogate(std::uint16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
bool isLowSurrogate(std::uint16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

} // namespace

std::optional<std::string> toUtf8(const std::uint16_t* text) {
    if (text == nullptr) {
        return std::nullopt;
    }
    const GLibHolder<char> converted(g_utf16_to_utf8(text, -1, nullptr, nullptr, nullptr));
    return converted ? std::optional<std::string>(converted.get()) : std::nullopt;
}

void deliverText(std::span<const std::uint16_t> whole, std::uint16_t* text, std::int32_t capacity,
                 std::int32_t* length) {
    constexpr std::size_t LONGEST = std::numeric_limits<std::int32_t>::max();
    *length = static_cast<std::int32_t>(std::min(whole.size(), LONGEST));
    if (capacity < 1) {
        return;
    }
    std::size_t units = std::min(whole.size(), static_cast<std::size_t>(capacity) - 1);
    if (units > 0 && units < whole.size() && isHighSurrogate(whole[units - 1]) &&
        isLowSurrogate(whole[units])) {
        units--;
    }
    std::copy_n(whole.begin(), units, text);
    text[units] = 0;
}

} // namespace lectern::engine
