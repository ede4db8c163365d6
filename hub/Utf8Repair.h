// SPDX-License-Identifier: Apache-2.0
// Repairs texts for the bus, which transmits only valid UTF-8.
#pragma once

#include "base/GLibHolder.h"

#include <string_view>

namespace hub {

// Returns the text without an incomplete character at its end. Other faults stay.
std::string_view withoutCutCharacter(std::string_view text);

// Returns a valid copy of the text: without an incomplete character at its end, and
// with U+FFFD in place of every other byte that is not part of a character.
lectern::GLibHolder<char> validUtf8(std::string_view text);

} // namespace hub
