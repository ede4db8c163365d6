// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace lectern::engine::fake {

// Misbehaves as the document asks for, in the ways in which hostile or damaged
// documents make an office suite misbehave:
//   hang (and create a file "hanging" in the temporary folder),
//   crash, exit, eat (memory, until none is left), throw,
//   starve (as if there were no memory left), threads (many), spin (after the call),
//   litter (large files), nest (folders), removed (large files, which are removed and stay open),
//   slow:MILLISECONDS, code:MODULE_RESULT, second:MODULE_RESULT (every second time)
// An empty action does nothing. Returns the result code for the call.
std::int32_t misbehave(const std::string& action);

} // namespace lectern::engine::fake
