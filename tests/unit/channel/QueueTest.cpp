// SPDX-License-Identifier: Apache-2.0
// The plain wrapper that both ends use.
#include "QueueSystemCalls.h"
#include "RawQueue.h"

#include <sys/ipc.h>
#include <sys/msg.h>

#include <cerrno>
#include <cstring>
#include <thread>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class QueueTest : public RawQueueTest {
protected:
    void SetUp() override {
        RawQueueTest::SetUp();
        ASSERT_EQ(queue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }

    DocAdapterMessageQueue queue;
    ClientServerMessage request;
    ServerClientMessage notice;
};

TEST(ClosedQueue, IsNotOpenAndHasNothingToDrainOrRemove) {
    DocAdapterMessageQueue queue;
    EXPECT_FALSE(queue.isOpen());
    CaptureStderr();
    EXPECT_EQ(queue.Drain(), 19);
    EXPECT_EQ(queue.Remove(), 0);
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_FALSE(queue.isOpen());
    EXPECT_EQ(queue.trace_msg_queue("ignored"), -1);
}

TEST(ClosedQueue, SendsAndReadsFail) {
    DocAdapterMessageQueue queue;
    ServerClientMessage notice(200, _INVALIDATED);
    CaptureStderr();
    EXPECT_EQ(queue.SendMessage(notice), -1);
    EXPECT_EQ(queue.ReadMessage(200, notice, 0), -1);
    EXPECT_EQ(
        GetCapturedStderr(),
        "Failure sending messages: Invalid argument\nCan't read message from server: Invalid argument\n");
    EXPECT_EQ(queue.messagesRead(), 0);
    EXPECT_EQ(queue.messagesSent(), 0);
}

TEST_F(QueueTest, OpensTheMachinesQueueForEverybody) {
    EXPECT_TRUE(queue.isOpen());
    EXPECT_EQ(DocAdapterMessageQueue::OPEN_FLAGS, IPC_CREAT | 0666);
    msqid_ds status = {};
    ASSERT_EQ(msgctl(msgget(ftok("/tmp", 'O'), 0), IPC_STAT, &status), 0);
    EXPECT_EQ(status.msg_perm.mode & 0777, 0666);
    EXPECT_EQ(queue.trace_msg_queue("ignored"), 0);
}

