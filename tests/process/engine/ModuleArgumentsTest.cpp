// SPDX-License-Identifier: Apache-2.0
// The module's checks of arguments: nulls, impossible sizes and indices.

#include "tests/process/engine/EngineTest.h"

#include <tuple>

namespace lectern::test {
namespace {

constexpr std::int32_t UNTOUCHED = 0x5A5A5A5A;
constexpr std::uint32_t UNTOUCHED_U = 0x5A5A5A5A;

class ArgumentsTest : public EngineTest {
protected:
    ArgumentsTest() : word(wordModule()) {}

    // Calls every function with a null document, then with `document`: all must
    // return the same code and write nothing.
    void expectAllRefuse(void* doc, std::int32_t code);

    const WordModule& word;
    std::vector<std::uint16_t> text = std::vector<std::uint16_t>(16, 0x5A5A);
    std::uint32_t pixels[4] = {UNTOUCHED_U, UNTOUCHED_U, UNTOUCHED_U, UNTOUCHED_U};
    std::int32_t number = UNTOUCHED;
    std::int32_t number2 = UNTOUCHED;
    std::uint32_t position = UNTOUCHED_U;
    std::uint32_t position2 = UNTOUCHED_U;
    time_t time = UNTOUCHED;
};

void ArgumentsTest::expectAllRefuse(void* doc, std::int32_t code) {
    EXPECT_EQ(word.wtg_get_bottom_right_character(doc, 0, &position), code);
    EXPECT_EQ(word.wtg_get_character_count(doc, 0, &position, &position2), code);
    EXPECT_EQ(word.wtg_get_document_author(doc, text.data(), 32, &number), code);
    EXPECT_EQ(word.wtg_get_document_creation_date(doc, &time), code);
    EXPECT_EQ(word.wtg_get_document_description(doc, text.data(), 32, &number), code);
    EXPECT_EQ(word.wtg_get_document_last_saved_date(doc, &time), code);
    EXPECT_EQ(word.wtg_get_document_name(doc, text.data(), 32, &number), code);
    EXPECT_EQ(word.wtg_get_top_left_character(doc, 0, &position), code);
    EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(doc, 0, &number), code);
    EXPECT_EQ(word.wtg_jump_to_character(doc, 0, 0), code);
    EXPECT_EQ(word.wtg_page_layout_size(doc, 0, &number, &number2), code);
    EXPECT_EQ(word.wtg_release_memory(doc), code);
    EXPECT_EQ(word.wtg_set_dpi(doc, 72), code);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(doc, 0, pixels, 2, 2), code);
    EXPECT_EQ(word.wtg_word_count(doc, &number), code);
    const wtg_click_info* info = nullptr;
    module_rect area{0, 0, UNTOUCHED, 0};
    EXPECT_EQ(word.wtg_clear_selection(doc), code);
    EXPECT_EQ(word.wtg_close_secondary_document(doc), code);
    EXPECT_EQ(word.wtg_copy_selection(doc, text.data(), 16, 0, &number), code);
    EXPECT_EQ(word.wtg_get_click_info(doc, 0, 0, &info), code);
    EXPECT_EQ(word.wtg_open_secondary_document(doc, 2, 0, 0, 10), code);
    EXPECT_EQ(word.wtg_scroll_to_character_range(doc, 0, 0, 1), code);
    EXPECT_EQ(word.wtg_select_all(doc), code);
    EXPECT_EQ(word.wtg_select_area(doc, 0, 0, 0, 1, 1), code);
    EXPECT_EQ(word.wtg_select_line(doc, 0, 0, 0), code);
    EXPECT_EQ(word.wtg_select_word(doc, 0, 0, 0), code);
    EXPECT_EQ(word.wtg_smart_zoom(doc, 0, 0, 0, &area), code);
    EXPECT_EQ(word.wtg_stop_find(doc), code);
    EXPECT_EQ(info, nullptr);
    EXPECT_EQ(area.width, UNTOUCHED);

    EXPECT_EQ(number, UNTOUCHED);
    EXPECT_EQ(number2, UNTOUCHED);
    EXPECT_EQ(position, UNTOUCHED_U);
    EXPECT_EQ(position2, UNTOUCHED_U);
    EXPECT_EQ(time, UNTOUCHED);
    EXPECT_EQ(text, std::vector<std::uint16_t>(16, 0x5A5A));
    EXPECT_EQ(pixels[0], UNTOUCHED_U);
}

