// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <vector>

namespace lectern::engine {

// A condition on one of a system call's arguments, counted from 0.
struct Condition {
    unsigned argument;
    std::uint64_t mask; // of the bits that are compared
    std::uint64_t value;
    bool equal = true; // otherwise they differ; all bits are compared then
};

// A call for which all conditions hold. Several entries of one name are alternatives.
struct SystemCall {
    const char* name;
    std::vector<Condition> conditions;
};

// What the fork server and engines call. It was found by tracing engines over a collection
// of documents; added is what other versions of the C library call in place of that.
std::vector<SystemCall> allowedCalls();

// Of these, what an engine with a document, this process, does not call.
std::vector<SystemCall> callsRefusedToEngine();

} // namespace lectern::engine