TEST_F(QueueTest, AFailedOpenIsReportedAndLeavesItClosed) {
    remove();
    CaptureStderr();
    EXPECT_EQ(queue.Open(0666, DocAdapterMessageQueue::PROJECT_ID), ENOENT);
    EXPECT_EQ(GetCapturedStderr(), "msgget: No such file or directory\n");
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(QueueTest, RecordsCrossUnchangedInBothDirections) {
    ClientServerMessage sent(_PEN_UP, 3);
    sent.x = -5;
    sent.y = 1 << 30;
    std::memset(sent.tail, 0x77, sizeof sent.tail);
    EXPECT_EQ(queue.SendMessage(sent), 0);
    EXPECT_EQ(queue.ReadMessage(-99, request), 20);
    EXPECT_EQ(std::memcmp(&sent, &request, sizeof sent), 0);

    ServerClientMessage told(5000, _SLIDE_CHANGED);
    told.value = 4;
    told.extra = -9;
    EXPECT_EQ(queue.SendMessage(told), 0);
    EXPECT_EQ(queue.ReadMessage(5000, notice, DocAdapterMessageQueue::TIMEOUT_INFINITE), 12);
    EXPECT_EQ(std::memcmp(&told, &notice, sizeof told), 0);
    EXPECT_EQ(queue.messagesSent(), 2);
    EXPECT_EQ(queue.messagesRead(), 2);
}

TEST_F(QueueTest, APaintRequestOvertakesPenMoves) {
    for (int i = 0; i < 5; ++i) {
        post(ClientServerMessage(_PEN_MOVE, 0));
    }
    post(ClientServerMessage(_PAINT, 0));
    ASSERT_EQ(queue.ReadMessage(DocAdapterMessageQueue::ANY_CLIENT_MESSAGE, request), 20);
    EXPECT_EQ(request.type, _PAINT);
}

TEST_F(QueueTest, TheServicesReadNeverTakesItsOwnOutput) {
    post(output(100, _PAINT_DONE, 0));
    post(ClientServerMessage(99, 8));
    ASSERT_EQ(queue.ReadMessage(DocAdapterMessageQueue::ANY_CLIENT_MESSAGE, request), 20);
    EXPECT_EQ(request.type, 99);
    EXPECT_EQ(waiting(), 1U);
}

TEST_F(QueueTest, ShortRecordsAreFilledWithZeros) {
    post(_PEN_DOWN, std::string("\x07\0\0\0\x09", 5));
    request.x = request.y = -1;
    std::memset(request.tail, 0xFF, sizeof request.tail);
    ASSERT_EQ(queue.ReadMessage(-99, request), 5);
    EXPECT_EQ(request.type, _PEN_DOWN);
    EXPECT_EQ(request.docid, 7);
    EXPECT_EQ(request.x, 9);
    EXPECT_EQ(request.y, 0);
    EXPECT_EQ(request.secondReal(), 0.0);
}

TEST_F(QueueTest, LongRecordsAreIgnoredAndDoNotStayInFront) {
    post(_PAINT, std::string(21, 'x'));
    post(_PAINT, std::string(8192, 'x'));
    post(ClientServerMessage(_PEN_MOVE, 2));
    ASSERT_EQ(queue.ReadMessage(-99, request), 20);
    EXPECT_EQ(request.type, _PEN_MOVE);
    post(300, std::string(13, 'x'));
    post(output(300, _OPENED, 6));
    ASSERT_EQ(queue.ReadMessage(300, notice, 0), 12);
    EXPECT_EQ(notice.value, 6);
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(QueueTest, DrainTakesRecordsOfEveryTypeAndSize) {
    post(ClientServerMessage(_PAINT, 0));
    post(output(5000, _INVALIDATED, 0));
    post(42, std::string(8192, 'x'));
    post(43, std::string());
    post(output(101, _PAINT_DONE, 0));
    EXPECT_EQ(queue.Drain(), 0);
    EXPECT_EQ(waiting(), 0U);
    EXPECT_TRUE(queue.isOpen());
}

TEST_F(QueueTest, RemoveTakesTheQueueFromTheSystem) {
    EXPECT_EQ(queue.Remove(), 0);
    EXPECT_FALSE(queue.isOpen());
    EXPECT_EQ(msgget(ftok("/tmp", 'O'), 0), -1);
    EXPECT_EQ(queue.Remove(), 0);
}

TEST_F(QueueTest, AFailedRemoveGivesTheErrorAndStaysOpen) {
    remove();
    EXPECT_EQ(queue.Remove(), EINVAL);
    EXPECT_TRUE(queue.isOpen());
}

TEST_F(QueueTest, AReadOfARemovedQueueCloses) {
    remove();
    CaptureStderr();
    EXPECT_EQ(queue.ReadMessage(-99, request), -1);
    EXPECT_EQ(GetCapturedStderr(), "Can't read message from client: Invalid argument\n");
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(QueueTest, AQueueRemovedDuringAReadCloses) {
    systemCalls.nextReceiveError = EIDRM;
    CaptureStderr();
    EXPECT_EQ(queue.ReadMessage(-99, request), -1);
    EXPECT_EQ(errno, EIDRM);
    EXPECT_EQ(GetCapturedStderr(), "Can't read message from client: Identifier removed\n");
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(QueueTest, ASleepingReaderWakesUpWhenTheQueueGoes) {
    CaptureStderr();
    std::thread reader([this] { EXPECT_EQ(queue.ReadMessage(-99, request), -1); });
    remove();
    reader.join();
    EXPECT_THAT(GetCapturedStderr(), testing::StartsWith("Can't read message from client: "));
    EXPECT_FALSE(queue.isOpen());
}

TEST_F(QueueTest, OtherErrorsOfAReadLeaveItOpen) {
    for (const int error : {EINTR, EACCES, EFAULT}) {
        systemCalls.nextReceiveError = error;
        CaptureStderr();
        EXPECT_EQ(queue.ReadMessage(-99, request), -1);
        EXPECT_EQ(errno, error);
        EXPECT_EQ(GetCapturedStderr(),
                  std::string("Can't read message from client: ") + strerror(error) + "\n");
        EXPECT_TRUE(queue.isOpen());
    }
    EXPECT_EQ(queue.messagesRead(), 0);
}

TEST_F(QueueTest, ASendToARemovedQueueCloses) {
    remove();
    CaptureStderr();
    EXPECT_EQ(queue.SendMessage(ClientServerMessage(_PAINT, 0)), -1);
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\n");
    EXPECT_FALSE(queue.isOpen());
    EXPECT_EQ(queue.messagesSent(), 0);
}

TEST_F(QueueTest, ASenderThatWaitsForRoomWakesUpWhenTheQueueGoes) {
    while (post(ClientServerMessage(_PEN_MOVE, 0))) {
    }
    CaptureStderr();
    std::thread sender([this] { EXPECT_EQ(queue.SendMessage(ClientServerMessage(_PAINT, 0)), -1); });
    remove();
    sender.join();
    EXPECT_THAT(GetCapturedStderr(), testing::StartsWith("Failure sending messages: "));
    EXPECT_FALSE(queue.isOpen());
    EXPECT_EQ(queue.messagesSent(), 0);
}

TEST_F(QueueTest, ATypeThatCannotBeSentFailsAndLeavesItOpen) {
    CaptureStderr();
    EXPECT_EQ(queue.SendMessage(ServerClientMessage(0, _INVALIDATED)), -1);
    EXPECT_EQ(queue.SendMessage(ClientServerMessage(-1, 0)), -1);
    EXPECT_EQ(GetCapturedStderr(),
              "Failure sending messages: Invalid argument\nFailure sending messages: Invalid argument\n");
    EXPECT_TRUE(queue.isOpen());
}

TEST_F(QueueTest, AnErrorOfAnOldQueueDoesNotCloseANewOne) {
    DocAdapterMessageQueue other;
    remove();
    ASSERT_EQ(other.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    CaptureStderr();
    EXPECT_EQ(queue.SendMessage(ClientServerMessage(_PAINT, 0)), -1);
    GetCapturedStderr();
    EXPECT_FALSE(queue.isOpen());
    EXPECT_TRUE(other.isOpen());
    EXPECT_EQ(other.Remove(), 0);
}

} // namespace
