// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/host/Export.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace lectern::engine {

// Converts a zero-terminated UTF-16 text to UTF-8. Returns nothing for null and
// for text that is not well-formed.
LECTERN_ENGINE_EXPORT std::optional<std::string> toUtf8(const std::uint16_t* text);

// Whether a caller's text buffer is valid: `length` is not null, and
// `capacity`, in any unit, is consistent with `text`.
inline bool isTextBuffer(const std::uint16_t* text, std::int32_t capacity, const std::int32_t* length) {
    return length != nullptr && capacity >= 0 && (text != nullptr || capacity == 0);
}

// Answers a text call: sets *length to the length of the whole text and writes
// as many whole characters and a terminator as fit into `capacity` units.
// REQUIRES: isTextBuffer.
LECTERN_ENGINE_EXPORT void deliverText(std::span<const std::uint16_t> whole, std::uint16_t* text,
                                       std::int32_t capacity, std::int32_t* length);

// As deliverText, but writes from unit `first` on; *length is still the length
// of the whole text. REQUIRES: first >= 0.
inline void deliverTextFrom(std::span<const std::uint16_t> whole, std::int32_t first, std::uint16_t* text,
                            std::int32_t capacity, std::int32_t* length) {
    const std::size_t skipped = std::min(whole.size(), static_cast<std::size_t>(first));
    deliverText(whole.subspan(skipped), text, capacity, length);
    *length += static_cast<std::int32_t>(skipped);
}

} // namespace lectern::engine
