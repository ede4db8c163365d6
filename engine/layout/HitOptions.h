// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/layout/TextTypes.h"

#include <cstdint>
#include <string_view>

namespace lectern::engine {

// The flags of the modules' set_find_options.
constexpr int32_t MATCH_CASE = 1;
constexpr int32_t WHOLE_WORDS = 2;

// Whether a hit that was found in a text without regard to case is one with these flags:
// has the same units as `wanted`, is not a part of a longer word.
bool isWantedHit(std::u16string_view text, std::u16string_view wanted, CharacterRange hit, int32_t flags);

} // namespace lectern::engine
