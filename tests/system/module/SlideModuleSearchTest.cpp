// SPDX-License-Identifier: Apache-2.0
// Searches of presentations with the real engine and known hits.
#include "tests/process/engine/EngineHost.h"
#include "tests/system/module/SlideView.h"

#include <algorithm>
#include <cctype>

namespace lectern::test {
namespace {

constexpr int WIDTH = 960;
constexpr int HEIGHT = 540;

int occurrences(std::string text, const std::string& wanted) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    int count = 0;
    for (std::size_t at = text.find(wanted); at != std::string::npos;
         at = text.find(wanted, at + wanted.size())) {
        count++;
    }
    return count;
}

// The smallest rectangle around the pixels that differ.
module_rect difference(const Pixels& a, const Pixels& b, int width) {
    int left = INT32_MAX;
    int top = INT32_MAX;
    int right = -1;
    int bottom = -1;
    for (std::size_t i = 0; i < a.size(); i++) {
        if (a[i] != b[i]) {
            const int x = static_cast<int>(i) % width;
            const int y = static_cast<int>(i) / width;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    return right < 0 ? module_rect{0, 0, 0, 0} : module_rect{left, top, right - left + 1, bottom - top + 1};
}

// Builds two decks that differ in one word; the difference of their pictures is
// the word.
std::string deckSaying(const std::string& name, const std::string& line, const std::string& more = "") {
    return madeSlides(name, "deck = Pptx(WIDE)\nslide = deck.slide()\n" + line + "\ndeck.save(OUT)" + more);
}

void expectCovers(const module_rect& rect, const module_rect& ink, const std::string& what) {
    EXPECT_LE(rect.x, ink.x + 3) << what;
    EXPECT_GE(rect.x + rect.width, ink.x + ink.width - 3) << what;
    EXPECT_LE(rect.y, ink.y + 3) << what;
    EXPECT_GE(rect.y + rect.height, ink.y + ink.height - 3) << what;
    // The rectangle is not longer than the word and not higher than a line.
    EXPECT_NEAR(rect.x, ink.x, 5) << what;
    EXPECT_NEAR(rect.x + rect.width, ink.x + ink.width, 5) << what;
    EXPECT_LE(rect.height, 2 * ink.height) << what;
}

TEST(SlideSearch, CountsAreThoseOfTheFile) {
    const std::string path = slideSample("tour.pptx");
    const std::vector<WrittenSlide> written = readSlides(path);
    const SlideView view(path);
    for (const std::string wanted : {"the", "boat", "a", "ferry", "quay", "lighthouse", "nowhere"}) {
        std::vector<sstg_find_info> infos = view.find(wanted);
        for (std::int32_t i = 0; i < view.count(); i++) {
            const WrittenSlide& slide = written[static_cast<std::size_t>(i)];
            const auto info = std::find_if(infos.begin(), infos.end(),
                                           [&](const sstg_find_info& one) { return one.slide == i; });
            const int onSlide = info == infos.end() ? 0 : info->slide_hits;
            const int inNotes = info == infos.end() ? 0 : info->note_hits;
            EXPECT_EQ(inNotes, occurrences(slide.note, wanted)) << wanted << " " << i;
            // Slide 3 also has a chart's words, a box of the last slide is
            // hidden, and every slide shows "Harbour office" from its master.
            if (i != 3 && i != 6 && wanted != "a") {
                EXPECT_EQ(onSlide, occurrences(slide.text, wanted)) << wanted << " " << i;
            }
        }
        EXPECT_TRUE(std::is_sorted(infos.begin(), infos.end(),
                                   [](const auto& a, const auto& b) { return a.slide < b.slide; }));
    }
    EXPECT_EQ(view.find("guests in a week").size(), 1U) << "a chart's title";
    EXPECT_EQ(view.find("harbour office").size(), 7U) << "what the master says";
    EXPECT_TRUE(view.find("gone away").empty()) << "what is no longer shown";
    EXPECT_EQ(view.find("FERRY").size(), view.find("ferry").size());
}

TEST(SlideSearch, EverySlideOfManyIsFound) {
    const SlideView view(longSlides(300));
    const std::vector<sstg_find_info> infos = view.find("needle");
    ASSERT_EQ(infos.size(), 300U);
    for (std::int32_t i = 0; i < 300; i++) {
        EXPECT_EQ(infos[static_cast<std::size_t>(i)].slide, i);
        EXPECT_EQ(infos[static_cast<std::size_t>(i)].slide_hits, 1);
    }
    const std::vector<sstg_find_info> one = view.find("needle150");
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(one[0].slide, 149);
    const std::vector<sstg_find_info> notes = view.find("note of");
    ASSERT_EQ(notes.size(), 100U);
    EXPECT_EQ(notes[0].slide_hits, 0);
    EXPECT_EQ(notes[0].note_hits, 1);
}

TEST(SlideSearch, ARectangleCoversItsWordAtEveryZoom) {
    const std::string box = "slide.box('low tide', (100, 200, 500, 60), size=36)";
    const std::string without = "slide.box('low', (100, 200, 500, 60), size=36)";
    const SlideView with(deckSaying("with.pptx", box));
    const SlideView bare(deckSaying("without.pptx", without));
    for (const auto& [width, height] : {std::pair{480, 270}, {960, 540}, {1440, 810}}) {
        const module_rect ink =
            difference(with.render(0, width, height), bare.render(0, width, height), width);
        ASSERT_GT(ink.width, 20);
        ASSERT_EQ(with.find("tide").size(), 1U);
        const std::vector<SlideRegion> regions = with.regions();
        ASSERT_EQ(regions.size(), 1U);
        ASSERT_EQ(regions[0].size(), 1U);
        expectCovers(regions[0][0], ink, std::to_string(width));
        EXPECT_EQ(slideModule().sstg_stop_find(with.get()), MODULE_OK);
    }
}

TEST(SlideSearch, TextFromTheRightAndOtherScriptsAreCovered) {
    const struct {
        const char *with, *without, *wanted;
    } cases[] = {{"שלום עולם", "שלום", "עולם"},
                 {"早上好 港口", "早上好", "港口"},
                 {"Καλημέρα λιμάνι", "Καλημέρα", "λιμάνι"}};
    for (const auto& [words, fewer, wanted] : cases) {
        const std::string rtl = wanted == std::string("עולם") ? ", rtl=True" : "";
        const auto deck = [&](const std::string& name, const std::string& text) {
            return deckSaying(name, "slide.box('" + text + "', (100, 200, 500, 60), size=36" + rtl + ")");
        };
        const SlideView with(deck("script.pptx", words));
        const SlideView bare(deck("script-less.pptx", fewer));
        const module_rect ink =
            difference(with.render(0, WIDTH, HEIGHT), bare.render(0, WIDTH, HEIGHT), WIDTH);
        ASSERT_EQ(with.find(wanted).size(), 1U) << wanted;
        const std::vector<SlideRegion> regions = with.regions();
        ASSERT_EQ(regions.size(), 1U);
        expectCovers(regions[0].front(), ink, wanted);
    }
}

TEST(SlideSearch, AHitOverTwoLinesHasARectangleForEach) {
    const SlideView view(deckSaying(
        "lines.pptx", "slide.box('the tide comes in and the tide goes out', (100, 100, 190, 300), size=36)"));
    view.render(0, WIDTH, HEIGHT);
    ASSERT_EQ(view.find("comes in and the tide").size(), 1U);
    const std::vector<SlideRegion> regions = view.regions();
    ASSERT_EQ(regions.size(), 1U);
    ASSERT_GT(regions[0].size(), 1U);
    for (std::size_t i = 1; i < regions[0].size(); i++) {
        EXPECT_GT(regions[0][i].y, regions[0][i - 1].y + 20);
        EXPECT_LT(regions[0][i].x + regions[0][i].width, 290 + 3);
    }
}

TEST(SlideSearch, CellsAndTurnedBoxesAreFoundWhereTheyAre) {
    const SlideView view(slideSample("tour.pptx"));
    view.render(2, WIDTH, HEIGHT);
    ASSERT_EQ(view.find("mail boat").size(), 1U);
    ASSERT_EQ(view.regions().size(), 1U);
    const module_rect cell = view.regions()[0][0];
    EXPECT_GT(cell.x, 47);
    EXPECT_LT(cell.x + cell.width, 48 + 288);
    EXPECT_GT(cell.y, 130 + 120);
    EXPECT_LT(cell.y + cell.height, 130 + 195 + 5);
    view.render(5, WIDTH, HEIGHT);
    ASSERT_EQ(view.find("sign on the quay").size(), 1U);
    const module_rect turned = view.regions()[0][0];
    EXPECT_GT(turned.height, turned.width / 4) << "as high as it rises";
    EXPECT_GT(turned.x, 560);
}

TEST(SlideSearch, HitsAreMarkedInTheColourUntilTheSearchStops) {
    const SlideView view(slideSample("tour.pptx"));
    const Pixels plain = view.render(1, WIDTH, HEIGHT);
    view.find("lighthouse");
    EXPECT_EQ(view.render(3, WIDTH, HEIGHT), SlideView(slideSample("tour.pptx")).render(3, WIDTH, HEIGHT))
        << "a slide without hits";
    const Pixels marked = view.render(1, WIDTH, HEIGHT);
    const std::vector<SlideRegion> regions = view.regions();
    ASSERT_EQ(regions.size(), 1U);
    const module_rect rect = regions[0][0];
    EXPECT_EQ(marked[static_cast<std::size_t>(rect.y * WIDTH + rect.x)], 0xFF80C0FFU);
    const module_rect changed = difference(plain, marked, WIDTH);
    EXPECT_EQ(changed.x, rect.x);
    EXPECT_EQ(changed.width, rect.width);
    EXPECT_EQ(changed.height, rect.height);
    ASSERT_EQ(slideModule().sstg_stop_find(view.get()), MODULE_OK);
    EXPECT_EQ(view.render(1, WIDTH, HEIGHT), plain);
    EXPECT_TRUE(view.regions().empty());
}

TEST(SlideSearch, RegionsAreFromTopToBottom) {
    const SlideView view(slideSample("tour.pptx"));
    view.render(1, WIDTH, HEIGHT);
    view.find("the");
    const std::vector<SlideRegion> regions = view.regions();
    ASSERT_EQ(regions.size(), 6U);
    EXPECT_TRUE(
        std::is_sorted(regions.begin(), regions.end(), [](const SlideRegion& a, const SlideRegion& b) {
            return std::pair(a[0].y, a[0].x) < std::pair(b[0].y, b[0].x);
        }));
}

TEST(SlideSearch, OddTextsFindNothing) {
    const SlideView view(slideSample("tour.pptx"));
    EXPECT_TRUE(view.find("").empty());
    EXPECT_TRUE(view.find(std::string(100000, 'x')).empty());
    const std::uint16_t half[] = {0xD800, 0};
    const sstg_find_info* infos = nullptr;
    std::int32_t count = -1;
    EXPECT_EQ(slideModule().sstg_find(view.get(), half, 0, 6, &infos, &count), MODULE_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(slideModule().sstg_find(view.get(), wide("the").data(), 2, 3, &infos, &count), MODULE_OK);
    ASSERT_EQ(count, 1) << "only the slides asked for";
    EXPECT_EQ(infos[0].slide, 3);
}

} // namespace
} // namespace lectern::test
