// SPDX-License-Identifier: Apache-2.0
// A document that comes back in another engine is as it was in the lost one.

#include "modules/TouchSlideFunctions.h"
#include "tests/process/engine/EngineTest.h"
#include "tests/process/engine/SheetHost.h"
#include "tests/process/engine/SlideHost.h"

#include <signal.h>

namespace lectern::test {
namespace {

class RestoredDocumentTest : public EngineTest {
protected:
    // Ends the only engine of the test.
    std::uint32_t topCharacter(const Document& document) {
        std::uint32_t position = 0;
        EXPECT_EQ(word.wtg_get_top_left_character(document.get(), 0, &position), MODULE_OK);
        return position;
    }

    const WordModule& word = wordModule();
    const STGFunc& stg = sheetModule();
    const SSTGFunc& sstg = slideModule();
    const std::uint8_t colour[3] = {1, 2, 3};
    std::int32_t number = 0;
};

TEST_F(RestoredDocumentTest, ATextShowsTheSameRows) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "rows=1000\n");
    show(document, pixels, 4, 100);
    ASSERT_EQ(word.wtg_set_dpi(document.get(), 144), MODULE_OK);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 123, &number), MODULE_OK);
    const std::vector<std::uint32_t> before = pixels;
    killEngine();
    EXPECT_EQ(topCharacter(document), 1230U);
    EXPECT_EQ(pixels, before);
    ASSERT_EQ(word.wtg_scroll_up(document.get(), 0, 3, &number), MODULE_OK);
    EXPECT_EQ(pixels[0], 0xFF000000U + 120);
}

TEST_F(RestoredDocumentTest, ATextThatIsZoomedMeanwhileKeepsItsPlace) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "rows=1000\n");
    show(document, pixels, 4, 100);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 50, &number), MODULE_OK);
    // The first call that needs the new layout finds the engine lost.
    ASSERT_EQ(word.wtg_set_dpi(document.get(), 144), MODULE_OK);
    std::vector<std::uint32_t> wider(std::size_t{8} * 60);
    ASSERT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, wider.data(), 8, 60), MODULE_OK);
    killEngine();
    EXPECT_EQ(topCharacter(document), 1000U) << "twice as far down";
    EXPECT_EQ(wider[0], 0xFF000000U + 100);
}

TEST_F(RestoredDocumentTest, ATextIsZoomedByTheCallThatFindsTheEngineLost) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "rows=1000\n");
    show(document, pixels, 4, 100);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 50, &number), MODULE_OK);
    killEngine();
    ASSERT_EQ(word.wtg_set_dpi(document.get(), 144), MODULE_OK);
    EXPECT_EQ(topCharacter(document), 1000U);
}

TEST_F(RestoredDocumentTest, ATextKeepsItsHitsAndItsSelection) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "text=a rope and a rope\n");
    show(document, pixels, 20, 10);
    ASSERT_EQ(word.wtg_set_highlight_color(document.get(), colour), MODULE_OK);
    std::uint32_t from = 0;
    std::uint32_t to = 100;
    const wtg_find_result* results = nullptr;
    const wtg_find_region* regions = nullptr;
    ASSERT_EQ(word.wtg_find(document.get(), wide("rope").data(), 0, &from, &to, &results, &number),
              MODULE_OK);
    ASSERT_EQ(word.wtg_select_line(document.get(), 0, 2, 0), MODULE_OK);
    killEngine();
    EXPECT_EQ(word.wtg_get_found_regions(document.get(), 0, &number, &regions), MODULE_OK);
    EXPECT_EQ(number, 2);
    EXPECT_EQ(results[1].start, 13U) << "what was returned stays";
    killEngine();
    std::vector<std::uint16_t> text(20);
    EXPECT_EQ(word.wtg_copy_selection(document.get(), text.data(), 20, 0, &number), MODULE_OK);
    EXPECT_EQ(textOf(text), u"rope and");
    ASSERT_EQ(word.wtg_stop_find(document.get()), MODULE_OK);
    ASSERT_EQ(word.wtg_clear_selection(document.get()), MODULE_OK);
    killEngine();
    EXPECT_EQ(word.wtg_get_found_regions(document.get(), 0, &number, &regions), MODULE_OK);
    EXPECT_EQ(number, 0);
}

TEST_F(RestoredDocumentTest, ANoteIsPaintedByTheCallThatFindsTheEngineLost) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "rows=1000\n");
    show(document, pixels, 4, 100);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 50, &number), MODULE_OK);
    std::vector<std::uint32_t> note(std::size_t{3} * 90);
    ASSERT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, note.data(), 3, 90), MODULE_OK);
    killEngine();
    ASSERT_EQ(word.wtg_open_secondary_document(document.get(), 2, 7, 0, 30), MODULE_OK);
    EXPECT_EQ(note[std::size_t{3} * 50], 2007U);
    killEngine();
    ASSERT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, pixels.data(), 4, 100), MODULE_OK);
    EXPECT_EQ(topCharacter(document), 500U);
    EXPECT_EQ(pixels[0], 0xFF000000U + 50);
}

