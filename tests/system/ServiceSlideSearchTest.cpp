// SPDX-License-Identifier: Apache-2.0
// Search of presentations through the service: the slides it goes to and its marks.
#include "tests/system/support/BareSlides.h"
#include "tests/system/support/Marks.h"
#include "tests/system/support/SlideFixture.h"

#include <signal.h>

#include <chrono>
#include <ostream>
#include <sstream>
#include <thread>

namespace {

constexpr int POINTS_ACROSS = 960;
constexpr int POINTS_DOWN = 540;
constexpr const char* FIVE_HITS = R"(deck = Pptx(WIDE)
for i in range(6):
    slide = deck.slide()
    slide.title(f'Page {i}')
    if i in (1, 5):
        slide.box('by the quay', (500, 150, 400, 60), size=36)
    if i in (1, 3, 5):
        slide.box('the quay', (60, 330, 400, 60), size=36)
deck.save(OUT))";

// The position of the current hit's mark.
struct Mark {
    int slide;
    int top; // on the slide
    bool operator==(const Mark&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Mark& mark) {
    return out << "slide " << mark.slide << " at " << mark.top;
}

// Processor time that a process has used, in ticks.
long processorTime(pid_t process) {
    const std::string stat = readFile("/proc/" + std::to_string(process) + "/stat");
    // The 12th and 13th field after "pid (name)".
    std::istringstream fields(stat.substr(stat.rfind(')') + 1));
    std::string skipped;
    for (int i = 0; i < 11; ++i) {
        fields >> skipped;
    }
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return user + system;
}

class SlideHitsTest : public SlidesTest {
protected:
    // The area marked as the current hit, in pixels of the slide.
    static Area markOf(const TestDocument& document) {
        const Shown picture = shown(document);
        Shown without = picture;
        for (uint32_t& colour : without) {
            colour = isCurrentSlideHit(colour) ? 0 : colour;
        }
        Area area = difference(picture, without, document.width());
        if (area.isEmpty()) {
            return {};
        }
        area.left += document.scrollX();
        area.right += document.scrollX();
        area.top += document.scrollY();
        area.bottom += document.scrollY();
        return area;
    }
    static Mark at(const TestDocument& document) {
        const Area area = markOf(document);
        EXPECT_FALSE(area.isEmpty()) << "slide " << document.slide();
        return {document.slide(), area.top};
    }
    // The area of a word: the difference between the suite's pictures of a
    // slide with and without it.
    Area wordOn(int slide, const std::string& with, const std::string& without, int width) const {
        const int height = width * POINTS_DOWN / POINTS_ACROSS;
        const BareSlides a(with, width, height, POINTS_ACROSS, POINTS_DOWN);
        keepService();
        const BareSlides b(without, width, height, POINTS_ACROSS, POINTS_DOWN);
        keepService();
        Shown first;
        Shown second;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                first.push_back(a.colour(slide, x, y));
                second.push_back(b.colour(slide, x, y));
            }
        }
        return difference(first, second, width);
    }
    // The service stops after 30 seconds without a call, which the suite alone may take
    // on a busy machine.
    void keepService() const { client->call("/events", "ping", "{}"); }
    static void expectCovered(const TestDocument& document, const Area& word, const std::string& when) {
        const Area mark = markOf(document);
        ASSERT_FALSE(mark.isEmpty()) << when;
        ASSERT_GT(word.right - word.left, 15) << when;
        EXPECT_LE(mark.left, word.left + 3) << when;
        EXPECT_LE(mark.top, word.top + 3) << when;
        EXPECT_GE(mark.right, word.right - 3) << when;
        EXPECT_GE(mark.bottom, word.bottom - 3) << when;
        // The mark is not longer than the word and not higher than a line.
        EXPECT_NEAR(mark.left, word.left, 5) << when;
        EXPECT_NEAR(mark.right, word.right, 5) << when;
        EXPECT_LE(mark.bottom - mark.top, 2 * (word.bottom - word.top)) << when;
    }
};

