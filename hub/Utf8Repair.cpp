// SPDX-License-Identifier: Apache-2.0
#include "hub/Utf8Repair.h"

#include <algorithm>

namespace hub {
namespace {

// The length in bytes of the character that starts with this byte; 0 if no character
// can start with it.
size_t characterLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        return 2;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return 3;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        return 4;
    }
    return 0;
}

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

} // namespace

std::string_view withoutCutCharacter(std::string_view text) {
    constexpr size_t LONGEST_CUT = 3;
    for (size_t tail = 1; tail <= std::min(LONGEST_CUT, text.size()); ++tail) {
        const auto byte = static_cast<unsigned char>(text[text.size() - tail]);
        if (isContinuation(byte)) {
            continue;
        }
        return characterLength(byte) > tail ? text.substr(0, text.size() - tail) : text;
    }
    return text;
}

lectern::GLibHolder<char> validUtf8(std::string_view text) {
    const std::string_view whole = withoutCutCharacter(text);
    return lectern::GLibHolder<char>(g_utf8_make_valid(whole.data(), static_cast<gssize>(whole.size())));
}

} // namespace hub
