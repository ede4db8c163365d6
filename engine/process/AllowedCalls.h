// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <vector>

namespace lectern::engine {

// A condition on one of a system call's arguments, counted from 0:
// (argument & mask) == value.
struct Condition {
    unsigned argument;
    std::uint64_t mask;
    std::uint64_t value;
};

// A call that is allowed when all conditions hold. Several entries of one name are
// alternatives.
struct AllowedCall {
    const char* name;
    std::vector<Condition> conditions;
};

// What an engine with a document calls. It was found by tracing engines over a collection
// of documents; added is what other versions of the C library call in place of that.
std::vector<AllowedCall> callsOfEngine();

// The same, and what the fork server calls besides, or an engine before it is confined.
std::vector<AllowedCall> callsOfForkServer();

} // namespace lectern::engine
