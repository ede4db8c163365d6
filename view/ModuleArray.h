// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>

// What a module has handed out as an array; none where there is no array. The
// records stay the module's.
template<typename Record>
std::span<const Record> moduleArray(const Record* records, int32_t count) {
    return records != nullptr && count > 0 ? std::span(records, static_cast<size_t>(count))
                                           : std::span<const Record>();
}
