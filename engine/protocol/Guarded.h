// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/ModuleResults.h"

#include <cstdint>
#include <new>

namespace lectern::engine {

// Runs an operation that must not let exceptions escape, because its caller is
// the office suite or C code. Returns its result code, MODULE_TOO_LARGE when
// memory ran out, or MODULE_FAILED after any other exception.
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
