// SPDX-License-Identifier: Apache-2.0
// The service's end of a queue with room: reading, refusing, discarding.
#include "channel/ServiceQueue.h"

#include "QueueSystemCalls.h"
#include "RawQueue.h"

#include <pthread.h>

#include <cerrno>
#include <cstring>
#include <limits>
#include <thread>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class ServiceQueueTest : public RawQueueTest {
protected:
    void SetUp() override {
        RawQueueTest::SetUp();
        ASSERT_EQ(queue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }

    ServiceQueue queue;
    ClientServerMessage message;
};

TEST_F(ServiceQueueTest, ReadsLowestTypeFirstAndOldestFirst) {
    post(ClientServerMessage(_PEN_MOVE, 1));
    post(ClientServerMessage(_PEN_MOVE, 2));
    post(ClientServerMessage(_PAINT, 3));
    post(output(100, _PAINT_DONE, 0));
    for (const int expected : {3, 1, 2}) {
        ASSERT_EQ(queue.ReadMessage(message), 20);
        EXPECT_EQ(message.docid, expected);
    }
    EXPECT_EQ(queue.messagesRead(), 3);
    EXPECT_EQ(waiting(), 1U);
}

TEST_F(ServiceQueueTest, WaitsForARecord) {
    std::thread client([this] { post(ClientServerMessage(_KEY_DOWN, 5)); });
    EXPECT_EQ(queue.ReadMessage(message), 20);
    EXPECT_EQ(message.docid, 5);
    client.join();
}

TEST_F(ServiceQueueTest, ShortRecordsAreFilledWithZerosDownToNoTextAtAll) {
    post(_PEN_UP, std::string("\x03", 1));
    message.docid = -1;
    EXPECT_EQ(queue.ReadMessage(message), 1);
    EXPECT_EQ(message.docid, 3);
    post(_PEN_DOWN, std::string());
    EXPECT_EQ(queue.ReadMessage(message), 0);
    EXPECT_EQ(message.type, _PEN_DOWN);
    EXPECT_EQ(message.docid, 0);
}

TEST_F(ServiceQueueTest, ARecordWithoutTextWakesASleepingReader) {
    std::thread client([this] { post(_KEY_UP, std::string()); });
    EXPECT_EQ(queue.ReadMessage(message), 0);
    EXPECT_EQ(message.type, _KEY_UP);
    EXPECT_EQ(message.docid, 0);
    client.join();
}

