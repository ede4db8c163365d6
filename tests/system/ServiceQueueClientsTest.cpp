// SPDX-License-Identifier: Apache-2.0
// The message queue with clients that are slow, fast, faulty or 32-bit.
#include "tests/system/support/ServiceFixture.h"

#include <sys/ipc.h>
#include <sys/msg.h>
#include <sys/wait.h>

#include <climits>
#include <cstring>
#include <thread>

namespace {

using namespace std::chrono_literals;

using ServiceQueueClientsTest = ServiceTest;

TEST_F(ServiceQueueClientsTest, APaintOfAnUnknownDocumentIsAnsweredWithMinusFour) {
    for (const int32_t docid : {0, 1, 77, INT_MAX - 101}) {
        ASSERT_TRUE(queue->post(1, docid));
        const Answer answer = queue->read(docid + 101L);
        EXPECT_EQ(answer.id, 9) << docid;
        EXPECT_EQ(answer.value, -4) << docid;
    }
}

TEST_F(ServiceQueueClientsTest, DocidsOfEverySignDoNotEndTheWorker) {
    for (const int32_t docid : {-1, -2, -101, -102, -1000, INT_MIN, INT_MIN + 101, INT_MAX, INT_MAX - 100}) {
        for (const long type : {1L, 2L, 6L, 8L, 10L, 42L, 99L}) {
            ASSERT_TRUE(queue->post(type, docid));
        }
    }
    EXPECT_EQ(queue->read(100).value, -4) << "docid -1 has an answerable type";
    TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    EXPECT_EQ(document.paint(), 0);
}

TEST_F(ServiceQueueClientsTest, RecordsTooLongAndTooShortAreSurvived) {
    TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    ASSERT_EQ(document.paint(), 0);
    std::vector<unsigned char> text(8000, 0xEE);
    for (const size_t size : {0u, 1u, 4u, 8u, 19u, 21u, 24u, 100u, 8000u}) {
        ASSERT_TRUE(queue->postRaw(6, {text.begin(), text.begin() + static_cast<long>(size)})) << size;
    }
    document.touch();
    EXPECT_EQ(document.paint(), 0);
}

TEST_F(ServiceQueueClientsTest, AThousandPenMovesDuringOnePaintLockNothingUp) {
    TestDocument document(*client, *queue, longDocument(50), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    document.penDown(200, 700);
    int posted = 0;
    document.touch();
    ASSERT_TRUE(queue->post(1, document.docid()));
    while (posted < 1000) {
        if (queue->post(6, document.docid(), 200, 700 - posted % 300)) {
            ++posted;
        } else {
            std::this_thread::yield();
        }
    }
    EXPECT_EQ(queue->read(document.docid() + 101).value, 0);
    document.penUp(200, 500);
    EXPECT_EQ(document.paint(), 0);
}

TEST_F(ServiceQueueClientsTest, AClientThatNeverReadsItsNotificationsDoesNotStopTheService) {
    TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    ASSERT_EQ(document.paint(), 0);
    for (int i = 0; i < 1500; ++i) { // more id 0 records than the queue can hold
        ASSERT_TRUE(client->call("/common", "clearSelection", document.docidPayload()).replied);
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(document.paint(), 0) << "its own requests still get through";
    }
    while (queue->poll(document.store()).id >= 0) {
    }
    EXPECT_EQ(document.paint(), 0);
}

TEST_F(ServiceQueueClientsTest, APaintOvertakesQueuedInput) {
    TestDocument document(*client, *queue, longDocument(20), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    for (int i = 0; i < 400; ++i) {
        ASSERT_TRUE(queue->post(42, document.docid()));
    }
    ASSERT_TRUE(queue->post(1, document.docid()));
    EXPECT_EQ(queue->read(document.docid() + 101).value, 0);
}

TEST_F(ServiceQueueClientsTest, ARemovedQueueEndsTheWorkerButNotTheBus) {
    TestDocument document(*client, *queue, sample("tour.txt"), 320, 480);
    ASSERT_EQ(document.paint(), 0);
    ASSERT_EQ(msgctl(queue->id(), IPC_RMID, nullptr), 0);
    EXPECT_TRUE(eventually(
        [this] { return service->errors().find("Can't read message from client") != std::string::npos; }));
    EXPECT_TRUE(client->call("/common", "getDocProperties", document.docidPayload()).replied);
    EXPECT_EQ(stopService(), W_EXITCODE(0, 0));
}

#ifdef CLIENT_32_PROGRAM
TEST_F(ServiceQueueClientsTest, A32BitClientDrivesThe64BitService) {
    TestDocument document(*client, *queue, longDocument(20), 480, 800);
    ASSERT_EQ(document.openResult(), 0);
    Subprocess other({CLIENT_32_PROGRAM, std::to_string(document.docid()), std::to_string(document.store())},
                     {}, folder.path() + "/client32");
    ASSERT_EQ(other.wait(60s), std::optional<int>(W_EXITCODE(0, 0))) << other.errors();
    // The client has painted, dragged by 300 rows and pinched to twice the size.
    EXPECT_EQ(document.scale(), 2.0);
    EXPECT_GT(document.scrollY(), 0);
}
#endif

} // namespace
