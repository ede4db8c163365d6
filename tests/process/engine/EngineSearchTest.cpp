// SPDX-License-Identifier: Apache-2.0
// The arrays returned by a search, and how long they are valid.

#include "tests/process/engine/EngineTest.h"

#include <signal.h>

namespace lectern::test {
namespace {

class SearchTest : public EngineTest {
protected:
    std::int32_t find(Document& document, const std::vector<std::uint16_t>& text, std::uint32_t from = 0,
                      std::uint32_t to = 1000) {
        return word.wtg_find(document.get(), text.data(), 0, &from, &to, &results, &count);
    }
    std::int32_t regionsOf(Document& document) {
        return word.wtg_get_found_regions(document.get(), 0, &regionCount, &regions);
    }

    const WordModule& word = wordModule();
    const wtg_find_result* results = nullptr;
    std::int32_t count = -1;
    const wtg_find_region* regions = nullptr;
    std::int32_t regionCount = -1;
};

TEST_F(SearchTest, HitsAreGivenByPositionWithTheirRegions) {
    Document document;
    open(document, "text=a rope and a rope\n");
    ASSERT_EQ(find(document, wide("rope")), MODULE_OK);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(results[0].start, 2U);
    EXPECT_EQ(results[0].end, 6U);
    EXPECT_EQ(results[1].start, 13U);
    ASSERT_EQ(regionsOf(document), MODULE_OK);
    ASSERT_EQ(regionCount, 2);
    EXPECT_EQ(regions[1].position, 13U);
    ASSERT_EQ(regions[1].rectangle_count, 1U);
    EXPECT_EQ(regions[1].rectangles[0].x, 13);
    EXPECT_EQ(regions[1].rectangles[0].width, 4);
}

// The regions after a move are returned though the engine stands still.
TEST_F(SearchTest, AStepToAHitIsOneCall) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "text=a rope and a rope\n");
    show(document, pixels, 8, 100);
    ASSERT_EQ(find(document, wide("rope")), MODULE_OK);
    ASSERT_EQ(word.wtg_jump_to_character(document.get(), 0, 13), MODULE_OK);
    const pid_t engine = engineOfDocument().pid;
    ASSERT_GT(engine, 0);
    kill(engine, SIGSTOP);
    std::int32_t rows = 0;
    EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(document.get(), 0, &rows), MODULE_OK);
    EXPECT_EQ(regionsOf(document), MODULE_OK);
    EXPECT_EQ(regionCount, 2);
    kill(engine, SIGCONT);
}

TEST_F(SearchTest, RegionsOfAnEarlierSearchAreNotReturned) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "text=a rope and a rope\n");
    show(document, pixels, 8, 100);
    ASSERT_EQ(find(document, wide("rope")), MODULE_OK);
    ASSERT_EQ(word.wtg_jump_to_character(document.get(), 0, 13), MODULE_OK);
    ASSERT_EQ(find(document, wide("and")), MODULE_OK);
    ASSERT_EQ(regionsOf(document), MODULE_OK);
    EXPECT_EQ(regionCount, 1);
    ASSERT_EQ(word.wtg_jump_to_character(document.get(), 0, 13), MODULE_OK);
    ASSERT_EQ(word.wtg_stop_find(document.get()), MODULE_OK);
    ASSERT_EQ(regionsOf(document), MODULE_OK);
    EXPECT_EQ(regionCount, 0);
}

TEST_F(SearchTest, TheRangeLimitsTheHits) {
    Document document;
    open(document, "text=a rope and a rope\n");
    ASSERT_EQ(find(document, wide("rope"), 3, 17), MODULE_OK);
    ASSERT_EQ(count, 1);
    EXPECT_EQ(results[0].start, 13U);
    ASSERT_EQ(find(document, wide("rope"), 0, 16), MODULE_OK);
    EXPECT_EQ(count, 1);
}

TEST_F(SearchTest, NothingFoundIsNoFailure) {
    Document document;
    open(document, "text=a rope\n");
    for (const std::vector<std::uint16_t>& text :
         {wide("boat"), wide(""), std::vector<std::uint16_t>{0xD800, 0},
          std::vector<std::uint16_t>(100'000, 'a')}) {
        std::vector<std::uint16_t> terminated = text;
        terminated.push_back(0);
        count = -1;
        EXPECT_EQ(find(document, terminated), MODULE_OK);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(results, nullptr);
        EXPECT_EQ(regionsOf(document), MODULE_OK);
        EXPECT_EQ(regionCount, 0);
        EXPECT_EQ(regions, nullptr);
    }
}

TEST_F(SearchTest, TheColourReachesTheCallersPixels) {
    Document document;
    std::vector<std::uint32_t> pixels;
    open(document, "text=a rope\n");
    show(document, pixels, 20, 10);
    const std::uint8_t colour[3] = {128, 192, 255};
    ASSERT_EQ(word.wtg_set_highlight_color(document.get(), colour), MODULE_OK);
    ASSERT_EQ(find(document, wide("rope")), MODULE_OK);
    EXPECT_EQ(pixels[0], 0xFF80C0FFU);
}

TEST_F(SearchTest, ArraysOutliveTheEngine) {
    Document document;
    open(document, "text=a rope\nscroll=crash\n");
    ASSERT_EQ(find(document, wide("rope")), MODULE_OK);
    ASSERT_EQ(regionsOf(document), MODULE_OK);
    const wtg_find_result* const kept = results;
    const wtg_find_region* const keptRegions = regions;
    std::int32_t scrolled = 0;
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 1, &scrolled), MODULE_ENGINE_LOST);
    EXPECT_EQ(kept[0].start, 2U);
    EXPECT_EQ(keptRegions[0].rectangles[0].x, 2);
    EXPECT_EQ(find(document, wide("rope")), MODULE_ENGINE_LOST);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(results, nullptr);
    EXPECT_EQ(regionsOf(document), MODULE_ENGINE_LOST);
    EXPECT_EQ(regionCount, 0);
    EXPECT_EQ(regions, nullptr);
}

TEST_F(SearchTest, AfterItsEndNothingIsFound) {
    Document document;
    open(document, "text=a rope\n");
    ASSERT_EQ(find(document, wide("rope")), MODULE_OK);
    ASSERT_EQ(word.wtg_stop_find(document.get()), MODULE_OK);
    ASSERT_EQ(regionsOf(document), MODULE_OK);
    EXPECT_EQ(regionCount, 0);
    EXPECT_EQ(word.wtg_stop_find(document.get()), MODULE_OK) << "once more does no harm";
}

TEST_F(SearchTest, ASearchThatHangsCostsTheDocumentInTime) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "300");
    Document document;
    open(document, "text=a rope\nfind=hang\n");
    EXPECT_EQ(find(document, wide("rope")), MODULE_TIMED_OUT);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(find(document, wide("rope")), MODULE_TIMED_OUT);
    EXPECT_EQ(regionsOf(document), MODULE_ENGINE_LOST);
}

} // namespace
} // namespace lectern::test
