// SPDX-License-Identifier: Apache-2.0
#include "client/command/Values.h"

#include <lectern/FrameBuffer.h>

#include <charconv>
#include <cmath>

namespace lectern {

namespace {

template<typename Number>
std::optional<Number> parseNumber(std::string_view word) {
    Number value{};
    const char* end = word.data() + word.size();
    const auto [stop, failure] = std::from_chars(word.data(), end, value);
    if (failure != std::errc() || stop != end) {
        return std::nullopt;
    }
    return value;
}

// Parses two integers in [least, most] around a separator.
std::optional<std::pair<int, int>> parsePair(std::string_view word, char separator, int least, int most) {
    const size_t middle = word.find(separator);
    if (middle == std::string_view::npos) {
        return std::nullopt;
    }
    const std::optional<int> first = parseNumber<int>(word.substr(0, middle));
    const std::optional<int> second = parseNumber<int>(word.substr(middle + 1));
    if (!first || !second || *first < least || *second < least || *first > most || *second > most) {
        return std::nullopt;
    }
    return std::pair(*first, *second);
}

} // namespace

std::optional<std::pair<int, int>> parseSize(std::string_view word) {
    return parsePair(word, 'x', 1, FrameBuffer::MAX_SIDE);
}

std::optional<std::pair<int, int>> parsePosition(std::string_view word) {
    return parsePair(word, ',', 0, INT32_MAX);
}

std::optional<int> parseCount(std::string_view word) {
    return parseInteger(word, 1, INT32_MAX);
}

std::optional<int> parseInteger(std::string_view word, int least, int most) {
    const std::optional<int> number = parseNumber<int>(word);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

std::optional<double> parseFactor(std::string_view word) {
    const std::optional<double> factor = parseNumber<double>(word);
    return factor && std::isfinite(*factor) && *factor > 0 ? factor : std::nullopt;
}

} // namespace lectern
