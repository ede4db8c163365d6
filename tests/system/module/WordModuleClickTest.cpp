// SPDX-License-Identifier: Apache-2.0
// Links, notes and comments with the real engine.
#include "tests/system/module/ModuleView.h"

#include <algorithm>
#include <set>

namespace lectern::test {
namespace {

constexpr int FOOTNOTES = 12;

std::u16string addressOf(const wtg_click_info& info) {
    const auto* units = reinterpret_cast<const char16_t*>(info.a);
    return info.type == 6 ? std::u16string(units) : std::u16string();
}

// Rows of a pop-up that are not white.
std::vector<int> inkRows(const std::vector<std::uint32_t>& popup) {
    std::vector<int> rows;
    for (int y = 0; y < 1000; y++) {
        const auto* const row = popup.data() + std::ptrdiff_t{y} * 280;
        if (std::any_of(row, row + 280, [](std::uint32_t pixel) { return (pixel & 0xFF) < 0x80; })) {
            rows.push_back(y);
        }
    }
    return rows;
}

class ModuleClick : public testing::Test {
protected:
    // Expects a click on the first occurrence of `link` to lead to the
    // character at `target`.
    void expectLeadsTo(const std::u16string& link, const std::u16string& target) {
        const wtg_click_info info = view.clickOn(link);
        ASSERT_EQ(info.type, 7);
        EXPECT_EQ(info.a, 0);
        const std::u16string text = view.text();
        EXPECT_EQ(text.substr(static_cast<std::size_t>(info.b), target.size()), target);
        ASSERT_EQ(wordModule().wtg_jump_to_character(view.get(), static_cast<std::int32_t>(info.a),
                                                     static_cast<std::uint32_t>(info.b)),
                  MODULE_OK);
        EXPECT_EQ(view.topLeft(), static_cast<std::uint32_t>(info.b));
        view.jump(0);
    }
    ModuleView view{linkedDocument(), 320, 1562};
};

TEST_F(ModuleClick, AHyperlinkTellsItsAddressOnEveryLineOfIt) {
    EXPECT_EQ(addressOf(view.clickOn(u"page elsewhere")), u"https://example.org/harbour?a=1#b");
    EXPECT_EQ(addressOf(view.clickOn(u"long link that")), u"https://example.org/long");
    EXPECT_EQ(addressOf(view.clickOn(u"be broken somewhere")), u"https://example.org/long");
}

TEST_F(ModuleClick, AnInternalLinkTellsWhereItsBookmarkIs) {
    expectLeadsTo(u"down to the birds", u"Chapter of birds\nStra");
    EXPECT_EQ(view.clickOn(u"nowhere at all").type, 0);
}

TEST_F(ModuleClick, AContentsEntryAndAQuotedBookmarkLeadToTheHeading) {
    expectLeadsTo(u"Chapter of tides", u"Chapter of tides\nCell");
    expectLeadsTo(u"apter of ropes\t", u"Chapter of ropes\nPlain");
    std::int32_t x = 0;
    std::int32_t y = 0;
    view.pointAt(u"a field", x, y);
    const wtg_click_info field = view.click(x + 45, y);
    EXPECT_EQ(field.type, 7);
}

TEST_F(ModuleClick, PlainTextAndPointsOutsideAreOnNothing) {
    EXPECT_EQ(view.clickOn(u"Plain").type, 0);
    for (const auto& [x, y] :
         {std::pair{-1, 5}, {5, -1}, {320, 5}, {5, 1562}, {INT32_MAX, INT32_MAX}, {INT32_MIN, INT32_MIN}}) {
        EXPECT_EQ(view.click(x, y).type, 0) << x << "," << y;
    }
    ModuleView small(longDocument(1, "zebra", 1), 480, 1200);
    std::int32_t rows = 0;
    ASSERT_EQ(wordModule().wtg_get_vertical_last_used_pixel(small.get(), 0, &rows), MODULE_OK);
    ASSERT_LT(rows, 1200);
    EXPECT_EQ(small.click(10, rows + 5).type, 0) << "below the text";
    EXPECT_EQ(view.topLeft(), 0U) << "nothing moved";
}

TEST_F(ModuleClick, EveryFootnoteMarkOpensItsOwnNote) {
    std::set<std::intptr_t> numbers;
    std::size_t lastHeight = 0;
    for (int note = 3; note <= FOOTNOTES; note++) {
        const std::string number = std::to_string(note);
        const std::u16string digits(number.begin(), number.end());
        std::int32_t x = 0;
        std::int32_t y = 0;
        const std::vector<Hit> hits = view.find(u"Note " + digits + digits + u".");
        ASSERT_EQ(hits.size(), 1U) << note;
        view.jump(hits.front().start);
        view.find(digits + u". The boats");
        const std::vector<Region> regions = view.regions();
        ASSERT_FALSE(regions.empty()) << note;
        const module_rect mark = regions.front().rectangles.front();
        x = mark.x + 1;
        y = mark.y + mark.height / 2;
        const wtg_click_info info = view.click(x, y);
        ASSERT_EQ(info.type, 2) << note;
        numbers.insert(info.b);
        // A near miss, as with a finger.
        EXPECT_EQ(view.click(x + 6, y + 3).b, info.b);
        const std::vector<int> rows = inkRows(view.popup(info));
        ASSERT_FALSE(rows.empty());
        EXPECT_GE(rows.front(), 50);
        EXPECT_LT(rows.front(), 66) << "readable from the first line";
        // Each note is longer than the previous one by a sentence of at least two lines.
        EXPECT_GT(rows.back(), static_cast<int>(lastHeight) + 10) << note;
        EXPECT_LT(rows.back(), 999) << "down to its last";
        lastHeight = static_cast<std::size_t>(rows.back());
        view.jump(0);
    }
    EXPECT_EQ(numbers.size(), static_cast<std::size_t>(FOOTNOTES - 2));
}

TEST_F(ModuleClick, EndnotesAndCommentsAreToldApart) {
    std::int32_t x = 0;
    std::int32_t y = 0;
    view.pointAt(u", another", x, y);
    const wtg_click_info endnote = view.click(x + 24, y);
    EXPECT_EQ(endnote.type, 3);
    const wtg_click_info comment = view.clickOn(u"these words");
    EXPECT_EQ(comment.type, 4);
    for (const wtg_click_info& info : {endnote, comment}) {
        const std::vector<int> rows = inkRows(view.popup(info));
        ASSERT_FALSE(rows.empty());
        EXPECT_GE(rows.front(), 50);
        EXPECT_LT(rows.back(), 100);
    }
}

TEST_F(ModuleClick, ANoteInACellIsFound) {
    std::int32_t x = 0;
    std::int32_t y = 0;
    view.pointAt(u"and a note2", x, y);
    view.find(u"a note2");
    const module_rect text = view.regions().front().rectangles.front();
    EXPECT_EQ(view.click(text.x + text.width - 1, text.y + 3).type, 2);
}

TEST_F(ModuleClick, APopupChangesNothingOfThePage) {
    const wtg_click_info comment = view.clickOn(u"these words");
    view.find(u"needle");
    const std::vector<std::uint32_t> before = view.pixels();
    const std::vector<std::uint32_t> first = view.popup(comment);
    EXPECT_EQ(view.pixels(), before);
    EXPECT_EQ(view.popup(comment), first);
    for (int y = 0; y < 50; y++) {
        EXPECT_EQ(first[static_cast<std::size_t>(y) * 280 + 140], 0xFFFFFFFFU);
    }
}

TEST_F(ModuleClick, ANoteFollowsTheResolution) {
    const wtg_click_info comment = view.clickOn(u"these words");
    const std::vector<int> small = inkRows(view.popup(comment));
    view.resize(320, 1562, 144);
    const std::vector<int> large = inkRows(view.popup(comment));
    ASSERT_FALSE(large.empty());
    EXPECT_GT(large.size(), small.size() * 3 / 2);
}

TEST_F(ModuleClick, NotesThatDoNotExistAreRefused) {
    std::vector<std::uint32_t> popup(280 * 1000, 0x42);
    ASSERT_EQ(wordModule().wtg_set_offscreen_buffer(view.get(), 0, popup.data(), 280, 1000), MODULE_OK);
    EXPECT_NE(wordModule().wtg_open_secondary_document(view.get(), 2, 1000, 0, 950), MODULE_OK);
    EXPECT_NE(wordModule().wtg_open_secondary_document(view.get(), 4, 0, 0, 950), MODULE_OK);
    EXPECT_EQ(popup, std::vector<std::uint32_t>(280 * 1000, 0x42));
}

TEST_F(ModuleClick, RegionsHoldWhatCanBeClicked) {
    const module_rect* rects = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(wordModule().wtg_get_click_regions(view.get(), 0, &count, &rects), MODULE_OK);
    ASSERT_GT(count, FOOTNOTES);
    const std::vector<module_rect> regions(rects, rects + count);
    std::vector<std::string> dead;
    for (const module_rect& r : regions) {
        if (view.click(r.x + r.width / 2, r.y + r.height / 2).type == 0) {
            dead.push_back(std::to_string(r.x) + "," + std::to_string(r.y));
        }
    }
    EXPECT_EQ(dead.size(), 1U) << "the link to nowhere " << testing::PrintToString(dead);
}

TEST_F(ModuleClick, SmartZoomGivesTheParagraph) {
    view.find(u"The boats come home");
    const module_rect first = view.regions().front().rectangles.front();
    module_rect area{};
    ASSERT_EQ(wordModule().wtg_smart_zoom(view.get(), 0, first.x + 5, first.y + 5, &area), MODULE_OK);
    EXPECT_LE(area.y, first.y);
    EXPECT_GT(area.height, 3 * first.height);
    EXPECT_GT(area.width, 250);
    EXPECT_NE(wordModule().wtg_smart_zoom(view.get(), 0, -5, 5, &area), MODULE_OK);
}

} // namespace
} // namespace lectern::test
