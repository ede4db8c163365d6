// SPDX-License-Identifier: Apache-2.0
// Documents that nobody uses: they give memory back, look the same afterwards, and wake
// no processor.
#include "tests/system/support/ServiceFixture.h"

#include <chrono>
#include <filesystem>
#include <sstream>
#include <thread>

namespace {

constexpr int WIDTH = 480;
constexpr int HEIGHT = 800;

class RestTest : public ServiceTest {
protected:
    // Restarts the service with another time after which documents rest.
    void restAfter(const char* milliseconds) {
        stopService();
        startService({{"LECTERN_REST_AFTER_MS", milliseconds}});
    }

    std::unique_ptr<TestDocument> opened(const std::string& name) {
        auto document = std::make_unique<TestDocument>(*client, *queue, sample(name), WIDTH, HEIGHT);
        EXPECT_EQ(document->openResult(), 0);
        EXPECT_EQ(document->paint(), 0);
        return document;
    }

    // The frame without the last pixel, which contains the status byte.
    static std::vector<uint32_t> frameOf(const TestDocument& document) {
        return {document.frame(), document.frame() + WIDTH * HEIGHT - 1};
    }

    // The memory that the service shares with engines, in KiB.
    long surfaces() const {
        std::istringstream lines(readFile("/proc/" + std::to_string(service->pid()) + "/smaps"));
        std::string line;
        bool surface = false;
        long kib = 0;
        while (std::getline(lines, line)) {
            const std::string word = line.substr(0, line.find(' '));
            if (word.back() != ':') {
                surface = line.find("lectern-surface") != std::string::npos;
            } else if (surface && word == "Rss:") {
                kib += std::stol(line.substr(word.size()));
            }
        }
        return kib;
    }

    // Opens a document, paints, calls between(), drags, and returns both frames.
    template<typename Between>
    std::vector<std::vector<uint32_t>> framesAround(const std::string& name, Between between) {
        const auto document = opened(name);
        std::vector<std::vector<uint32_t>> frames;
        between();
        document->touch();
        EXPECT_EQ(document->paint(), 0);
        frames.push_back(frameOf(*document));
        between();
        document->drag(150);
        frames.push_back(frameOf(*document));
        document->drag(-40);
        frames.push_back(frameOf(*document));
        return frames;
    }
};

class RestingKind : public RestTest, public testing::WithParamInterface<const char*> {};

TEST_P(RestingKind, LooksTheSameAfterARest) {
    long used = 0;
    const auto expected = framesAround(GetParam(), [&] { used = surfaces(); });
    EXPECT_GT(used, 400);
    restAfter("100");
    const auto frames = framesAround(GetParam(), [&] {
        EXPECT_TRUE(eventually([&] { return surfaces() < 20; })) << surfaces() << " KiB of " << used;
    });
    EXPECT_TRUE(frames == expected);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RestingKind, testing::Values("tour.docx", "tour.xlsx", "tour.pptx"),
                         [](const auto& name) { return std::string(name.param).substr(5); });

TEST_F(RestTest, ShowsTheLastPictureThoughTheEngineIsLostMeanwhile) {
    restAfter("100");
    const auto document = opened("tour.docx");
    const std::vector<uint32_t> before = frameOf(*document);
    EXPECT_TRUE(eventually([&] { return surfaces() < 20; }));
    for (const pid_t engine : descendants("lectern-engine")) {
        kill(engine, SIGKILL);
    }
    EXPECT_TRUE(eventually([] { return descendants("lectern-engine").empty(); }));
    document->touch();
    document->paint();
    EXPECT_TRUE(frameOf(*document) == before);
}

// How often the threads of these processes were given a processor or taken from it.
long switches(const std::vector<pid_t>& processes) {
    long count = 0;
    for (const pid_t process : processes) {
        for (const auto& thread :
             std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
            std::istringstream lines(readFile(thread.path().string() + "/status"));
            std::string word;
            while (lines >> word) {
                if (word.find("ctxt_switches:") != std::string::npos) {
                    long value = 0;
                    lines >> value;
                    count += value;
                }
            }
        }
    }
    return count;
}

// A timer for frames or a poll would wake some process dozens of times a second. What
// remains is the service's look at its clock and at its engines, every 4 s.
TEST_F(RestTest, WakesNoProcessorAllTheTime) {
    constexpr std::chrono::seconds SAMPLE(4);
    constexpr long MOST = 2; // a second, for five processes
    restAfter("100");
    const auto text = opened("tour.docx");
    const auto sheet = opened("tour.xlsx");
    const auto slides = opened("tour.pptx");
    std::vector<pid_t> processes = descendants("lectern-engine");
    ASSERT_EQ(processes.size(), 3U);
    processes.push_back(descendants("lectern-forksrv").front());
    processes.push_back(service->pid());
    long perSecond = 0;
    EXPECT_TRUE(eventually(
        [&] {
            const long before = switches(processes);
            std::this_thread::sleep_for(SAMPLE);
            perSecond = (switches(processes) - before) / SAMPLE.count();
            return perSecond < MOST;
        },
        60000))
        << perSecond << " a second";
}

} // namespace
