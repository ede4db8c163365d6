// SPDX-License-Identifier: Apache-2.0
// Documents while the engine of another one does not answer.
#include "tests/system/support/ServiceFixture.h"

#include <signal.h>

#include <atomic>
#include <thread>

namespace {

class ServiceWaitsTest : public ServiceTest {
protected:
    // Zooms, which needs the engine, and asks for a paint, without waiting for it.
    void askForZoomedPaint(TestDocument& document) {
        queue->postGesture(7, document.docid(), 1.0);
        queue->postGesture(8, document.docid(), 1.5);
        queue->settle(document.store());
        document.paint(); // a preview, which needs no engine
        queue->postGesture(9, document.docid(), 1.5);
        queue->settle(document.store()); // a paint overtakes input
        queue->post(1, document.docid());
    }
    bool isAnswered(const TestDocument& document) { return queue->poll(document.docid() + 101).id >= 0; }
};

TEST_F(ServiceWaitsTest, AStoppedEngineDoesNotDelayOtherPaints) {
    for (const char* name : {"tour.docx", "tour.xlsx", "tour.pptx"}) {
        TestDocument stopped(*client, *queue, sample(name), 480, 800);
        ASSERT_EQ(stopped.paint(), 0);
        const pid_t engine = descendants("lectern-engine").front();
        TestDocument other(*client, *queue, sample("tour.docx"), 480, 800);
        ASSERT_EQ(kill(engine, SIGSTOP), 0);
        askForZoomedPaint(stopped);
        for (int i = 0; i < 5; ++i) {
            other.pinch(i % 2 == 0 ? 1.5 : 0.66);
            EXPECT_EQ(other.paint(), 0);
        }
        ASSERT_FALSE(isAnswered(stopped)) << name;
        ASSERT_EQ(kill(engine, SIGCONT), 0);
        EXPECT_EQ(queue->read(stopped.docid() + 101).extra, 0) << name;
    }
}

TEST_F(ServiceWaitsTest, ABusCallToAStoppedEngineDoesNotDelayOtherPaints) {
    TestDocument stopped(*client, *queue, sample("tour.pptx"), 480, 800);
    const pid_t engine = descendants("lectern-engine").front();
    TestDocument other(*client, *queue, sample("tour.docx"), 480, 800);
    ASSERT_EQ(kill(engine, SIGSTOP), 0);
    BusConnection second(bus->address());
    std::thread search([&] {
        const BusReply reply =
            second.call("/common", "Search",
                        "{\"docid\":" + std::to_string(stopped.docid()) + ",\"search\":\"harbour\"}");
        EXPECT_NE(reply.text.find("resultcount"), std::string::npos) << reply.text;
    });
    for (int i = 0; i < 5; ++i) {
        other.pinch(i % 2 == 0 ? 1.5 : 0.66);
        EXPECT_EQ(other.paint(), 0);
    }
    ASSERT_EQ(kill(engine, SIGCONT), 0);
    search.join();
}

TEST_F(ServiceWaitsTest, AStoppedForkServerDelaysItsOpenAlone) {
    TestDocument other(*client, *queue, sample("tour.docx"), 480, 800);
    ASSERT_EQ(kill(descendants("lectern-forksrv").front(), SIGSTOP), 0);
    std::atomic<bool> opened = false;
    BusConnection second(bus->address());
    std::thread open([&] {
        const TestDocument late(second, *queue, sample("tour.txt"), 480, 800);
        EXPECT_EQ(late.openResult(), 0);
        opened = true;
    });
    int paints = 0;
    while (!opened) {
        other.touch();
        ASSERT_EQ(other.paint(), 0);
        ++paints;
    }
    open.join();
    EXPECT_GT(paints, 1) << "in the two seconds until the fork server is given up";
}

} // namespace
