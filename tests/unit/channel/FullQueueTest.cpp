// SPDX-License-Identifier: Apache-2.0
// The service's end of a full queue: it continues whatever clients do.
#include "QueueSystemCalls.h"
#include "RawQueue.h"
#include "channel/ServiceQueue.h"

#include <sys/msg.h>

#include <atomic>
#include <cerrno>
#include <numeric>
#include <thread>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

constexpr long VIEW = 5000;
constexpr long OTHER_VIEW = 6000;

class FullQueueTest : public RawQueueTest {
protected:
    void SetUp() override {
        RawQueueTest::SetUp();
        ASSERT_EQ(queue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }
    // Fills the queue with a client's records, numbered by docid; returns their number.
    int fillWithMoves(int first = 0) const {
        int count = 0;
        while (post(ClientServerMessage(_PEN_MOVE, first + count))) {
            ++count;
        }
        return count;
    }
    // Fills the queue with output, numbered by value, up to the service's
    // limit; returns the number.
    int fillWithOutput(long addressee, ClientMessageId what) const {
        int count = 0;
        while (room() >= ServerClientMessage::TEXT_SIZE + ClientServerMessage::TEXT_SIZE) {
            EXPECT_TRUE(post(output(addressee, what, count)));
            ++count;
        }
        return count;
    }
    unsigned long room() const {
        msqid_ds status = {};
        msgctl(id, IPC_STAT, &status);
        return status.msg_qbytes - status.msg_cbytes;
    }
    int read() {
        EXPECT_EQ(queue.ReadMessage(message), 20);
        return message.docid;
    }
    static std::vector<int> numbers(int first, int last) {
        std::vector<int> all(static_cast<size_t>(last - first));
        std::iota(all.begin(), all.end(), first);
        return all;
    }

    ServiceQueue queue;
    ClientServerMessage message;
};

TEST_F(FullQueueTest, ClientRecordsMakeRoomAndAreServedInOrder) {
    const int count = fillWithMoves();
    ASSERT_EQ(count, 819);
    EXPECT_EQ(queue.SendPaintDone(0, 0), 0);
    EXPECT_EQ(takeValues(101), std::vector{0});
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(read(), i);
        ASSERT_EQ(message.type, _PEN_MOVE);
    }
}

TEST_F(FullQueueTest, TheWorkerIsWokenWithARecordForNoDocument) {
    const int count = fillWithMoves();
    EXPECT_EQ(queue.SendPaintDone(0, 0), 0);
    for (int i = 0; i < count; ++i) {
        read();
    }
    EXPECT_EQ(read(), -1);
    EXPECT_EQ(message.type, 99);
    EXPECT_EQ(take(-99).size(), 0U);
}

TEST_F(FullQueueTest, WakeRecordsDoNotPileUp) {
    for (int round = 0; round < 3; ++round) {
        fillWithMoves(round * 1000);
        EXPECT_EQ(queue.SendMessage(output(VIEW, _INVALIDATED, round)), 0);
    }
    int wakes = 0;
    for (const RawRecord& record : take(-99)) {
        wakes += record.type == 99 ? 1 : 0;
    }
    EXPECT_EQ(wakes, 1);
}

TEST_F(FullQueueTest, LaterRecordsOfTheSameTypeComeAfterTheBacklogs) {
    const int count = fillWithMoves();
    queue.SendPaintDone(0, 0);
    post(ClientServerMessage(_PEN_MOVE, count));
    post(ClientServerMessage(_PEN_MOVE, count + 1));
    for (int i = 0; i < count + 2; ++i) {
        ASSERT_EQ(read(), i);
    }
}

TEST_F(FullQueueTest, LaterRecordsOfALowerTypeOvertakeTheBacklog) {
    fillWithMoves();
    queue.SendPaintDone(0, 0);
    post(ClientServerMessage(_WIDE_MODE, -3));
    post(ClientServerMessage(_PEN_UP, -2));
    post(ClientServerMessage(_PAINT, -1));
    EXPECT_EQ(read(), -1);
    EXPECT_EQ(read(), -2);
    EXPECT_EQ(read(), 0);
}

TEST_F(FullQueueTest, TheBacklogsPaintsComeBeforeTheQueues) {
    post(ClientServerMessage(_PAINT, -1));
    fillWithMoves();
    queue.SendPaintDone(0, 0);
    post(ClientServerMessage(_PAINT, -2));
    EXPECT_EQ(read(), -1);
    EXPECT_EQ(read(), -2);
    EXPECT_EQ(read(), 0);
}

