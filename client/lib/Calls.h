// SPDX-License-Identifier: Apache-2.0
// Helpers for the typed calls of all categories.
#pragma once

#include "client/lib/Json.h"
#include <lectern/Bus.h>

#include <optional>
#include <utility>

namespace lectern {

// Returns {"docid": docid}, to which a call adds its other arguments.
JsonMembers documentPayload(int docid);

// A call whose reply reports only success.
Failure command(const Bus& bus, const char* category, const char* method, const JsonMembers& payload,
                const CallLimits& limits);

// A call whose reply is a JSON object.
Result<JsonMembers> query(const Bus& bus, const char* category, const char* method,
                          const JsonMembers& payload, const CallLimits& limits);

// A call whose reply is a JSON object with one integer, under this key.
Result<int> queryInteger(const Bus& bus, const char* category, const char* method, const JsonMembers& payload,
                         const char* key, const CallLimits& limits);

// Returns a required member of a reply, or an error when it is missing.
template<typename T>
Result<T> required(std::optional<T> member) {
    if (!member) {
        return Error{
            Error::Kind::Bus, "the service's reply is incomplete; the service may be another version", 0, {}};
    }
    return std::move(*member);
}

} // namespace lectern
