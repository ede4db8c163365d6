// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace lectern::engine {

// A document's properties. Unset texts are empty, unset times 0. Times are
// seconds since 1970 in UTC.
struct DocumentInformation {
    std::u16string name;
    std::u16string author;
    std::u16string description;
    int64_t created = 0;
    int64_t lastSaved = 0;
};

} // namespace lectern::engine
