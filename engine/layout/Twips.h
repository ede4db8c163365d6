// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace lectern::engine {

// The suite measures positions and sizes in twips, twentieths of a point.
constexpr int64_t TWIPS_PER_INCH = 1440;

} // namespace lectern::engine
