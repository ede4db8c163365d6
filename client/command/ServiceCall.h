// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <optional>
#include <string>

namespace lectern {

// Calls a method. Returns its reply, or nothing when the service completes the
// method without a reply; the bus reports that without a delay.
Result<std::optional<std::string>> callService(const Bus& bus, const char* category, const char* method,
                                               const std::string& payload, const CallLimits& limits);

} // namespace lectern
