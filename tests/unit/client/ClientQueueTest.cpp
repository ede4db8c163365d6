// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ClientQueue.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using lectern::ClientQueue;
using namespace std::chrono_literals;

class ClientQueueTest : public testing::Test {
protected:
    ClientQueueTest() {
        EXPECT_FALSE(mQueue.connect());
        mQueue.Drain();
    }
    ~ClientQueueTest() override { mQueue.Drain(); }

    void fill() {
        while (mQueue.tryPost(ServerClientMessage(200, _INVALIDATED))) {
        }
    }

    ClientQueue mQueue;
};

TEST_F(ClientQueueTest, SendsARecordToTheService) {
    ClientServerMessage sent(_PEN_MOVE, 4);
    sent.setReals(0, 0);
    sent.x = 10;
    sent.y = -20;
    ASSERT_FALSE(mQueue.post(sent, 0ms));
    ClientServerMessage got;
    ASSERT_EQ(mQueue.ReadMessage(DocAdapterMessageQueue::ANY_CLIENT_MESSAGE, got), 20);
    EXPECT_EQ(got.type, _PEN_MOVE);
    EXPECT_EQ(got.docid, 4);
    EXPECT_EQ(got.x, 10);
    EXPECT_EQ(got.y, -20);
}

TEST_F(ClientQueueTest, GivesUpOnAFullQueueInsteadOfBlocking) {
    fill();
    const auto failure = mQueue.post(ClientServerMessage(_PAINT, 0), 5ms);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, lectern::Error::Kind::TimedOut);
}

TEST_F(ClientQueueTest, SendsAsSoonAsThereIsRoom) {
    fill();
    std::thread reader([this] {
        ServerClientMessage message;
        for (int i = 0; i < 2; ++i) {
            mQueue.ReadMessage(200, message, DocAdapterMessageQueue::TIMEOUT_INFINITE);
        }
    });
    EXPECT_FALSE(mQueue.post(ClientServerMessage(_PAINT, 0), 30'000ms));
    reader.join();
}

TEST_F(ClientQueueTest, IsSettledWhenNothingWaits) {
    EXPECT_TRUE(mQueue.settle(0ms));
    ASSERT_FALSE(mQueue.post(ClientServerMessage(_PEN_UP, 0), 0ms));
    EXPECT_FALSE(mQueue.settle(1ms));
    std::thread reader([this] {
        ClientServerMessage message;
        mQueue.ReadMessage(DocAdapterMessageQueue::ANY_CLIENT_MESSAGE, message);
    });
    EXPECT_TRUE(mQueue.settle(30'000ms));
    reader.join();
}

TEST_F(ClientQueueTest, SaysThatTheQueueIsGone) {
    ClientQueue other;
    ASSERT_FALSE(other.connect());
    ASSERT_EQ(other.Remove(), 0);
    const auto failure = mQueue.post(ClientServerMessage(_PAINT, 0), 1'000ms);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, lectern::Error::Kind::System);
}

} // namespace
