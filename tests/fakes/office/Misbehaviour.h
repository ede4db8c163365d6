// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace lectern::engine::fake {

// Does what a document asks for at some point of its life, as hostile or
// unlucky documents make an office suite do:
//   hang (a file "hanging" in its temporary folder tells that it does),
//   crash, exit, eat (memory, until none is given), throw,
//   starve (as if there were no memory left),
//   slow:MILLISECONDS, code:MODULE_RESULT, second:MODULE_RESULT (every second time)
// An empty action does nothing. Gives the result code to go on with.
std::int32_t misbehave(const std::string& action);

// Tries something that a confined process may not do and tells how it ended,
// "allowed" or the name of the error:
//   write:PATH, read:PATH, socket:FAMILY, exec:PATH, fork,
//   signal:PID, queue (System V)
std::string probe(const std::string& action);

} // namespace lectern::engine::fake
