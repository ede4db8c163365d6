// SPDX-License-Identifier: Apache-2.0
// Selecting text with the real engine.
#include "tests/system/module/ModuleView.h"

namespace lectern::test {
namespace {

class ModuleSelection : public testing::Test {
protected:
    // The first rectangle of a text.
    module_rect find(const std::u16string& text) {
        view.find(text);
        const std::vector<Region> regions = view.regions();
        EXPECT_EQ(wordModule().wtg_stop_find(view.get()), MODULE_OK);
        EXPECT_FALSE(regions.empty());
        return regions.empty() ? module_rect{} : regions.front().rectangles.front();
    }
    int marked() const {
        int count = 0;
        for (const std::uint32_t pixel : view.pixels()) {
            count += pixel == 0xFF80C0FF ? 1 : 0;
        }
        return count;
    }
    ModuleView view{linkedDocument(), 320, 1562};
    const WordModule& word = wordModule();
};

TEST_F(ModuleSelection, AWordIsTheOneAtThePoint) {
    const module_rect at = find(u"Plain");
    ASSERT_EQ(word.wtg_select_word(view.get(), 0, at.x + 10, at.y + 5), MODULE_OK);
    EXPECT_EQ(view.copy(), u"Plain");
    EXPECT_GT(marked(), 100);
    ASSERT_EQ(word.wtg_clear_selection(view.get()), MODULE_OK);
    EXPECT_EQ(view.copy(), u"");
    EXPECT_EQ(marked(), 0);
}

TEST_F(ModuleSelection, ALineIsAsLongAsTheScreen) {
    const module_rect at = find(u"another");
    ASSERT_EQ(word.wtg_select_line(view.get(), 0, at.x + 3, at.y + 5), MODULE_OK);
    const std::u16string line = view.copy();
    EXPECT_EQ(line.substr(0, 7), u"A note1");
    EXPECT_LT(line.size(), 80U);
    EXPECT_NE(line.find(u"another"), std::u16string::npos);
}

TEST_F(ModuleSelection, AnAreaReachesFromCornerToCorner) {
    const module_rect first = find(u"Plain");
    const module_rect last = find(u"Remarks");
    ASSERT_EQ(word.wtg_select_area(view.get(), 0, first.x, first.y + 2, last.x + last.width, last.y + 5),
              MODULE_OK);
    const std::u16string text = view.copy();
    EXPECT_EQ(text.substr(0, 13), u"Plain needle1");
    EXPECT_EQ(text.substr(text.size() - 7), u"Remarks");
    EXPECT_NE(text.find(u'\n'), std::u16string::npos);
    for (const auto& [left, top, right, bottom] :
         {std::tuple{10, 10, 5, 20}, {10, 20, 20, 10}, {-10, -10, -5, -5}, {400, 0, 500, 10}}) {
        EXPECT_NE(word.wtg_select_area(view.get(), 0, left, top, right, bottom), MODULE_OK);
    }
    EXPECT_EQ(view.copy(), text) << "a refused area leaves the selection";
}

TEST_F(ModuleSelection, EverythingIsTheWholeTextAndFollowsTheStretch) {
    ASSERT_EQ(word.wtg_select_all(view.get()), MODULE_OK);
    EXPECT_EQ(view.copy().size(), view.count());
    EXPECT_GT(marked(), 10000);
    std::int32_t scrolled = 0;
    ASSERT_EQ(word.wtg_scroll_down(view.get(), 0, 700, &scrolled), MODULE_OK);
    EXPECT_GT(marked(), 10000);
    ASSERT_EQ(word.wtg_clear_selection(view.get()), MODULE_OK);
    EXPECT_EQ(marked(), 0);
}

TEST_F(ModuleSelection, PointsOutsideSelectNothing) {
    for (const auto& [x, y] : {std::pair{-1, 5}, {5, -1}, {320, 5}, {5, 1562}}) {
        EXPECT_NE(word.wtg_select_word(view.get(), 0, x, y), MODULE_OK);
        EXPECT_NE(word.wtg_select_line(view.get(), 0, x, y), MODULE_OK);
    }
    EXPECT_EQ(view.copy(), u"");
}

TEST_F(ModuleSelection, ARangeIsScrolledToUnlessItIsShown) {
    const std::vector<Hit> hits = view.find(u"needle");
    ASSERT_EQ(word.wtg_scroll_to_character_range(view.get(), 0, hits[1].start, hits[1].end), MODULE_OK);
    EXPECT_EQ(view.topLeft(), 0U);
    ASSERT_EQ(word.wtg_scroll_to_character_range(view.get(), 0, hits.back().start, hits.back().end),
              MODULE_OK);
    EXPECT_GT(view.topLeft(), hits[12].end);
    EXPECT_LE(view.topLeft(), hits.back().start);
    EXPECT_NE(word.wtg_scroll_to_character_range(view.get(), 0, 5, view.count() + 1), MODULE_OK);
}

} // namespace
} // namespace lectern::test
