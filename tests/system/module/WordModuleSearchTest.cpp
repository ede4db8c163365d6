// SPDX-License-Identifier: Apache-2.0
// Searches with the real engine, in documents with known hits.
#include "tests/system/module/ModuleView.h"

#include <algorithm>

namespace lectern::test {
namespace {

constexpr char16_t RED_WORDS[] = u"red words that may be broken between two lines of a narrow screen";
constexpr int NEEDLES = 14; // in the linked document

bool isRed(std::uint32_t pixel) {
    const int red = pixel >> 16 & 0xFF, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
    return red - green > 60 && red - blue > 60;
}
bool isBlack(std::uint32_t pixel) {
    return (pixel >> 16 & 0xFF) < 100 && (pixel >> 8 & 0xFF) < 100 && (pixel & 0xFF) < 100;
}

std::u16string letters(std::u16string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char16_t unit) { return unit >= u'A' && unit <= u'Z' ? unit + 32 : unit; });
    return text;
}

std::vector<std::uint32_t> positionsOf(const std::vector<Region>& regions) {
    std::vector<std::uint32_t> positions;
    for (const Region& region : regions) {
        positions.push_back(region.position);
    }
    return positions;
}

TEST(ModuleSearch, HitsAreInTheOrderOfTheTextWhateverStandsBeforeThem) {
    ModuleView view(linkedDocument(), 320, 1562);
    const std::u16string text = view.text();
    EXPECT_EQ(text.size(), view.count());
    const std::vector<Hit> hits = view.find(u"needle");
    ASSERT_EQ(hits.size(), static_cast<std::size_t>(NEEDLES));
    for (int i = 0; i < NEEDLES; i++) {
        const Hit& hit = hits[static_cast<std::size_t>(i)];
        EXPECT_EQ(letters(text.substr(hit.start, hit.end - hit.start)), u"needle");
        const std::string number = std::to_string(i + 1);
        EXPECT_EQ(text.substr(hit.end, number.size()), std::u16string(number.begin(), number.end()));
    }
}

TEST(ModuleSearch, CaseIsFoldedAsUnicodeHasIt) {
    ModuleView view(linkedDocument(), 320, 1562);
    EXPECT_EQ(view.find(u"NEEDLE").size(), static_cast<std::size_t>(NEEDLES));
    EXPECT_EQ(view.find(u"straße").size(), 1U);
    EXPECT_EQ(view.find(u"STRASSE").size(), 1U);
    EXPECT_EQ(view.find(u"ｎＥｅｄｌｅ").size(), 1U);
    EXPECT_EQ(view.find(u"stras").size(), 0U) << "half of a letter";
}

TEST(ModuleSearch, NotesAndCommentsAreNotSearched) {
    ModuleView view(linkedDocument(), 320, 1562);
    for (const char16_t* text : {u"not to be found", u"Endnote one", u"Comment one", u"begins here"}) {
        EXPECT_TRUE(view.find(text).empty());
    }
}

// Letters extend a little beyond the box of their line.
constexpr int OVERHANG = 3; // pixels

std::vector<bool> covered(const ModuleView& view, const std::vector<Region>& regions, int grownBy) {
    std::vector<bool> pixels(view.pixels().size(), false);
    for (const Region& region : regions) {
        for (const module_rect& r : region.rectangles) {
            for (int y = std::max(r.y - grownBy, 0); y < std::min(r.y + r.height + grownBy, view.height());
                 y++) {
                for (int x = std::max(r.x - grownBy, 0); x < std::min(r.x + r.width + grownBy, view.width());
                     x++) {
                    pixels[static_cast<std::size_t>(y * view.width() + x)] = true;
                }
            }
        }
    }
    return pixels;
}

// Only the searched words are red, so red pixels show where the rectangles must be.
void expectRectanglesOnRedInk(ModuleView& view, const std::u16string& text) {
    const std::vector<std::uint32_t> clean = view.pixels();
    view.find(text);
    const std::vector<Region> regions = view.regions();
    ASSERT_FALSE(regions.empty());
    const std::vector<bool> marked = covered(view, regions, 0);
    const std::vector<bool> grown = covered(view, regions, OVERHANG);
    const std::vector<bool> shrunk = covered(view, regions, -OVERHANG);
    int red = 0;
    for (std::size_t i = 0; i < clean.size(); i++) {
        ASSERT_TRUE(marked[i] || clean[i] == view.pixels()[i]) << "marked outside at " << i;
        ASSERT_TRUE(!marked[i] || clean[i] != 0xFFFFFFFF || view.pixels()[i] == 0xFF80C0FF) << i;
        ASSERT_TRUE(grown[i] || !isRed(clean[i])) << "red ink outside at " << i;
        ASSERT_TRUE(!shrunk[i] || !isBlack(clean[i])) << "black ink inside at " << i;
        red += marked[i] && isRed(clean[i]) ? 1 : 0;
    }
    EXPECT_GT(red, static_cast<int>(regions.size()) * 100);
    ASSERT_EQ(wordModule().wtg_stop_find(view.get()), MODULE_OK);
    EXPECT_EQ(view.pixels(), clean);
}

