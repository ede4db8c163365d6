// SPDX-License-Identifier: Apache-2.0
#include "client/command/ServiceCall.h"

namespace lectern {

Result<std::optional<std::string>> callService(const Bus& bus, const char* category, const char* method,
                                               const std::string& payload, const CallLimits& limits) {
    const Result<std::string> reply = bus.call(category, method, payload, limits);
    if (reply) {
        return std::optional(*reply);
    }
    // A service that ends during the call causes the same error, so check that
    // it still runs.
    if (reply.error().name == "org.freedesktop.DBus.Error.NoReply" && bus.serviceRuns()) {
        return std::optional<std::string>();
    }
    return reply.error();
}

} // namespace lectern
