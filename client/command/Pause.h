// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <stop_token>

namespace lectern {

// Sleeps until the time, or until a stop is asked for: false then.
bool pauseUntil(std::chrono::steady_clock::time_point time, const std::stop_token& stop);
bool pauseFor(std::chrono::milliseconds time, const std::stop_token& stop);

} // namespace lectern