TEST(ModuleSearch, MarksLieUnderTheTextThatWasSearchedAndNowhereElse) {
    for (const auto& [width, dpi] : {std::pair{320, 72}, {480, 72}, {700, 144}}) {
        ModuleView view(generated("make_red_docx.py", {"OUT"}), width, 1200, dpi);
        expectRectanglesOnRedInk(view, RED_WORDS);
    }
}

TEST(ModuleSearch, AHitOverSeveralLinesHasARectangleForEach) {
    ModuleView view(generated("make_red_docx.py", {"OUT"}), 200, 1200);
    view.find(RED_WORDS);
    const std::vector<Region> regions = view.regions();
    ASSERT_FALSE(regions.empty());
    const std::vector<module_rect>& lines = regions.front().rectangles;
    ASSERT_GE(lines.size(), 2U);
    for (std::size_t i = 1; i < lines.size(); i++) {
        EXPECT_GE(lines[i].y, lines[i - 1].y + lines[i - 1].height - 1);
        EXPECT_LT(lines[i].x, 20);
    }
}

TEST(ModuleSearch, RegionsAreSortedAndBelongToTheStretch) {
    ModuleView view(longDocument(20, "zebra", 300), 320, 1562);
    const std::vector<Hit> hits = view.find(u"ZEBRA");
    ASSERT_EQ(hits.size(), 300U);
    std::vector<std::uint32_t> seen;
    std::int32_t scrolled = 0;
    do {
        const std::vector<Region> regions = view.regions();
        for (std::size_t i = 0; i < regions.size(); i++) {
            const module_rect& r = regions[i].rectangles.front();
            EXPECT_LT(r.y, view.height());
            EXPECT_GT(regions[i].rectangles.back().y + regions[i].rectangles.back().height, 0);
            if (i > 0) {
                const module_rect& before = regions[i - 1].rectangles.front();
                EXPECT_LE(std::pair(before.y, before.x), std::pair(r.y, r.x));
            }
        }
        const std::vector<std::uint32_t> positions = positionsOf(regions);
        seen.insert(seen.end(), positions.begin(), positions.end());
    } while (wordModule().wtg_scroll_down(view.get(), 0, 1000, &scrolled) == MODULE_OK);
    std::sort(seen.begin(), seen.end());
    seen.erase(std::unique(seen.begin(), seen.end()), seen.end());
    ASSERT_EQ(seen.size(), hits.size()) << "every hit comes by";
    for (std::size_t i = 0; i < seen.size(); i++) {
        EXPECT_EQ(seen[i], hits[i].start);
    }
}

TEST(ModuleSearch, AMovedStretchIsMarkedAsOnePaintedAtOnce) {
    ModuleView view(longDocument(20, "zebra", 300), 320, 1562);
    view.find(u"zebra");
    std::int32_t scrolled = 0;
    for (const int rows : {37, 500, 211, 1300}) {
        ASSERT_EQ(wordModule().wtg_scroll_down(view.get(), 0, rows, &scrolled), MODULE_OK);
        const std::vector<std::uint32_t> moved = view.pixels();
        view.find(u"zebra"); // painted again from the start
        ASSERT_EQ(view.pixels(), moved) << "after " << rows;
    }
    ASSERT_EQ(wordModule().wtg_scroll_up(view.get(), 0, 777, &scrolled), MODULE_OK);
    const std::vector<std::uint32_t> moved = view.pixels();
    view.find(u"zebra");
    EXPECT_EQ(view.pixels(), moved);
}

TEST(ModuleSearch, HitsStayThroughAnotherLayout) {
    ModuleView view(longDocument(20, "zebra", 300), 320, 1562);
    const std::vector<Hit> hits = view.find(u"zebra");
    view.jump(hits[150].start);
    for (const auto& [width, height, dpi] :
         {std::tuple{480, 1200, 72}, {480, 1200, 144}, {960, 720, 72}, {1440, 720, 108}}) {
        view.resize(width, height, dpi);
        view.jump(hits[150].start);
        const std::vector<std::uint32_t> positions = positionsOf(view.regions());
        EXPECT_NE(std::find(positions.begin(), positions.end(), hits[150].start), positions.end());
    }
}

TEST(ModuleSearch, OddTextsFindNothingAndHarmNothing) {
    ModuleView view(linkedDocument(), 320, 1562);
    const std::vector<std::uint32_t> clean = view.pixels();
    view.find(u"needle");
    for (const std::u16string& text :
         {std::u16string(), std::u16string(1, char16_t{0xD800}), std::u16string(1, char16_t{0xDC00}),
          std::u16string(u"need\xDC00le"), std::u16string(100'000, u'n'), std::u16string(u"\u2029")}) {
        EXPECT_TRUE(view.find(text).empty());
        EXPECT_TRUE(view.regions().empty());
        EXPECT_EQ(view.pixels(), clean) << "nothing stays marked";
    }
    EXPECT_EQ(view.find(u"needle").size(), static_cast<std::size_t>(NEEDLES));
}

} // namespace
} // namespace lectern::test