TEST_F(SlideHitsTest, ASearchLandsOnTheSlideAndTellsIt) {
    TestDocument document(*client, *queue, longSlides(60), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    for (const int slide : {29, 0, 59, 7}) {
        search(document, "needle" + std::to_string(slide + 1) + " at last");
        EXPECT_EQ(slideTold(document), slide);
        EXPECT_EQ(document.slide(), slide);
        EXPECT_FALSE(markOf(document).isEmpty());
    }
}

TEST_F(SlideHitsTest, TheMarkCoversTheWordAfterJumpsAndZooms) {
    const auto deck = [](const std::string& name, const std::string& words) {
        return madeSlides(name, "deck = Pptx(WIDE)\ndeck.slide().title('First')\nslide = deck.slide()\n"
                                "slide.title('Second')\nslide.box('" +
                                    words + "', (430, 330, 400, 60), size=36)\ndeck.save(OUT)");
    };
    const std::string with = deck("with.pptx", "low tide");
    const std::string without = deck("without.pptx", "low");
    const Area small = wordOn(1, with, without, 480);
    const Area large = wordOn(1, with, without, 960);
    const Area larger = wordOn(1, with, without, 1200);
    TestDocument document(*client, *queue, with, 480, 480);
    ASSERT_EQ(document.paint(), 0);
    search(document, "tide");
    EXPECT_EQ(slideTold(document), 1);
    expectCovered(document, small, "after the search");
    document.pinch(2.0);
    expectCovered(document, large, "after a pinch");
    jump(document, 0);
    EXPECT_TRUE(markOf(document).isEmpty()) << "on a slide without hits";
    jump(document, 1);
    expectCovered(document, large, "after a jump");
    next(document);
    expectCovered(document, large, "after a step around");
    jump(document, 0);
    search(document, "TIDE");
    expectCovered(document, large, "after a search in the large");
    jump(document, 0);
    previous(document);
    expectCovered(document, large, "after a jump and a step back");
    document.doubleTap(240, 240);
    next(document); // a double tap jumps to the place, a step goes to the hit
    expectCovered(document, larger, "after a double tap");
    document.pinch(0.1);
    expectCovered(document, small, "after a pinch back");
}

TEST_F(SlideHitsTest, StepsGoRoundBothWays) {
    TestDocument document(*client, *queue, madeSlides("five.pptx", FIVE_HITS), 480, 800);
    search(document, "quay");
    std::vector<Mark> marks{at(document)};
    for (int step = 1; step < 5; ++step) {
        next(document);
        marks.push_back(at(document));
    }
    const int upper = marks[0].top;
    const int lower = marks[1].top;
    EXPECT_GT(lower, upper + 50);
    EXPECT_EQ(marks, (std::vector<Mark>{{1, upper}, {1, lower}, {3, lower}, {5, upper}, {5, lower}}));
    for (int step = 0; step < 12; ++step) {
        next(document);
        ASSERT_EQ(at(document), marks[static_cast<size_t>(step) % 5]) << "step " << step;
    }
    for (int step = 0; step < 13; ++step) { // from the second
        previous(document);
        ASSERT_EQ(at(document), marks[static_cast<size_t>(10 - step + 5) % 5]) << "step back " << step;
    }
    jump(document, 4);
    search(document, "quay");
    EXPECT_EQ(at(document), marks[3]) << "the search begins at the slide shown";
}

TEST_F(SlideHitsTest, AHitInNotesShowsItsSlideWithoutAMark) {
    TestDocument document(*client, *queue, longSlides(60), 480, 800);
    search(document, "note of 42");
    EXPECT_EQ(document.slide(), 41);
    EXPECT_TRUE(markOf(document).isEmpty());
    EXPECT_EQ(note(document), "Note of 42");
    next(document);
    previous(document);
    EXPECT_EQ(document.slide(), 41);
}

TEST_F(SlideHitsTest, WhatTheMasterShowsIsFoundOnEverySlide) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    search(document, "harbour office");
    for (int slide = 0; slide < 7; ++slide) {
        const Area mark = markOf(document);
        EXPECT_EQ(document.slide(), slide);
        EXPECT_GT(mark.left, 350);
        EXPECT_GT(mark.top, 240);
        next(document);
    }
    const std::string path = madeSlides("footers.pptx", "deck = Pptx()\ndeck.slide().title('None here')\n"
                                                        "deck.slide().footer('Footer from the master')\n"
                                                        "deck.save(OUT)");
    TestDocument footers(*client, *queue, path, 480, 800);
    search(footers, "footer from the master");
    EXPECT_EQ(footers.slide(), 1);
    EXPECT_GT(markOf(footers).top, 300);
}

