// SPDX-License-Identifier: Apache-2.0
#include "client/lib/RecordReader.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <vector>

namespace {

using lectern::ClientQueue;
using lectern::RecordReader;

constexpr long ADDRESS = 5'000;

class RecordReaderTest : public testing::Test {
protected:
    RecordReaderTest() {
        EXPECT_FALSE(mQueue.connect());
        mQueue.Drain();
    }
    ~RecordReaderTest() override { mQueue.Remove(); }

    std::unique_ptr<RecordReader> start() {
        auto reader = RecordReader::start(ADDRESS, [this](const ServerClientMessage& message) {
            const std::lock_guard lock(mMutex);
            mValues.push_back(message.value);
            mArrived.notify_all();
        });
        EXPECT_TRUE(reader);
        return std::move(*reader);
    }

    void send(long type, int value) {
        ServerClientMessage message(type, _SLIDE_CHANGED);
        message.value = value;
        mQueue.SendMessage(message);
    }

    std::vector<int> waitFor(size_t count) {
        std::unique_lock lock(mMutex);
        mArrived.wait(lock, [&] { return mValues.size() >= count; });
        return mValues;
    }

    ClientQueue mQueue;
    std::mutex mMutex;
    std::condition_variable mArrived;
    std::vector<int> mValues;
};

TEST_F(RecordReaderTest, HandsOverItsOwnRecordsInOrder) {
    send(ADDRESS, 1);
    const auto reader = start();
    send(ADDRESS + 1, 2);
    send(_PAINT, 3);
    send(ADDRESS, 4);
    EXPECT_EQ(waitFor(2), (std::vector{1, 4}));
    ServerClientMessage other;
    EXPECT_GT(mQueue.ReadMessage(ADDRESS + 1, other, 0), 0);
    EXPECT_GT(mQueue.ReadMessage(_PAINT, other, 0), 0);
}

TEST_F(RecordReaderTest, EndsWhileItWaits) {
    { const auto reader = start(); }
    ServerClientMessage left;
    EXPECT_LT(mQueue.ReadMessage(ADDRESS, left, 0), 0) << "a record of its own is left";
}

TEST_F(RecordReaderTest, EndsThoughTheQueueIsFull) {
    const auto reader = start();
    while (mQueue.tryPost(ServerClientMessage(ADDRESS + 1, _INVALIDATED))) {
    }
}

TEST_F(RecordReaderTest, EndsWithTheQueue) {
    const auto reader = start();
    send(ADDRESS, 1);
    waitFor(1);
    ClientQueue other;
    ASSERT_FALSE(other.connect());
    EXPECT_EQ(other.Remove(), 0);
}

} // namespace