TEST_F(ArgumentsTest, EveryFunctionSurvivesANullDocument) {
    expectAllRefuse(nullptr, MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_scroll_down(nullptr, 0, 1, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_scroll_up(nullptr, 0, 1, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(number, UNTOUCHED);

    void* none = nullptr;
    EXPECT_EQ(word.wtg_close_file(&none), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_close_file(nullptr), MODULE_BAD_ARGUMENT);
}

TEST_F(ArgumentsTest, SearchesClicksAndSelectionsSurviveANullDocument) {
    const wtg_find_result* results = nullptr;
    const wtg_find_region* regions = nullptr;
    const wtg_click_info* info = nullptr;
    const module_rect* rects = nullptr;
    module_rect area{};
    const std::uint8_t rgb[3] = {1, 2, 3};
    EXPECT_EQ(word.wtg_find(nullptr, text.data(), 0, &position, &position2, &results, &number),
              MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_found_regions(nullptr, 0, &number, &regions), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_stop_find(nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_set_highlight_color(nullptr, rgb), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_click_info(nullptr, 0, 0, &info), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_open_secondary_document(nullptr, 0, 0, 0, 10), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_close_secondary_document(nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_clear_selection(nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_copy_selection(nullptr, text.data(), 16, 0, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_click_regions(nullptr, 0, &number, &rects), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_scroll_to_character_range(nullptr, 0, 0, 1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_select_all(nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_select_area(nullptr, 0, 0, 0, 1, 1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_select_line(nullptr, 0, 0, 0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_select_word(nullptr, 0, 0, 0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_smart_zoom(nullptr, 0, 0, 0, &area), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(number, UNTOUCHED);
}

TEST_F(ArgumentsTest, SearchesAndClicksOfARefusedCallGiveEmptyArrays) {
    Document document;
    open(document, "find=code:1\nclick=2:0\n");
    void* doc = document.get();
    wtg_find_result result{};
    const wtg_find_result* results = &result;
    EXPECT_EQ(word.wtg_find(doc, wide("a").data(), 0, &position, &position2, &results, &number),
              MODULE_FAILED);
    EXPECT_EQ(results, nullptr);
    EXPECT_EQ(number, 0);
    number = UNTOUCHED;
    const wtg_find_region* regions = nullptr;
    const module_rect* rects = nullptr;
    const wtg_click_info* info = nullptr;
    module_rect area{};
    EXPECT_EQ(word.wtg_find(doc, nullptr, 0, &position, &position2, &results, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_found_regions(doc, 1, &number, &regions), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_click_regions(doc, 1, &number, &rects), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_set_highlight_color(doc, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_click_info(doc, 0, 0, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_smart_zoom(doc, 1, 0, 0, &area), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_select_area(doc, 1, 0, 0, 1, 1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_select_line(doc, 1, 0, 0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_select_word(doc, -1, 0, 0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_copy_selection(doc, text.data(), 16, -1, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_copy_selection(doc, nullptr, 16, 0, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_scroll_to_character_range(doc, 0, 5, 4), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(number, UNTOUCHED);
    EXPECT_EQ(info, nullptr);
}

TEST_F(ArgumentsTest, SecondaryDocumentsThatNoClickToldOfAreRefused) {
    Document document;
    open(document, "rows=10\n");
    for (const auto& [type, index, height] :
         {std::tuple<std::intptr_t, std::intptr_t, std::int32_t>{1, 0, 10},
          {5, 0, 10},
          {6, 0, 10},
          {2, -1, 10},
          {2, std::intptr_t{1} << 31, 10},
          {2, 0, 0}}) {
        EXPECT_EQ(word.wtg_open_secondary_document(document.get(), type, index, 0, height),
                  MODULE_BAD_ARGUMENT);
    }
}

TEST_F(ArgumentsTest, OnlyViewZeroExists) {
    Document document;
    open(document, "rows=10\n");
    void* doc = document.get();
    for (const std::int32_t view : {-1, 1}) {
        EXPECT_EQ(word.wtg_get_character_count(doc, view, &position, &position2), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(word.wtg_get_top_left_character(doc, view, &position), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(word.wtg_get_bottom_right_character(doc, view, &position), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(doc, view, &number), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(word.wtg_set_offscreen_buffer(doc, view, pixels, 2, 2), MODULE_BAD_ARGUMENT);
        EXPECT_EQ(word.wtg_page_layout_size(doc, view, &number, &number2), MODULE_BAD_ARGUMENT);
    }
    EXPECT_EQ(number, UNTOUCHED);
    EXPECT_EQ(position, UNTOUCHED_U);
}

TEST_F(ArgumentsTest, NullOutParametersAreRefused) {
    Document document;
    open(document, "rows=10\n");
    void* doc = document.get();
    EXPECT_EQ(word.wtg_get_character_count(doc, 0, nullptr, &position), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_character_count(doc, 0, &position, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_top_left_character(doc, 0, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_bottom_right_character(doc, 0, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(doc, 0, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_scroll_down(doc, 0, 1, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_scroll_up(doc, 0, 1, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_page_layout_size(doc, 0, nullptr, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_page_layout_size(doc, 0, &number, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_document_creation_date(doc, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_word_count(doc, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_document_name(doc, text.data(), 32, nullptr), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(position, UNTOUCHED_U);
    EXPECT_EQ(number, UNTOUCHED);
}

TEST_F(ArgumentsTest, NullPixelsAndImpossibleSizesAreRefused) {
    Document document;
    open(document, "rows=10\n");
    void* doc = document.get();
    EXPECT_EQ(word.wtg_set_offscreen_buffer(doc, 0, nullptr, 2, 2), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(doc, 0, pixels, 0, 2), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(doc, 0, pixels, 2, -2), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(doc, 0, pixels, INT32_MAX, INT32_MAX), MODULE_TOO_LARGE);
    EXPECT_EQ(word.wtg_set_dpi(doc, 0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_set_dpi(doc, -72), MODULE_BAD_ARGUMENT);
}

TEST_F(ArgumentsTest, ARefusedScrollGivesTheAmountZero) {
    Document document;
    open(document, "rows=10\n");
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 1, 1, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(number, 0);
    number = UNTOUCHED;
    EXPECT_EQ(word.wtg_scroll_up(document.get(), 0, -1, &number), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(number, 0);
}

TEST_F(ArgumentsTest, AnOpenWithoutItsTextsOrItsPlaceIsRefused) {
    const std::vector<std::uint16_t> path = wide(write("a.docx", "rows=10\n"));
    const std::vector<std::uint16_t> folder = wide(temporary());
    const std::vector<std::uint16_t> empty = wide("");
    const std::vector<std::uint16_t> broken = {0xD800, 'a', 0};
    void* doc = this;
    EXPECT_EQ(word.wtg_open_file(nullptr, empty.data(), empty.data(), folder.data(), &doc),
              MODULE_BAD_ARGUMENT);
    EXPECT_EQ(doc, nullptr);
    EXPECT_EQ(word.wtg_open_file(broken.data(), empty.data(), empty.data(), folder.data(), &doc),
              MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_open_file(path.data(), empty.data(), empty.data(), nullptr, &doc),
              MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_open_file(path.data(), empty.data(), empty.data(), empty.data(), &doc),
              MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_open_file(path.data(), empty.data(), empty.data(), folder.data(), nullptr),
              MODULE_BAD_ARGUMENT);
    // Opening without a password and without a font folder is allowed.
    EXPECT_EQ(word.wtg_open_file(path.data(), nullptr, nullptr, folder.data(), &doc), MODULE_OK);
    EXPECT_EQ(word.wtg_close_file(&doc), MODULE_OK);
    EXPECT_EQ(doc, nullptr);
    EXPECT_EQ(word.wtg_close_file(&doc), MODULE_BAD_ARGUMENT);
}

TEST_F(ArgumentsTest, ALostDocumentAnswersEveryCallAndTouchesNothing) {
    Document document;
    open(document, "scroll=crash\n");
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 1, &number), MODULE_ENGINE_LOST);
    EXPECT_EQ(number, 0);
    number = UNTOUCHED;
    expectAllRefuse(document.get(), MODULE_ENGINE_LOST);
}

} // namespace
} // namespace lectern::test
