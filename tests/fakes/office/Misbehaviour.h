// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace lectern::engine::fake {

// Misbehaves as the document asks for, in the ways in which hostile or damaged
// documents make an office suite misbehave:
//   hang (and create a file "hanging" in the temporary folder),
//   crash, exit, eat (memory, until none is left), throw,
//   starve (as if there were no memory left),
//   slow:MILLISECONDS, code:MODULE_RESULT, second:MODULE_RESULT (every second time)
// An empty action does nothing. Returns the result code for the call.
std::int32_t misbehave(const std::string& action);

// Tries an action that a confined process must not do; returns "allowed" or the
// name of the error:
//   write:PATH, read:PATH, socket:FAMILY, exec:PATH, fork,
//   signal:PID, queue (System V)
std::string probe(const std::string& action);

} // namespace lectern::engine::fake