TEST_F(ServiceQueueTest, LongRecordsAreIgnored) {
    post(_PAINT, std::string(21, 'x'));
    post(_PEN_MOVE, std::string(4000, 'x'));
    post(ClientServerMessage(_PEN_MOVE, 4));
    ASSERT_EQ(queue.ReadMessage(message), 20);
    EXPECT_EQ(message.docid, 4);
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(ServiceQueueTest, ARemovedQueueEndsTheReadAndCloses) {
    CaptureStderr();
    std::thread reader([this] { EXPECT_EQ(queue.ReadMessage(message), -1); });
    remove();
    reader.join();
    EXPECT_THAT(GetCapturedStderr(), testing::StartsWith("Can't read message from client: "));
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(ServiceQueueTest, OtherErrorsAreReportedAndLeaveItOpen) {
    for (const int error : {EINTR, EACCES}) {
        systemCalls.nextReceiveError = error;
        CaptureStderr();
        EXPECT_EQ(queue.ReadMessage(message), -1);
        EXPECT_EQ(errno, error);
        EXPECT_EQ(GetCapturedStderr(),
                  std::string("Can't read message from client: ") + strerror(error) + "\n");
        EXPECT_TRUE(queue.isOpen());
    }
}

TEST_F(ServiceQueueTest, OutputIsAddressed) {
    EXPECT_EQ(queue.SendMessage(output(4096, _OPENED, 7)), 0);
    EXPECT_EQ(takeValues(4096), std::vector{7});
    EXPECT_EQ(queue.messagesSent(), 1);
}

TEST_F(ServiceQueueTest, TypesThatItReadsItselfAreNoAddressees) {
    for (const long type : {-1L, 0L, 1L, 99L}) {
        CaptureStderr();
        EXPECT_EQ(queue.SendMessage(ServerClientMessage(type, _INVALIDATED)), -1);
        EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\n");
    }
    EXPECT_TRUE(queue.isOpen());
    EXPECT_EQ(waiting(), 0U);
    EXPECT_EQ(queue.SendMessage(ServerClientMessage(100, _INVALIDATED)), 0);
}

TEST_F(ServiceQueueTest, PaintAnswersGoToDocidPlus101) {
    EXPECT_EQ(queue.SendPaintDone(0, 0), 0);
    EXPECT_EQ(queue.SendPaintDone(41, -4), 0);
    EXPECT_EQ(takeValues(101), std::vector{0});
    EXPECT_EQ(takeValues(142), std::vector{-4});
}

TEST_F(ServiceQueueTest, PaintAnswersThatCannotBeAddressedAreNotSent) {
    constexpr int HIGHEST = std::numeric_limits<int>::max();
    for (const int docid : {-2, -101, -102, std::numeric_limits<int>::min(), HIGHEST - 100, HIGHEST}) {
        EXPECT_EQ(queue.SendPaintDone(docid, -4), 0);
    }
    EXPECT_EQ(waiting(), 0U);
    // The lowest and the highest possible value.
    EXPECT_EQ(queue.SendPaintDone(-1, -4), 0);
    EXPECT_EQ(queue.SendPaintDone(HIGHEST - 101, -4), 0);
    EXPECT_EQ(takeValues(100), std::vector{-4});
    EXPECT_EQ(takeValues(HIGHEST), std::vector{-4});
}

TEST_F(ServiceQueueTest, ASendToARemovedQueueFailsAndCloses) {
    remove();
    CaptureStderr();
    EXPECT_EQ(queue.SendPaintDone(0, 0), -1);
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\n");
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(ServiceQueueTest, DiscardTakesOneAddresseesRecordsOnly) {
    for (int i = 0; i < 3; ++i) {
        post(output(101, _PAINT_DONE, i));
        post(output(102, _PAINT_DONE, i));
    }
    post(101, std::string(100, 'x'));
    queue.Discard(101);
    EXPECT_TRUE(take(101).empty());
    EXPECT_EQ(takeValues(102), (std::vector{0, 1, 2}));
}

TEST_F(ServiceQueueTest, DiscardLeavesClientRecordsAlone) {
    post(ClientServerMessage(_PAINT, 0));
    for (const long type : {-99L, 0L, 1L, 99L}) {
        queue.Discard(type);
    }
    EXPECT_EQ(waiting(), 1U);
}

// How the worker ends: it is cancelled while it sleeps, in any cancellation state.
TEST_F(ServiceQueueTest, AReaderCanBeCancelledWhileItSleepsOnly) {
    struct Reader {
        ServiceQueue* queue;
        bool cameBack = false;
    } reader{&queue};
    pthread_t thread;
    ASSERT_EQ(pthread_create(
                  &thread, nullptr,
                  [](void* argument) -> void* {
                      auto* self = static_cast<Reader*>(argument);
                      pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, nullptr);
                      ClientServerMessage received;
                      self->queue->ReadMessage(received);
                      self->cameBack = true;
                      return nullptr;
                  },
                  &reader),
              0);
    ASSERT_EQ(pthread_cancel(thread), 0);
    void* result = nullptr;
    ASSERT_EQ(pthread_join(thread, &result), 0);
    EXPECT_EQ(result, PTHREAD_CANCELED);
    EXPECT_FALSE(reader.cameBack);
    // The cancelled reader has left no mutex locked.
    EXPECT_EQ(queue.SendPaintDone(0, 0), 0);
}

} // namespace
