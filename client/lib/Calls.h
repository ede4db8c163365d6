// SPDX-License-Identifier: Apache-2.0
// What the typed calls of all categories are made of.
#pragma once

#include "client/lib/Json.h"
#include <lectern/Bus.h>

#include <optional>
#include <utility>

namespace lectern {

// {"docid": docid}, to which a call adds what else it needs.
JsonMembers documentPayload(int docid);

// A call whose reply says no more than that it was done.
Failure command(const Bus& bus, const char* category, const char* method, const JsonMembers& payload,
                const CallLimits& limits);

// A call whose reply is a JSON object.
Result<JsonMembers> query(const Bus& bus, const char* category, const char* method,
                          const JsonMembers& payload, const CallLimits& limits);

// A call whose reply is a JSON object with one whole number, under this key.
Result<int> queryInteger(const Bus& bus, const char* category, const char* method, const JsonMembers& payload,
                         const char* key, const CallLimits& limits);

// A member that a reply must have.
template<typename T>
Result<T> required(std::optional<T> member) {
    if (!member) {
        return Error{
            Error::Kind::Bus, "the service's reply is incomplete; the service may be another version", 0, {}};
    }
    return std::move(*member);
}

} // namespace lectern
