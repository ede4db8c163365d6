// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/TextHelpers.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

// A text of a module as UTF-8, at most its first `most` UTF-16 units. read(text, capacity,
// length) calls the module and returns its code. Empty after a failure.
template<typename Read>
std::string moduleText(int32_t most, Read read) {
    int32_t length = 0;
    if (read(static_cast<uint16_t*>(nullptr), 0, &length) != 0 || length < 1) {
        return {};
    }
    std::vector<uint16_t> text(static_cast<size_t>(std::min(length, most)) + 1);
    return read(text.data(), static_cast<int32_t>(text.size()), &length) == 0 ? utf8OfBuffer(text)
                                                                              : std::string();
}