TEST_F(FullQueueTest, ThousandsOfMovesDuringOnePaintAreBounded) {
    int posted = 0;
    while (posted < 6000) {
        posted += fillWithMoves(posted);
        ASSERT_EQ(queue.SendPaintDone(0, 0), 0);
    }
    // One more send; it also takes the other records off the queue.
    posted += fillWithMoves(posted);
    ASSERT_EQ(queue.SendMessage(ClientServerMessage(_WIDE_MODE, -5)), 0);
    take(-99);
    // The latest records are all there.
    for (int i = posted - static_cast<int>(Backlog::CAPACITY); i < posted; ++i) {
        ASSERT_EQ(read(), i);
    }
}

TEST_F(FullQueueTest, TheServicesOwnRecordsFindRoomToo) {
    const int count = fillWithMoves();
    ClientServerMessage wide(_WIDE_MODE, 77);
    EXPECT_EQ(queue.SendMessage(wide), 0);
    for (int i = 0; i < count; ++i) {
        ASSERT_EQ(read(), i);
    }
    EXPECT_EQ(read(), 77);
    EXPECT_EQ(message.type, _WIDE_MODE);
}

TEST_F(FullQueueTest, AClientThatNeverReadsLosesItsOldestRequestsToPaint) {
    const int count = fillWithOutput(VIEW, _INVALIDATED);
    ASSERT_EQ(count, 1363);
    for (int i = 0; i < 500; ++i) {
        ASSERT_EQ(queue.SendMessage(output(VIEW, _INVALIDATED, count + i)), 0);
    }
    EXPECT_EQ(takeValues(VIEW), numbers(500, count + 500));
}

TEST_F(FullQueueTest, OutputLeavesRoomForOneRecordOfAClient) {
    for (const ClientMessageId what : {_INVALIDATED, _SLIDE_CHANGED, _OPENED}) {
        for (int i = 0; i < 1500; ++i) {
            ASSERT_EQ(queue.SendMessage(output(VIEW, what, i)), 0);
        }
        for (int docid = 1; docid < 4; ++docid) {
            EXPECT_TRUE(post(ClientServerMessage(_PEN_MOVE, docid))) << "a client would be shut out";
            EXPECT_EQ(read(), docid);
        }
    }
    EXPECT_EQ(waiting(), 1363U) << "and no more than that";
}

TEST_F(FullQueueTest, AQueueTooSmallForSpareRoomIsUsedAllTheSame) {
    msqid_ds status = {};
    ASSERT_EQ(msgctl(id, IPC_STAT, &status), 0);
    status.msg_qbytes = 24; // room for two output records
    ASSERT_EQ(msgctl(id, IPC_SET, &status), 0);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(queue.SendMessage(output(VIEW, _OPENED, i)), 0);
    }
    EXPECT_EQ(takeValues(VIEW), std::vector{2});
}

TEST_F(FullQueueTest, WhatIsNotGivenUpStaysInOrder) {
    const int count = fillWithOutput(VIEW, _SLIDE_CHANGED);
    ASSERT_EQ(queue.SendMessage(output(VIEW, _OPENED, count)), 0);
    EXPECT_EQ(takeValues(VIEW), numbers(1, count + 1));
}

TEST_F(FullQueueTest, RequestsToPaintOfOthersGoBeforeAnswers) {
    post(output(OTHER_VIEW, _INVALIDATED, -1));
    const int count = fillWithOutput(VIEW, _PAINT_DONE);
    ASSERT_EQ(queue.SendMessage(output(VIEW, _PAINT_DONE, count)), 0);
    EXPECT_TRUE(take(OTHER_VIEW).empty());
    EXPECT_EQ(takeValues(VIEW), numbers(0, count + 1));
}

TEST_F(FullQueueTest, WithAnswersOnlyTheSameAddresseesOldestGoes) {
    post(output(OTHER_VIEW, _OPENED, -1));
    const int count = fillWithOutput(VIEW, _OPENED);
    ASSERT_EQ(queue.SendMessage(output(VIEW, _PAINT_DONE, count)), 0);
    EXPECT_EQ(takeValues(OTHER_VIEW), std::vector{-1});
    EXPECT_EQ(takeValues(VIEW), numbers(1, count + 1));
}

TEST_F(FullQueueTest, ClientRecordsGoBeforeAnyOutputIsGivenUp) {
    post(ClientServerMessage(_PEN_DOWN, 8));
    post(ClientServerMessage(_PEN_UP, 9));
    const int count = fillWithOutput(VIEW, _INVALIDATED);
    ASSERT_EQ(queue.SendMessage(output(VIEW, _INVALIDATED, count)), 0);
    EXPECT_EQ(takeValues(VIEW), numbers(0, count + 1)) << "their place was enough";
    EXPECT_EQ(read(), 8);
}

