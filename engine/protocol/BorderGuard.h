// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/ModuleResults.h"

#include <cstdint>
#include <new>

namespace lectern::engine {

// Runs an operation at a border that exceptions must not cross, a module's C
// functions or the handlers of the engine's calls, and returns its result code;
// MODULE_TOO_LARGE when there is not enough memory, MODULE_FAILED for any other
// exception.
template<class Operation>
std::int32_t guardedAtBorder(Operation operation) {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return MODULE_TOO_LARGE;
    } catch (...) {
        return MODULE_FAILED;
    }
}

} // namespace lectern::engine
