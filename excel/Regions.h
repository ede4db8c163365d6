// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>

#include "modules/SheetToGoModule.h"

// The regions that a module has handed out; none where there is no array. They
// stay the module's.
inline std::span<const stg_region> regionsIn(const stg_region* array, int32_t count) {
    return array != nullptr && count > 0 ? std::span(array, static_cast<size_t>(count))
                                         : std::span<const stg_region>();
}
