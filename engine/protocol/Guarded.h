// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/ModuleResults.h"

#include <cstdint>
#include <new>

namespace lectern::engine {

// Runs an operation at a border that exceptions must not cross, the office
// suite's or the module's C functions, and gives its result code.
template<class Operation>
std::int32_t guarded(Operation operation) {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return MODULE_TOO_LARGE;
    } catch (...) {
        return MODULE_FAILED;
    }
}

} // namespace lectern::engine
