// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <stop_token>

namespace lectern {

// Sleeps until `time`; returns false at once when a stop is requested.
bool pauseUntil(std::chrono::steady_clock::time_point time, const std::stop_token& stop);
bool pauseFor(std::chrono::milliseconds time, const std::stop_token& stop);

} // namespace lectern
