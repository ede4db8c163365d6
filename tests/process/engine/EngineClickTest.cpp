// SPDX-License-Identifier: Apache-2.0
// Click records, and the buffer while it shows a secondary document.

#include "tests/process/engine/EngineTest.h"

#include <algorithm>

namespace lectern::test {
namespace {

class ClickTest : public EngineTest {
protected:
    const wtg_click_info* click(Document& document) {
        const wtg_click_info* info = nullptr;
        EXPECT_EQ(word.wtg_get_click_info(document.get(), 1, 1, &info), MODULE_OK);
        return info;
    }
    const WordModule& word = wordModule();
};

TEST_F(ClickTest, AHyperlinkCarriesItsAddress) {
    Document document;
    open(document, "click=6:https://example.org/\n");
    const wtg_click_info* const info = click(document);
    ASSERT_NE(info, nullptr);
    ASSERT_EQ(info->type, 6);
    const auto* const address = reinterpret_cast<const std::uint16_t*>(info->a);
    const std::vector<std::uint16_t> expected = wide("https://example.org/");
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), address));
}

TEST_F(ClickTest, AnInternalLinkCarriesStoryAndPosition) {
    Document document;
    open(document, "click=7:4000000000\n");
    const wtg_click_info* const info = click(document);
    ASSERT_EQ(info->type, 7);
    EXPECT_EQ(info->a, 0);
    EXPECT_EQ(static_cast<std::uint32_t>(info->b), 4000000000U);
}

TEST_F(ClickTest, NothingAndWhatIsUnknownAreOfNoInterest) {
    for (const char* contents : {"rows=10\n", "click=9:1\n", "click=1:1\n", "click=5:1\n"}) {
        Document document;
        open(document, contents);
        EXPECT_EQ(click(document)->type, 0) << contents;
    }
}

TEST_F(ClickTest, ASecondaryDocumentIsPaintedIntoTheBorrowedBuffer) {
    for (const std::int32_t type : {2, 3, 4}) {
        Document document;
        std::vector<std::uint32_t> page;
        open(document, "click=" + std::to_string(type) + ":7\n");
        show(document, page, 20, 100);
        const std::vector<std::uint32_t> before = page;
        const wtg_click_info record = *click(document);
        ASSERT_EQ(record.type, type);
        // With another height and with the page's own.
        for (const std::int32_t height : {120, 100}) {
            std::vector<std::uint32_t> popup(static_cast<std::size_t>(20 * height), 0x42);
            ASSERT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, popup.data(), 20, height), MODULE_OK);
            ASSERT_EQ(word.wtg_open_secondary_document(document.get(), record.a, record.b, record.c, 30),
                      MODULE_OK);
            const auto number = static_cast<std::uint32_t>(type * 1000 + 7);
            EXPECT_EQ(popup[20 * 49], 0xFFFFFFFFU);
            EXPECT_EQ(popup[20 * 50], number);
            EXPECT_EQ(popup[20 * 79 + 19], number);
            EXPECT_EQ(popup[20 * 80], 0xFFFFFFFFU);
            ASSERT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, page.data(), 20, 100), MODULE_OK);
            EXPECT_EQ(page, before) << "in a buffer of " << height;
            EXPECT_EQ(popup[20 * 50], number) << "and is left alone";
            EXPECT_EQ(word.wtg_close_secondary_document(document.get()), MODULE_OK);
        }
    }
}

TEST_F(ClickTest, RegionsAndAreasComeAsTheyAre) {
    Document document;
    open(document, "rows=10\n");
    const module_rect* rects = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(word.wtg_get_click_regions(document.get(), 0, &count, &rects), MODULE_OK);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(rects[0].width, 3);
    EXPECT_EQ(rects[1].height, 8);
    module_rect area{};
    ASSERT_EQ(word.wtg_smart_zoom(document.get(), 0, 4, 5, &area), MODULE_OK);
    EXPECT_EQ(area.x, 4);
    EXPECT_EQ(area.height, 20);
}

} // namespace
} // namespace lectern::test
