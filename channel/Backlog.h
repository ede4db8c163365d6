// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "channel/DocAdapterCommon.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>

// Client records that had to leave a full queue before the worker could read
// them: a priority queue of bounded size. The lowest type comes out first, and
// records of one type in the order they went in.
//
// When it is full a new record takes the place of the oldest pen move (later
// ones tell where the pen is), where there is none that of the oldest record
// that is no paint request, and of the oldest paint request at last.
//
// Not thread-safe.
class Backlog {
public:
    static constexpr size_t CAPACITY = 4096;

    void push(const ClientServerMessage& message);
    // The first record. REQUIRES: not empty.
    ClientServerMessage pop();
    // The first record's type. REQUIRES: not empty.
    long lowestType() const { return mByType.begin()->first; }
    bool empty() const { return mSize == 0; }
    size_t size() const { return mSize; }

private:
    struct Entry {
        uint64_t arrival;
        ClientServerMessage message;
    };
    // Queues of one type each; never an empty one.
    using ByType = std::map<long, std::deque<Entry>>;

    ByType::iterator leastNeeded();
    void dropFirst(ByType::iterator queue);

    ByType mByType;
    size_t mSize = 0;
    uint64_t mArrivals = 0;
};
