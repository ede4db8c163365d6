// SPDX-License-Identifier: Apache-2.0
// Documents that are opened, used and closed for a long time.
#include "tests/torture/TortureFixture.h"

#include <sys/msg.h>
#include <sys/shm.h>

#include <filesystem>

namespace {

using Clock = std::chrono::steady_clock;

class SoakTorture : public TortureTest {
protected:
    std::unique_ptr<TestDocument> openAny() {
        static const std::vector<std::string> NAMES = {"tour.docx", "tour.xlsx", "tour.pptx", "tour.txt",
                                                       "tour.doc",  "tour.xls",  "tour.ppt"};
        return std::make_unique<TestDocument>(
            *client, *queue, sample(NAMES[below(static_cast<unsigned>(NAMES.size()))]), 480, 800);
    }
    static int segments() {
        shm_info info{};
        shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info));
        return info.used_ids;
    }
    unsigned long waiting() const {
        msqid_ds status{};
        msgctl(queue->id(), IPC_STAT, &status);
        return status.msg_qnum;
    }
    void use(TestDocument& document) {
        switch (below(5)) {
        case 0:
            return document.drag(300);
        case 1:
            return document.pinch(1.2);
        case 2:
            document.call("/common", "Search", R"(,"search":"a")");
            return;
        case 3:
            return document.doubleTap(100, 100);
        default:
            document.paint();
        }
    }
};

TEST_F(SoakTorture, EndsWhereItBegan) {
    // What is set up once and kept belongs to the beginning.
    for (int i = 0; i < 7; ++i) {
        openAny();
    }
    const Holdings before = holdings();
    const int segmentsBefore = segments();
    const auto end = Clock::now() + std::chrono::seconds(amount(20, 1200));
    const auto most = static_cast<size_t>(amount(10, 50));
    std::vector<std::unique_ptr<TestDocument>> open;
    int opened = 0;
    int uses = 0;
    while (Clock::now() < end) {
        if (open.size() < most && below(3) == 0) {
            open.push_back(openAny());
            ASSERT_EQ(open.back()->openResult(), 0);
            ++opened;
            while (queue->poll(open.back()->store()).id >= 0) {
            }
        } else if (!open.empty()) {
            const size_t which = below(static_cast<unsigned>(open.size()));
            use(*open[which]);
            ++uses;
            // The fixture's clients wait until the whole queue is empty.
            while (queue->poll(open[which]->store()).id >= 0) {
            }
            if (below(12) == 0) {
                open.erase(open.begin() + static_cast<std::ptrdiff_t>(which));
            }
        }
    }
    open.clear();
    expectAlive();
    EXPECT_TRUE(eventually([&] { return descendants("lectern-engine").empty(); }));
    EXPECT_TRUE(eventually([&] { return holdings().descriptors <= before.descriptors; }));
    const Holdings after = holdings();
    // One thread reads the queue while another waits for an engine, and one is idle.
    EXPECT_LE(after.threads, before.threads + 2);
    EXPECT_LE(after.kibibytes, before.kibibytes + 20 * 1024);
    EXPECT_EQ(segments(), segmentsBefore);
    EXPECT_EQ(waiting(), 0U);
    addRow("soak",
           std::to_string(opened) + " opens and " + std::to_string(uses) + " uses of up to " +
               std::to_string(most) + " documents at a time",
           comparison(before, after) + "; no engine, segment or record left");
}

} // namespace
