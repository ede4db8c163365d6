// SPDX-License-Identifier: Apache-2.0
// Parsers for values of options. They return nothing unless the whole word is a
// valid value.
#pragma once

#include <optional>
#include <string_view>
#include <utility>

namespace lectern {

// "480x800": two sides of 1 to FrameBuffer::MAX_SIDE pixels.
std::optional<std::pair<int, int>> parseSize(std::string_view word);
// "0,1200": two numbers of at least 0.
std::optional<std::pair<int, int>> parsePosition(std::string_view word);
// An integer of at least 1.
std::optional<int> parseCount(std::string_view word);
// An integer in [least, most].
std::optional<int> parseInteger(std::string_view word, int least, int most);
// A finite number above 0.
std::optional<double> parseFactor(std::string_view word);

} // namespace lectern
