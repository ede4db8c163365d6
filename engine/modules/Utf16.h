// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace lectern::engine {

// A zero-terminated UTF-16 text as UTF-8. Nothing for null and for what is not
// well-formed.
LECTERN_ENGINE_EXPORT std::optional<std::string> toUtf8(const std::uint16_t* text);

// Whether the caller's buffer is one: a place for the length, and a capacity,
// in whatever unit, that fits the text pointer.
inline bool isTextBuffer(const std::uint16_t* text, std::int32_t capacity, const std::int32_t* length) {
    return length != nullptr && capacity >= 0 && (text != nullptr || capacity == 0);
}

// Answers a text call: *length is that of the whole text; what fits into
// `capacity` units with a terminator is written, cut between whole characters.
// REQUIRES: isTextBuffer.
LECTERN_ENGINE_EXPORT void deliverText(std::span<const std::uint16_t> whole, std::uint16_t* text,
                                       std::int32_t capacity, std::int32_t* length);

// ... writes from unit `first` on; the length is still that of the whole text.
// REQUIRES: first >= 0.
inline void deliverTextFrom(std::span<const std::uint16_t> whole, std::int32_t first, std::uint16_t* text,
                            std::int32_t capacity, std::int32_t* length) {
    const std::size_t skipped = std::min(whole.size(), static_cast<std::size_t>(first));
    deliverText(whole.subspan(skipped), text, capacity, length);
    *length += static_cast<std::int32_t>(skipped);
}

} // namespace lectern::engine
