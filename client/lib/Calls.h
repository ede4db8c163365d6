// SPDX-License-Identifier: Apache-2.0
// Helpers for the typed calls of all categories.
#pragma once

#include "client/lib/Json.h"
#include <lectern/Bus.h>
#include <lectern/Call.h>
#include <lectern/FrameBuffer.h>

#include <optional>
#include <utility>
#include <vector>

namespace lectern {

// Returns {"docid": docid}.
JsonMembers documentPayload(int docid);

// Adds the size and the segment of a frame buffer.
JsonMembers addFrame(JsonMembers arguments, const FrameBuffer& frame);

// Makes a request for a document; returns the text of the reply.
Result<std::string> ask(const Bus& bus, int docid, const Request& request, const CallLimits& limits = {});

template<typename Value>
Answer<Value> ask(const Bus& bus, int docid, const Call<Value>& call, const CallLimits& limits = {}) {
    const Result<std::string> reply = ask(bus, docid, call.request, limits);
    return reply ? call.read(*reply) : Answer<Value>(reply.error());
}

// A call whose reply reports only success.
Call<void> command(const char* category, const char* method, const JsonMembers& arguments = {});

// A call that returns the text of its reply, unchanged.
Call<std::string> textQuery(const char* category, const char* method);

// A call whose reply is a JSON object with one integer, under this key.
Call<int> integerQuery(const char* category, const char* method, const char* key,
                       const JsonMembers& arguments = {});

// Returns a required member of a reply, or an error when it is missing.
template<typename T>
Result<T> required(std::optional<T> member) {
    if (!member) {
        return Error{
            Error::Kind::Bus, "the service's reply is incomplete; the service may be another version", 0, {}};
    }
    return std::move(*member);
}

// A call whose reply is a JSON object, which `read` reads.
template<typename Value>
Call<Value> query(const char* category, const char* method, Result<Value> (*read)(const JsonMembers& reply),
                  const JsonMembers& arguments = {}) {
    return {{category, method, arguments.text()}, [read](const std::string& reply) {
                const Result<JsonMembers> members = required(JsonMembers::parse(reply));
                return members ? read(*members) : members.error();
            }};
}

// A call whose reply is a JSON object with a list of objects, each read by `read`.
template<typename Element>
Call<std::vector<Element>> listQuery(const char* category, const char* method, const char* key,
                                     Element (*read)(const JsonMembers& element)) {
    return {{category, method}, [key, read](const std::string& reply) -> Result<std::vector<Element>> {
                const std::optional<JsonMembers> members = JsonMembers::parse(reply);
                const auto list = required(members ? members->list(key) : std::nullopt);
                if (!list) {
                    return list.error();
                }
                std::vector<Element> elements;
                for (const JsonMembers& element : *list) {
                    elements.push_back(read(element));
                }
                return elements;
            }};
}

} // namespace lectern
