// SPDX-License-Identifier: Apache-2.0
// The module's selection functions.

#include "tests/process/engine/EngineTest.h"

namespace lectern::test {
namespace {

class SelectionTest : public EngineTest {
protected:
    std::u16string copy(Document& document, std::int32_t capacity = 100, std::int32_t first = 0) {
        std::vector<std::uint16_t> text(static_cast<std::size_t>(capacity) + 1, 0x5A5A);
        EXPECT_EQ(word.wtg_copy_selection(document.get(), text.data(), capacity, first, &length), MODULE_OK);
        EXPECT_EQ(text.back(), 0x5A5A);
        return textOf(text);
    }
    const WordModule& word = wordModule();
    std::int32_t length = -1;
};

TEST_F(SelectionTest, IsCopiedInPieces) {
    Document document;
    open(document, "text=ropes and boats\n");
    EXPECT_EQ(copy(document), u"");
    EXPECT_EQ(length, 0);
    ASSERT_EQ(word.wtg_select_all(document.get()), MODULE_OK);
    EXPECT_EQ(copy(document), u"ropes and boats");
    EXPECT_EQ(length, 15);
    EXPECT_EQ(copy(document, 6), u"ropes");
    EXPECT_EQ(length, 15);
    EXPECT_EQ(copy(document, 6, 10), u"boats");
    EXPECT_EQ(length, 15);
    EXPECT_EQ(copy(document, 6, 15), u"");
    EXPECT_EQ(copy(document, 6, 1000), u"");
    EXPECT_EQ(word.wtg_copy_selection(document.get(), nullptr, 0, 0, &length), MODULE_OK);
    EXPECT_EQ(length, 15);
}

TEST_F(SelectionTest, ByPointsAndAreasReplaceEachOther) {
    Document document;
    open(document, "text=ropes and boats\n");
    ASSERT_EQ(word.wtg_select_word(document.get(), 0, 1, 0), MODULE_OK);
    EXPECT_EQ(copy(document), u"opes");
    ASSERT_EQ(word.wtg_select_line(document.get(), 0, 0, 0), MODULE_OK);
    EXPECT_EQ(copy(document), u"ropes an");
    ASSERT_EQ(word.wtg_select_area(document.get(), 0, 6, 0, 9, 0), MODULE_OK);
    EXPECT_EQ(copy(document), u"and");
    EXPECT_EQ(word.wtg_select_area(document.get(), 0, 0, -1, 9, 0), MODULE_NOTHING_THERE);
    EXPECT_EQ(copy(document), u"and");
    ASSERT_EQ(word.wtg_clear_selection(document.get()), MODULE_OK);
    EXPECT_EQ(copy(document), u"");
}

} // namespace
} // namespace lectern::test
