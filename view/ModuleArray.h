// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>

// An array that a module has returned, as a span; empty for a null pointer or a
// count below 1. The module keeps the ownership of the records.
template<typename Record>
std::span<const Record> moduleArray(const Record* records, int32_t count) {
    return records != nullptr && count > 0 ? std::span(records, static_cast<size_t>(count))
                                           : std::span<const Record>();
}