TEST_F(FullQueueTest, ABacklogIsServedAlsoWhenThereWasHardlyRoomForTheWake) {
    post(ClientServerMessage(_PEN_DOWN, 8));
    const int count = fillWithOutput(VIEW, _OPENED);
    ASSERT_EQ(queue.SendMessage(output(VIEW, _OPENED, count)), 0);
    const auto wakes = take(-99);
    ASSERT_EQ(wakes.size(), 1U) << "a worker about to sleep would not hear of the backlog";
    EXPECT_EQ(wakes[0].type, 99);
    EXPECT_EQ(read(), 8);
}

TEST_F(FullQueueTest, JunkIsThrownAwayBeforeOutputIsLost) {
    post(VIEW, std::string(8192, 'x'));
    post(7000, std::string(3, 'x'));
    const int count = fillWithOutput(OTHER_VIEW, _OPENED);
    ASSERT_EQ(queue.SendMessage(output(VIEW, _OPENED, 5)), 0);
    EXPECT_EQ(takeValues(VIEW), std::vector{5});
    EXPECT_EQ(takeValues(OTHER_VIEW), numbers(0, count));
}

TEST_F(FullQueueTest, JunkFromClientsMakesRoomAsWell) {
    post(_PEN_MOVE, std::string(8192, 'x'));
    post(_PEN_MOVE, std::string(8192, 'x'));
    ASSERT_EQ(queue.SendMessage(output(VIEW, _OPENED, 5)), 0);
    EXPECT_EQ(takeValues(VIEW), std::vector{5});
}

TEST_F(FullQueueTest, AQueueThatHoldsNoRecordAtAllFailsTheSend) {
    msqid_ds status = {};
    ASSERT_EQ(msgctl(id, IPC_STAT, &status), 0);
    status.msg_qbytes = 8;
    ASSERT_EQ(msgctl(id, IPC_SET, &status), 0);
    CaptureStderr();
    EXPECT_EQ(queue.SendPaintDone(0, 0), -1);
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Resource temporarily unavailable\n");
    EXPECT_TRUE(queue.isOpen());
}

TEST_F(FullQueueTest, ClientsThatWaitForRoomGetItAndLoseNothing) {
    constexpr int PER_CLIENT = 3000;
    // The number of unread records stays below the backlog's capacity, so none
    // may be dropped.
    std::atomic<int> unread{0};
    std::atomic<bool> done{false};
    const auto client = [&](int number) {
        DocAdapterMessageQueue end;
        ASSERT_EQ(end.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
        ClientServerMessage move(_PEN_MOVE, number);
        for (move.x = 0; move.x < PER_CLIENT; ++move.x) {
            while (unread.load() > 3000) {
                std::this_thread::yield();
            }
            ++unread;
            ASSERT_EQ(end.SendMessage(move), 0);
        }
    };
    std::thread first(client, 0);
    std::thread second(client, 1);
    std::thread notifier([&] {
        for (int i = 0; !done; ++i) {
            ASSERT_EQ(queue.SendMessage(output(VIEW, _INVALIDATED, i)), 0);
        }
    });
    std::vector<int> next(2, 0);
    for (int count = 0; count < 2 * PER_CLIENT;) {
        ASSERT_EQ(queue.ReadMessage(message), 20);
        if (message.docid == -1) {
            continue;
        }
        ASSERT_EQ(message.x, next.at(static_cast<size_t>(message.docid))++) << "out of order, or lost";
        --unread;
        ++count;
    }
    done = true;
    first.join();
    second.join();
    notifier.join();
}

TEST_F(FullQueueTest, BothEndsFullAtOnceNeverLockUp) {
    // One client posts without reading, another only paints.
    fillWithOutput(VIEW, _SLIDE_CHANGED);
    std::atomic<bool> done{false};
    std::thread flood([&] {
        DocAdapterMessageQueue end;
        ASSERT_EQ(end.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
        while (!done) {
            ASSERT_EQ(end.SendMessage(ClientServerMessage(_PEN_MOVE, 0)), 0);
        }
    });
    // Pauses, because a mutex is not fair and other threads would not get it for long.
    std::atomic<int> paints{0};
    std::thread notifier([&] {
        for (int i = 0; !done; ++i) {
            while (!done && i > 2 * paints) {
                std::this_thread::yield();
            }
            ASSERT_EQ(queue.SendMessage(output(VIEW, i % 2 == 0 ? _INVALIDATED : _SLIDE_CHANGED, i)), 0);
        }
    });
    for (; paints < 30; ++paints) {
        ASSERT_GE(queue.ReadMessage(message), 0);
        ASSERT_EQ(queue.SendPaintDone(1, paints), 0);
    }
    done = true;
    notifier.join();
    take(); // lets a waiting send of the flood finish
    flood.join();
}

} // namespace