TEST_F(RestoredDocumentTest, AWorkbookKeepsItsBuffersChangesAndSelection) {
    WorkbookHandle workbook;
    std::vector<std::uint32_t> cells(std::size_t{6} * 4);
    std::vector<std::uint32_t> strip(8);
    ASSERT_EQ(workbook.open(write("book.xlsx", "widened=yes\n"), temporary()), MODULE_OK);
    ASSERT_EQ(stg.stg_set_dpi(workbook.get(), 144), MODULE_OK);
    ASSERT_EQ(stg.stg_set_offscreen_buffer(workbook.get(), 0, cells.data(), 6, 4), MODULE_OK);
    ASSERT_EQ(stg.stg_set_row_offscreen_buffer(workbook.get(), 0, strip.data(), 2, 4), MODULE_OK);
    ASSERT_EQ(stg.stg_render_sheet(workbook.get(), 1, 0, 5), MODULE_OK);
    ASSERT_EQ(stg.stg_hide_rows(workbook.get(), 0, 0, 0), MODULE_OK);
    ASSERT_EQ(stg.stg_sort_ascending(workbook.get(), 0, 1), MODULE_OK);
    ASSERT_EQ(stg.stg_find(workbook.get(), wide("abc").data(), 0, 0, 0, 0), MODULE_OK);
    ASSERT_EQ(stg.stg_select_cell(workbook.get(), 0, 1, 1), MODULE_OK);
    const std::vector<std::uint32_t> before = cells;
    const std::vector<std::uint32_t> stripBefore = strip;
    std::fill(cells.begin(), cells.end(), 0U);
    killEngine();
    EXPECT_EQ(stg.stg_render_sheet(workbook.get(), 1, 0, 5), MODULE_OK);
    EXPECT_EQ(cells, before);
    EXPECT_EQ(strip, stripBefore);
    std::int32_t width = 0;
    EXPECT_EQ(stg.stg_get_sheet_dimensions(workbook.get(), 0, &width, &number), MODULE_OK);
    EXPECT_EQ(width, 502) << "two changes";
    const stg_region* regions = nullptr;
    EXPECT_EQ(stg.stg_get_found_regions(workbook.get(), &number, &regions), MODULE_OK);
    EXPECT_EQ(number, 3);
    EXPECT_EQ(stg.stg_copy_selection(workbook.get(), nullptr, 0, 0, &number), MODULE_OK);
    EXPECT_EQ(lossOf("SheetToGoModule.so", workbook.get()), MODULE_OK);
}

TEST_F(RestoredDocumentTest, ASortedSheetHasNoHitsAfterwardsEither) {
    WorkbookHandle workbook;
    ASSERT_EQ(workbook.open(write("book.xlsx", "name=x\n"), temporary()), MODULE_OK);
    ASSERT_EQ(stg.stg_find(workbook.get(), wide("abc").data(), 0, 0, 0, 0), MODULE_OK);
    ASSERT_EQ(stg.stg_sort_ascending(workbook.get(), 0, 1), MODULE_OK);
    killEngine();
    const stg_region* regions = nullptr;
    EXPECT_EQ(stg.stg_get_found_regions(workbook.get(), &number, &regions), MODULE_OK);
    EXPECT_EQ(number, 0);
}

TEST_F(RestoredDocumentTest, APresentationKeepsItsPictureAndItsHits) {
    Slideshow slideshow;
    std::vector<std::uint32_t> pixels(100);
    ASSERT_EQ(slideshow.open(write("deck.pptx", "name=Deck\n"), temporary()), MODULE_OK);
    ASSERT_EQ(sstg.sstg_set_highlight_color(slideshow.get(), colour), MODULE_OK);
    const sstg_find_info* infos = nullptr;
    ASSERT_EQ(slideFunction<decltype(sstg_set_find_options)>("sstg_set_find_options")(slideshow.get(), 1),
              MODULE_OK);
    ASSERT_EQ(sstg.sstg_find(slideshow.get(), wide("tide").data(), 0, 2, &infos, &number), MODULE_OK);
    ASSERT_EQ(sstg.sstg_render_slide(slideshow.get(), 1, 0, pixels.data(), 10, 10), MODULE_OK);
    const sstg_find_region* regions = nullptr;
    ASSERT_EQ(sstg.sstg_get_found_regions(slideshow.get(), &number, &regions), MODULE_OK);
    const std::int32_t hits = number;
    const std::vector<std::uint32_t> before = pixels;
    killEngine();
    EXPECT_EQ(sstg.sstg_get_found_regions(slideshow.get(), &number, &regions), MODULE_OK);
    EXPECT_EQ(number, hits);
    EXPECT_EQ(sstg.sstg_render_slide(slideshow.get(), 1, 0, pixels.data(), 10, 10), MODULE_OK);
    EXPECT_EQ(pixels, before);
    EXPECT_EQ(sstg.sstg_find(slideshow.get(), wide("tide").data(), 0, 2, &infos, &number), MODULE_OK);
    EXPECT_EQ(infos[1].note_hits, 0) << "as its find options say";
    EXPECT_EQ(lossOf("SlideshowToGoModule.so", slideshow.get()), MODULE_OK);
}

} // namespace
} // namespace lectern::test
