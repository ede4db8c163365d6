// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace lectern::engine {

// Whether `wanted` is in a text, and neither its start nor its end lies inside a longer
// word or number.
bool hasWholeWords(std::u16string_view text, std::u16string_view wanted, bool matchCase);

} // namespace lectern::engine