TEST_F(SlideHitsTest, CloseSearchLeavesNoMark) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    jump(document, 1);
    const Shown clean = shown(document);
    search(document, "the");
    EXPECT_FALSE(shown(document) == clean);
    EXPECT_EQ(document.call("/common", "closeSearch"), R"({ "returnValue": true })");
    EXPECT_TRUE(shown(document) == clean);
    next(document);
    previous(document);
    EXPECT_TRUE(shown(document) == clean);
}

TEST_F(SlideHitsTest, OddTextsFindNothing) {
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    const Shown clean = shown(document);
    for (const std::string& text : {std::string(), std::string(100'000, 'x'), std::string("no such words"),
                                    std::string("\x01\x02"), std::string("%s%n")}) {
        search(document, text);
        next(document);
        EXPECT_EQ(document.slide(), 0);
        EXPECT_TRUE(shown(document) == clean) << text.substr(0, 20);
    }
    document.call("/common", "Search", ",\"search\":\"\\uD800\"");
    EXPECT_TRUE(shown(document) == clean);
    EXPECT_EQ(document.call("/common", "Search"),
              R"({ "errorCode": "errParamFailed", "errorText": "failed to get search query" })");
}

TEST_F(SlideHitsTest, ASearchThatTakesTooLongGivesWhatItFoundAndGoesOnTheNextTime) {
    constexpr int SLIDES = 300;
    constexpr auto LONGER_THAN_ITS_PATIENCE = std::chrono::milliseconds(6000);
    TestDocument document(*client, *queue, longSlides(SLIDES), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    const pid_t engine = descendants("lectern-engine").front();
    const long before = processorTime(engine);
    std::thread halt([&] {
        // The engine is working; now let time pass without work.
        EXPECT_TRUE(eventually([&] { return processorTime(engine) > before + 3; }));
        kill(engine, SIGSTOP);
        std::this_thread::sleep_for(LONGER_THAN_ITS_PATIENCE);
        kill(engine, SIGCONT);
    });
    search(document, "needle");
    halt.join();
    EXPECT_EQ(document.slide(), 0);
    EXPECT_FALSE(markOf(document).isEmpty());
    previous(document);
    const int last = document.slide();
    EXPECT_LT(last, SLIDES - 1) << "it came to the end all the same";
    EXPECT_FALSE(markOf(document).isEmpty());
    EXPECT_TRUE(eventually([&] { // on a slow machine, not at once
        jump(document, 0);
        search(document, "needle");
        previous(document);
        return document.slide() == SLIDES - 1;
    }));
}

TEST_F(SlideHitsTest, AnEngineThatDoesNotAnswerIsReplacedAndTheSearchGoesOn) {
    stopService();
    startService({{"LECTERN_ENGINE_CALL_LIMIT_MS", "2000"}});
    TestDocument document(*client, *queue, slideSample("tour.pptx"), 480, 800);
    ASSERT_EQ(document.paint(), 0);
    const pid_t engine = descendants("lectern-engine").front();
    TestDocument other(*client, *queue, longSlides(40), 480, 800);
    kill(engine, SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    search(document, "the");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_TRUE(eventually([&] { return kill(engine, 0) != 0; })) << "it is still there";
    EXPECT_EQ(document.paint(), 0);
    EXPECT_FALSE(markOf(document).isEmpty()) << "the first call was given up, the search found a new engine";
    next(document);
    EXPECT_EQ(slideCount(document), 7);
    search(other, "needle7 ");
    EXPECT_EQ(other.slide(), 6);
}

} // namespace
