// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <lectern/Bus.h>

#include <optional>
#include <string>

namespace lectern {

// Calls a method and gives its reply, or nothing for one that the service does
// without a reply. Nothing is waited for then: the bus says when it is done.
Result<std::optional<std::string>> callService(const Bus& bus, const char* category, const char* method,
                                               const std::string& payload, const CallLimits& limits);

} // namespace lectern
