// SPDX-License-Identifier: Apache-2.0
// The queue as any process sees it, without the wrapper under test.
#pragma once

#include "channel/DocAdapterCommon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

// A record as it lies in the queue.
struct RawRecord {
    long type = 0;
    std::string text;
};

// Tests with the queue: each finds it open and empty, and it is gone afterwards.
class RawQueueTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Posts a record without waiting; false when the queue is full.
    bool post(long type, const std::string& text) const;
    bool post(const ClientServerMessage& message) const;
    bool post(const ServerClientMessage& message) const;
    // Takes everything of a type off (0: everything), oldest first.
    std::vector<RawRecord> take(long type = 0) const;
    // The values of the output records of an addressee, which go.
    std::vector<int> takeValues(long addressee) const;
    unsigned long waiting() const;
    void remove() const;

    static ServerClientMessage output(long addressee, ClientMessageId id, int value);

    int id = -1;
};
