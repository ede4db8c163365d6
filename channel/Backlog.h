// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>

// Client records that were taken off a full queue before the worker could read
// them: a priority queue of bounded size. pop() returns the lowest type first, and
// records of the same type in the order of push().
//
// When the backlog is full, push() drops a record: the oldest pen move, because
// later ones have the newer position; if there is none, the oldest record that is
// not a paint request; else the oldest paint request.
//
// Not thread-safe.
class Backlog {
public:
    static constexpr size_t CAPACITY = 4096;

    void push(const ClientServerMessage& message);
    // Removes and returns the first record. REQUIRES: not empty.
    ClientServerMessage pop();
    // Removes and returns the record that was pushed first. REQUIRES: not empty.
    ClientServerMessage popOldest();
    // The type of the first record. REQUIRES: not empty.
    long lowestType() const { return mByType.begin()->first; }
    bool empty() const { return mSize == 0; }
    size_t size() const { return mSize; }

private:
    struct Entry {
        uint64_t arrival;
        ClientServerMessage message;
    };
    // One queue for each type, without empty queues.
    using ByType = std::map<long, std::deque<Entry>>;

    ByType::iterator leastNeeded();
    void dropFirst(ByType::iterator queue);

    ByType mByType;
    size_t mSize = 0;
    uint64_t mArrivals = 0;
};
