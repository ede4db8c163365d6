// SPDX-License-Identifier: Apache-2.0
// The client's read: it counts its time-out in sleeps of 10 ms.
#include "QueueSystemCalls.h"
#include "RawQueue.h"

#include <sys/msg.h>

#include <cerrno>
#include <thread>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr long ADDRESSEE = 5000;

class ClientReadTest : public RawQueueTest {
protected:
    void SetUp() override {
        RawQueueTest::SetUp();
        ASSERT_EQ(queue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
        systemCalls.reset();
    }
    // Reads from the empty queue; returns the number of tries.
    int triesOf(unsigned int timeoutMs) {
        systemCalls.reset();
        CaptureStderr();
        EXPECT_EQ(queue.ReadMessage(ADDRESSEE, message, timeoutMs), -1);
        EXPECT_EQ(GetCapturedStderr(), "Can't read message from server: No message of desired type\n");
        EXPECT_EQ(systemCalls.slept, static_cast<unsigned int>(systemCalls.sleeps) * 10000);
        EXPECT_TRUE(queue.isOpen());
        return systemCalls.receives;
    }

    DocAdapterMessageQueue queue;
    ServerClientMessage message;
};

TEST_F(ClientReadTest, ZeroTriesOnceAndDoesNotSleep) {
    EXPECT_EQ(triesOf(0), 1);
    EXPECT_EQ(systemCalls.sleeps, 0);
}

TEST_F(ClientReadTest, TenMillisecondsAreOneTryAndOneSleep) {
    EXPECT_EQ(triesOf(10), 1);
    EXPECT_EQ(systemCalls.sleeps, 1);
    EXPECT_EQ(triesOf(1), 1);
    EXPECT_EQ(systemCalls.sleeps, 1);
}

TEST_F(ClientReadTest, TwentyFiveMillisecondsAreThreeTriesAndThreeSleeps) {
    EXPECT_EQ(triesOf(25), 3);
    EXPECT_EQ(systemCalls.sleeps, 3);
    EXPECT_EQ(triesOf(30), 3);
    EXPECT_EQ(triesOf(31), 4);
}

TEST_F(ClientReadTest, ARecordThatComesWhileItSleepsIsRead) {
    systemCalls.onSleep = [this](int number) {
        if (number == 2) {
            post(output(ADDRESSEE, _PAINT_DONE, 11));
        }
    };
    EXPECT_EQ(queue.ReadMessage(ADDRESSEE, message, 1000), 12);
    EXPECT_EQ(message.value, 11);
    EXPECT_EQ(systemCalls.receives, 3);
    EXPECT_EQ(systemCalls.sleeps, 2);
    EXPECT_EQ(queue.messagesRead(), 1);
}

TEST_F(ClientReadTest, AnErrorEndsItAtOnce) {
    systemCalls.nextReceiveError = EIDRM;
    CaptureStderr();
    EXPECT_EQ(queue.ReadMessage(ADDRESSEE, message, 1000), -1);
    EXPECT_EQ(GetCapturedStderr(), "Can't read message from server: Identifier removed\n");
    EXPECT_EQ(systemCalls.receives, 1);
    EXPECT_EQ(systemCalls.sleeps, 0);
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(ClientReadTest, AQueueThatGoesWhileItSleepsEndsIt) {
    systemCalls.onSleep = [this](int) { remove(); };
    CaptureStderr();
    EXPECT_EQ(queue.ReadMessage(ADDRESSEE, message, 1000), -1);
    EXPECT_EQ(GetCapturedStderr(), "Can't read message from server: Invalid argument\n");
    EXPECT_EQ(systemCalls.receives, 2);
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(ClientReadTest, AnInfiniteOneWaitsInTheSystem) {
    post(output(ADDRESSEE, _OPENED, 3));
    EXPECT_EQ(queue.ReadMessage(ADDRESSEE, message, DocAdapterMessageQueue::TIMEOUT_INFINITE), 12);
    EXPECT_EQ(message.value, 3);
    EXPECT_EQ(systemCalls.receives, 1);
    EXPECT_EQ(systemCalls.sleeps, 0);
}

TEST_F(ClientReadTest, AnInfiniteOneSleepsUntilARecordComes) {
    EXPECT_EQ(DocAdapterMessageQueue::TIMEOUT_INFINITE, 0xFFFFFFFFU);
    std::thread service([this] {
        while (systemCalls.receives == 0) {
            std::this_thread::yield();
        }
        post(output(ADDRESSEE, _OPENED, 3));
    });
    EXPECT_EQ(queue.ReadMessage(ADDRESSEE, message, DocAdapterMessageQueue::TIMEOUT_INFINITE), 12);
    service.join();
    EXPECT_EQ(systemCalls.receives, 1);
    EXPECT_EQ(systemCalls.sleeps, 0);
}

TEST_F(ClientReadTest, TimeOutsAreUnsigned) {
    systemCalls.onSleep = [this](int number) {
        if (number == 2) {
            post(output(ADDRESSEE, _PAINT_DONE, 11));
        }
    };
    EXPECT_EQ(queue.ReadMessage(ADDRESSEE, message, 0xFFFFFFFEU), 12);
    EXPECT_EQ(systemCalls.sleeps, 2);
}

TEST_F(ClientReadTest, OtherAddresseesRecordsStay) {
    post(output(ADDRESSEE + 1, _OPENED, 3));
    EXPECT_EQ(triesOf(0), 1);
    EXPECT_EQ(waiting(), 1U);
}

} // namespace
