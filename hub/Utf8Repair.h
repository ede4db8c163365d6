// SPDX-License-Identifier: Apache-2.0
// Making texts fit for the bus, which carries valid UTF-8 only.
#pragma once

#include "base/GLibHolder.h"

#include <string_view>

namespace hub {

// The text, or as much of it as is left when a character that its end cuts off
// is left out. Other faults stay.
std::string_view withoutCutCharacter(std::string_view text);

// A valid copy of the text: without a character that its end cuts off, and
// with U+FFFD for each other byte that belongs to no character.
lectern::GLibHolder<char> validUtf8(std::string_view text);

} // namespace hub
