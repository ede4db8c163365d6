// SPDX-License-Identifier: Apache-2.0
#include "client/lib/Calls.h"

namespace lectern {

JsonMembers documentPayload(int docid) {
    JsonMembers payload;
    payload.add("docid", docid);
    return payload;
}

Failure command(const Bus& bus, const char* category, const char* method, const JsonMembers& payload,
                const CallLimits& limits) {
    const Result<std::string> reply = bus.call(category, method, payload.text(), limits);
    return reply ? Failure() : reply.error();
}

Result<JsonMembers> query(const Bus& bus, const char* category, const char* method,
                          const JsonMembers& payload, const CallLimits& limits) {
    const Result<std::string> reply = bus.call(category, method, payload.text(), limits);
    if (!reply) {
        return reply.error();
    }
    return required(JsonMembers::parse(*reply));
}

Result<int> queryInteger(const Bus& bus, const char* category, const char* method, const JsonMembers& payload,
                         const char* key, const CallLimits& limits) {
    const Result<JsonMembers> reply = query(bus, category, method, payload, limits);
    return reply ? required(reply->integer(key)) : reply.error();
}

} // namespace lectern
