// SPDX-License-Identifier: Apache-2.0
// The queue as any process sees it, without the wrapper under test.
#pragma once

#include "channel/DocAdapterCommon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

// A record as it is stored in the queue.
struct RawRecord {
    long type = 0;
    std::string text;
};

// Tests that use the queue. It is open and empty at the start of each test and
// removed at the end.
class RawQueueTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Posts a record without waiting; returns false when the queue is full.
    bool post(long type, const std::string& text) const;
    bool post(const ClientServerMessage& message) const;
    bool post(const ServerClientMessage& message) const;
    // Takes all records of a type (0: of all types), oldest first.
    std::vector<RawRecord> take(long type = 0) const;
    // Takes the output records of an addressee; returns their values.
    std::vector<int> takeValues(long addressee) const;
    unsigned long waiting() const;
    void remove() const;

    static ServerClientMessage output(long addressee, ClientMessageId id, int value);

    int id = -1;
};
