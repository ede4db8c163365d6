// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/ModuleResults.h"

#include <cstdint>

namespace lectern::engine {

// An engine may have been taken over by its document, so what it tells is bounded where
// it comes in. Lists are bounded by the size of a message.

// The most sheets or slides: the suite takes up to 10,000 sheets and numbers slides with
// 16 bits.
constexpr std::int32_t MOST_PARTS = 65535;
// The longest side of a slide in 1/72 inch, over 30 metres; the suite takes 3 metres.
constexpr std::int32_t MOST_POINTS = 100'000;

// The code that an engine answered, or MODULE_FAILED for one that only the service's
// side can tell or that is none.
constexpr std::int32_t codeFromEngine(std::int32_t told) {
    const bool isOfThisSide = told == MODULE_TIMED_OUT || told == MODULE_ENGINE_LOST ||
                              told == MODULE_NO_ENGINE || told == MODULE_CHANGED || told == MODULE_CANCELLED;
    return told < MODULE_OK || told > MODULE_CANCELLED || isOfThisSide ? MODULE_FAILED : told;
}

// A number that must be from least to most; else the code of a failed call.
constexpr std::int32_t checkedCount(std::int32_t result, std::int32_t told, std::int32_t least,
                                    std::int32_t most) {
    return result == MODULE_OK && (told < least || told > most) ? MODULE_FAILED : result;
}

} // namespace lectern::engine
