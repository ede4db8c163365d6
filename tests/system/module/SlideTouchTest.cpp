// SPDX-License-Identifier: Apache-2.0
// The presentation module's optional functions with the real engine: links, figures, lines
// of text, and options of a search.
#include "modules/TouchSlideFunctions.h"
#include "tests/process/engine/EngineHost.h"
#include "tests/system/module/SlideView.h"

#include <utility>

namespace lectern::test {
namespace {

// The decks of these tests have slides of 720 x 540, so a picture of that size has the
// units of their making.
constexpr std::int32_t WIDTH = 720;
constexpr std::int32_t HEIGHT = 540;

std::string utf8(const std::uint16_t* text, std::size_t length) {
    std::string ascii;
    for (std::size_t i = 0; i < length; i++) {
        ascii += static_cast<char>(text[i]);
    }
    return ascii;
}

// "slide 2", an address, or "none".
std::string linkAt(const SlideView& view, std::int32_t slide, std::int32_t x, std::int32_t y) {
    std::vector<std::uint16_t> address(500);
    std::int32_t target = -1;
    std::int32_t length = 0;
    if (slideFunction<decltype(sstg_get_link)>("sstg_get_link")(
            view.get(), slide, x, y, WIDTH, HEIGHT, &target, address.data(), 500, &length) != MODULE_OK) {
        return "none";
    }
    return target >= 0 ? "slide " + std::to_string(target)
                       : utf8(address.data(), static_cast<std::size_t>(length));
}

// A slide with a link in the middle of a line, a picture that is a link, and a box that is
// one inside the presentation; then three others.
std::string linkedSlides() {
    return madeSlides("linked.pptx", R"(
deck = Pptx()
first = deck.slide()
def relation(kind, target):
    first.relations.append((kind, target))
    return f'rId{len(first.relations)}'
page, third = relation('hyperlink', 'https://a.example/x?y=1" TargetMode="External'), relation('slide', 'slide3.xml')
run = '<a:r><a:rPr lang="en-GB" sz="2400">%s</a:rPr><a:t>%s</a:t></a:r>'
first._shape('<a:p>' + run % ('', 'Look at ') + run % (f'<a:hlinkClick r:id="{page}"/>', 'this page') + run % ('', ' or not') + '</a:p>', (36, 100, 600, 50))
first._shape('<a:p>' + run % (f'<a:hlinkClick r:id="{third}" action="ppaction://hlinksldjump"/>', 'Third') + '</a:p>', (36, 200, 600, 50))
first._shape('<a:p>' + run % ('<a:hlinkClick r:id="" action="ppaction://hlinkshowjump?jump=lastslide"/>', 'Last') + '</a:p>', (36, 300, 600, 50))
first._shape('<a:p/>', (400, 400, 200, 100))
first.shapes[-1] = first.shapes[-1].replace('name="Shape 5"/>', f'name="Shape 5"><a:hlinkClick r:id="{third}" action="ppaction://hlinksldjump"/></p:cNvPr>')
for name in ('Second', 'Third', 'Fourth'):
    deck.slide().title(name)
deck.save(OUT)
)");
}

std::vector<std::pair<std::string, module_rect>> linesOf(const SlideView& view, std::int32_t slide) {
    const sstg_text_line* lines = nullptr;
    std::int32_t count = -1;
    EXPECT_EQ(slideFunction<decltype(sstg_get_text_lines)>("sstg_get_text_lines")(view.get(), slide, WIDTH,
                                                                                  HEIGHT, &count, &lines),
              MODULE_OK);
    std::vector<std::pair<std::string, module_rect>> told;
    for (std::int32_t i = 0; i < count; i++) {
        told.emplace_back(utf8(lines[i].text, static_cast<std::size_t>(lines[i].length)), lines[i].places[0]);
    }
    return told;
}

TEST(SlideTouch, LinksOfTextsAndShapesAreFound) {
    const SlideView view(linkedSlides());
    std::int32_t inLine = -1;
    for (std::int32_t x = 40; x < 400; x += 2) {
        if (linkAt(view, 0, x, 122) == "https://a.example/x?y=1") {
            inLine = x;
            break;
        }
    }
    EXPECT_GT(inLine, 100) << "behind the words before it";
    EXPECT_LT(inLine, 200);
    EXPECT_EQ(linkAt(view, 0, 60, 122), "none");
    EXPECT_EQ(linkAt(view, 0, 60, 222), "slide 2");
    EXPECT_EQ(linkAt(view, 0, 60, 322), "slide 3");
    EXPECT_EQ(linkAt(view, 0, 500, 450), "slide 2");
    EXPECT_EQ(linkAt(view, 0, 700, 10), "none");
    EXPECT_EQ(linkAt(view, 1, 60, 222), "none");
    for (const std::int32_t odd : {-1, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(linkAt(view, 0, odd, odd), "none");
        EXPECT_EQ(linkAt(view, odd, 60, 222), "none");
    }
}

TEST(SlideTouch, FiguresAreToldButTextsAreNot) {
    const SlideView view(madeSlides("figures.pptx", R"(
from pptx_tour import *
deck = Pptx()
slide = deck.slide()
slide.table([['one', 'two'], ['three', 'four']], (100, 200, 300, 100))
slide.box('words', (500, 200, 100, 50))
deck.save(OUT)
)"));
    const auto area = slideFunction<decltype(sstg_get_shape_area)>("sstg_get_shape_area");
    module_rect table{};
    ASSERT_EQ(area(view.get(), 0, 250, 240, WIDTH, HEIGHT, &table), MODULE_OK);
    EXPECT_NEAR(table.x, 100, 2);
    EXPECT_NEAR(table.y, 200, 2);
    EXPECT_NEAR(table.width, 300, 3);
    EXPECT_EQ(area(view.get(), 0, 540, 220, WIDTH, HEIGHT, &table), MODULE_NOTHING_THERE);
    EXPECT_NE(area(view.get(), 9, 250, 240, WIDTH, HEIGHT, &table), MODULE_OK);
    EXPECT_NE(area(view.get(), 0, 250, 240, 0, HEIGHT, &table), MODULE_OK);
}

TEST(SlideTouch, LinesHaveTheirTextsAndPlaces) {
    const SlideView view(linkedSlides());
    const auto lines = linesOf(view, 0);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].first, "Look at this page or not");
    EXPECT_NEAR(lines[0].second.x, 43, 4);
    EXPECT_NEAR(lines[0].second.y, 104, 6);
    EXPECT_NEAR(lines[0].second.height, 29, 4);
    EXPECT_EQ(linesOf(view, 1).at(0).first, "Second");
}

TEST(SlideTouch, WrappedLinesFollowEachOther) {
    const SlideView view(madeSlides("wrapped.pptx", R"(
deck = Pptx()
deck.slide().box('many words that do not fit into one line of it\nbroken', (100, 100, 150, 300))
deck.save(OUT)
)"));
    const sstg_text_line* lines = nullptr;
    std::int32_t count = -1;
    ASSERT_EQ(slideFunction<decltype(sstg_get_text_lines)>("sstg_get_text_lines")(view.get(), 0, WIDTH,
                                                                                  HEIGHT, &count, &lines),
              MODULE_OK);
    ASSERT_GT(count, 2);
    std::string whole;
    for (std::int32_t i = 0; i < count; i++) {
        EXPECT_EQ(lines[i].paragraph, 0);
        whole += utf8(lines[i].text, static_cast<std::size_t>(lines[i].length));
    }
    EXPECT_EQ(whole, "many words that do not fit into one line of it\1"
                     "broken");
}

TEST(SlideTouch, OptionsLimitTheHits) {
    const SlideView view(madeSlides("options.pptx", R"(
deck = Pptx()
slide = deck.slide()
slide.box('tide Tide tides TIDE_2', (100, 100, 500, 50))
slide.note = 'Tide tidal'
deck.save(OUT)
)"));
    const auto setOptions = slideFunction<decltype(sstg_set_find_options)>("sstg_set_find_options");
    const auto hits = [&](std::int32_t flags) {
        EXPECT_EQ(setOptions(view.get(), flags), MODULE_OK);
        const auto infos = view.find("tide");
        return infos.empty() ? 0 : infos[0].slide_hits;
    };
    EXPECT_EQ(hits(0), 4);
    EXPECT_EQ(hits(SSTG_FIND_MATCH_CASE), 2);
    EXPECT_EQ(hits(SSTG_FIND_WHOLE_WORDS), 2);
    EXPECT_EQ(hits(SSTG_FIND_MATCH_CASE | SSTG_FIND_WHOLE_WORDS), 1);
    view.render(0, WIDTH, HEIGHT);
    EXPECT_EQ(view.regions().size(), 1U);
    EXPECT_EQ(hits(0), 4);
}

} // namespace
} // namespace lectern::test
