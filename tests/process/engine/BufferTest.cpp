// SPDX-License-Identifier: Apache-2.0
// The caller's buffer shows the stretch after every call, and only calls write
// to it.

#include "tests/process/engine/EngineTest.h"

#include <signal.h>

#include <algorithm>
#include <fstream>

namespace lectern::test {
namespace {

constexpr std::int32_t WIDTH = 4;
constexpr std::int32_t HEIGHT = 100;
constexpr std::uint32_t WHITE = 0xFFFFFFFF;

class BufferTest : public EngineTest {
protected:
    BufferTest() : word(wordModule()) {}

    static std::uint32_t colorOfRow(std::uint32_t row) { return 0xFF000000 + row; }

    // The buffer must show the rows from `top` on; rows after `end` are white.
    static void expectRows(const std::vector<std::uint32_t>& pixels, std::uint32_t top, std::uint32_t end) {
        for (std::size_t i = 0; i < pixels.size(); i++) {
            const std::uint32_t row = top + static_cast<std::uint32_t>(i) / WIDTH;
            ASSERT_EQ(pixels[i], row < end ? colorOfRow(row) : WHITE) << "pixel " << i;
        }
    }

    // Number of layouts made, which the fake reports as the author.
    static std::u16string layouts(const Document& document) {
        std::vector<std::uint16_t> text(16);
        std::int32_t length = 0;
        EXPECT_EQ(wordModule().wtg_get_document_author(document.get(), text.data(), 32, &length), MODULE_OK);
        return textOf(text);
    }

    // All of the buffer shows text, from row `top` on.
    void expectStretchAt(std::uint32_t top) {
        std::uint32_t position = 0;
        EXPECT_EQ(word.wtg_get_top_left_character(document.get(), 0, &position), MODULE_OK);
        EXPECT_EQ(position, 10 * top);
        EXPECT_EQ(word.wtg_get_bottom_right_character(document.get(), 0, &position), MODULE_OK);
        EXPECT_EQ(position, 10 * (top + HEIGHT));
        std::int32_t rows = 0;
        EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(document.get(), 0, &rows), MODULE_OK);
        EXPECT_EQ(rows, HEIGHT);
    }

    // The memory in use for surfaces, in KiB.
    static long surfaces() {
        std::ifstream lines("/proc/self/smaps");
        std::string line;
        bool surface = false;
        long kib = 0;
        while (std::getline(lines, line)) {
            const std::string word = line.substr(0, line.find(' '));
            if (word.back() != ':') {
                surface = line.find("lectern-surface") != std::string::npos;
            } else if (surface && word == "Rss:") {
                kib += std::stol(line.substr(word.size()));
            }
        }
        return kib;
    }

    const WordModule& word;
    Document document;
    std::vector<std::uint32_t> pixels;
    std::int32_t scrolled = -1;
};

TEST_F(BufferTest, ShowsTheStretchOnceItIsLaidOut) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    expectRows(pixels, 0, 250);
    std::int32_t rows = 0;
    EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(document.get(), 0, &rows), MODULE_OK);
    EXPECT_EQ(rows, HEIGHT);
    std::uint32_t position = 0;
    EXPECT_EQ(word.wtg_get_bottom_right_character(document.get(), 0, &position), MODULE_OK);
    EXPECT_EQ(position, 1000u);
}

TEST_F(BufferTest, FollowsScrolls) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 30, &scrolled), MODULE_OK);
    EXPECT_EQ(scrolled, 30);
    expectRows(pixels, 30, 250);
    EXPECT_EQ(word.wtg_scroll_up(document.get(), 0, 50, &scrolled), MODULE_OK);
    EXPECT_EQ(scrolled, 30);
    expectRows(pixels, 0, 250);
}

TEST_F(BufferTest, ScrollsPastTheEndIntoWhiteAndThenNoFurther) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 200, &scrolled), MODULE_OK);
    EXPECT_EQ(scrolled, 200);
    expectRows(pixels, 200, 250);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 1, &scrolled), MODULE_NOTHING_THERE);
    EXPECT_EQ(scrolled, 0);
    std::int32_t rows = 0;
    EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(document.get(), 0, &rows), MODULE_OK);
    EXPECT_EQ(rows, 50);
}

TEST_F(BufferTest, FollowsJumps) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    EXPECT_EQ(word.wtg_jump_to_character(document.get(), 0, 605), MODULE_OK);
    expectRows(pixels, 60, 250);
    EXPECT_EQ(word.wtg_jump_to_character(document.get(), 0, 2500), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_jump_to_character(document.get(), 1, 0), MODULE_BAD_ARGUMENT);
    expectRows(pixels, 60, 250);
}

// What the view asks after a step is answered though the engine stands still.
TEST_F(BufferTest, AStepOfTheStretchIsOneCall) {
    open(document, "rows=1000\n");
    show(document, pixels, WIDTH, HEIGHT);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 30, &scrolled), MODULE_OK);
    const pid_t engine = engineOfDocument().pid;
    ASSERT_GT(engine, 0);
    kill(engine, SIGSTOP);
    expectStretchAt(30);
    kill(engine, SIGCONT);
    ASSERT_EQ(word.wtg_scroll_up(document.get(), 0, 10, &scrolled), MODULE_OK);
    kill(engine, SIGSTOP);
    expectStretchAt(20);
    kill(engine, SIGCONT);
}

TEST_F(BufferTest, TheStretchIsAskedForItsPlaceAfterEveryChange) {
    open(document, "rows=1000\n");
    show(document, pixels, WIDTH, HEIGHT);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 30, &scrolled), MODULE_OK);
    ASSERT_EQ(word.wtg_jump_to_character(document.get(), 0, 500), MODULE_OK);
    expectStretchAt(50);
    ASSERT_EQ(word.wtg_scroll_to_character_range(document.get(), 0, 700, 710), MODULE_OK);
    expectStretchAt(70);
    ASSERT_EQ(word.wtg_set_dpi(document.get(), 144), MODULE_OK);
    expectStretchAt(140);
    std::vector<std::uint32_t> wide(static_cast<std::size_t>(8) * 60);
    ASSERT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, wide.data(), 8, 60), MODULE_OK);
    std::int32_t rows = 0;
    EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(document.get(), 0, &rows), MODULE_OK);
    EXPECT_EQ(rows, 60);
}

TEST_F(BufferTest, ANewBufferOfTheSameSizeShowsTheStretchAtOnce) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 30, &scrolled), MODULE_OK);
    std::vector<std::uint32_t> other(pixels.size(), 7);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, other.data(), WIDTH, HEIGHT), MODULE_OK);
    expectRows(other, 30, 250);

    // Only the last buffer set is written to.
    std::fill(pixels.begin(), pixels.end(), 7u);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 10, &scrolled), MODULE_OK);
    expectRows(other, 40, 250);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 7u), static_cast<std::ptrdiff_t>(pixels.size()));
}

TEST_F(BufferTest, AReleasedSurfaceIsThereAgainAtTheNextCall) {
    constexpr std::int32_t TALL = 2048; // rows of 16 bytes: whole pages
    open(document, "rows=5000\n");
    show(document, pixels, WIDTH, TALL);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 30, &scrolled), MODULE_OK);
    expectRows(pixels, 30, 5000);
    EXPECT_GT(surfaces(), 0);
    EXPECT_EQ(word.wtg_release_memory(document.get()), MODULE_OK);
    EXPECT_EQ(surfaces(), 0);
    EXPECT_EQ(word.wtg_release_memory(document.get()), MODULE_OK);
    expectRows(pixels, 30, 5000);
    // Copies the surface, without painting.
    std::vector<std::uint32_t> other(pixels.size(), 7);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, other.data(), WIDTH, TALL), MODULE_OK);
    expectRows(other, 30, 5000);
    EXPECT_EQ(word.wtg_release_memory(document.get()), MODULE_OK);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 10, &scrolled), MODULE_OK);
    expectRows(other, 40, 5000);
}

TEST_F(BufferTest, PointingElsewhereAndBackLaysNothingOut) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    ASSERT_EQ(word.wtg_scroll_down(document.get(), 0, 30, &scrolled), MODULE_OK);
    EXPECT_EQ(layouts(document), u"1");

    std::vector<std::uint32_t> elsewhere(static_cast<std::size_t>(3) * 10, 7);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, elsewhere.data(), 3, 10), MODULE_OK);
    EXPECT_EQ(std::count(elsewhere.begin(), elsewhere.end(), 7u), 30);
    std::fill(pixels.begin(), pixels.end(), 0u);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, pixels.data(), WIDTH, HEIGHT), MODULE_OK);
    expectRows(pixels, 30, 250);
    std::uint32_t position = 0;
    EXPECT_EQ(word.wtg_get_top_left_character(document.get(), 0, &position), MODULE_OK);
    EXPECT_EQ(position, 300u);
    EXPECT_EQ(layouts(document), u"1");
}

TEST_F(BufferTest, ANewSizeAndDpiTogetherLayOutOnce) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    std::vector<std::uint32_t> wide(static_cast<std::size_t>(8) * 60, 7);
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, wide.data(), 8, 60), MODULE_OK);
    EXPECT_EQ(word.wtg_set_dpi(document.get(), 144), MODULE_OK);
    EXPECT_EQ(layouts(document), u"1");
    EXPECT_EQ(wide[0], 7u) << "stale, not painted yet";

    std::int32_t width = 0;
    std::int32_t height = 0;
    EXPECT_EQ(word.wtg_page_layout_size(document.get(), 0, &width, &height), MODULE_OK);
    EXPECT_EQ(width, 8);
    EXPECT_EQ(height, 500);
    EXPECT_EQ(layouts(document), u"2");
    EXPECT_EQ(wide[8], colorOfRow(1));
}

TEST_F(BufferTest, ARefusedBufferLeavesNoneToWriteTo) {
    open(document, "rows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    std::uint32_t other[1] = {7};
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, other, 1 << 20, 1 << 20), MODULE_TOO_LARGE);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 30, &scrolled), MODULE_OK);
    expectRows(pixels, 0, 250);
    EXPECT_EQ(other[0], 7u);
    // The caller may set the previous buffer again.
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, pixels.data(), WIDTH, HEIGHT), MODULE_OK);
    expectRows(pixels, 30, 250);
}

TEST_F(BufferTest, ABufferFreedBeforeTheNextOneIsRefusedIsNotWrittenTo) {
    open(document, "rows=250\nsurface=second:15\n");
    for (std::int32_t height = HEIGHT; height < HEIGHT + 6; height++) {
        pixels = std::vector<std::uint32_t>(static_cast<std::size_t>(WIDTH) * height, 7);
        const bool refused = (height - HEIGHT) % 2 != 0;
        EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, pixels.data(), WIDTH, height),
                  refused ? MODULE_TOO_LARGE : MODULE_OK);
        EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 1, &scrolled), MODULE_OK);
        EXPECT_EQ(pixels[0] == 7, refused);
    }
}

TEST_F(BufferTest, ASurfaceThatTheSuiteRefusesIsReported) {
    open(document, "surface=code:15\n");
    std::uint32_t other[4] = {7, 7, 7, 7};
    EXPECT_EQ(word.wtg_set_offscreen_buffer(document.get(), 0, other, 2, 2), MODULE_TOO_LARGE);
    EXPECT_EQ(other[0], 7u);
}

TEST_F(BufferTest, LayoutQuestionsWithoutABufferFail) {
    open(document, "rows=250\n");
    std::uint32_t position = 0;
    EXPECT_EQ(word.wtg_get_top_left_character(document.get(), 0, &position), MODULE_FAILED);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 1, &scrolled), MODULE_FAILED);
    EXPECT_EQ(scrolled, 0);
}

TEST_F(BufferTest, NumbersThatCannotBeAreNotPassedOn) {
    open(document, "lie=\nrows=250\n");
    show(document, pixels, WIDTH, HEIGHT);
    std::int32_t rows = 42;
    EXPECT_EQ(word.wtg_get_vertical_last_used_pixel(document.get(), 0, &rows), MODULE_FAILED);
    EXPECT_EQ(rows, 42);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 10, &scrolled), MODULE_FAILED);
    EXPECT_EQ(scrolled, 0);
    EXPECT_EQ(word.wtg_scroll_up(document.get(), 0, 10, &scrolled), MODULE_FAILED);
    EXPECT_EQ(scrolled, 0);
}

TEST_F(BufferTest, ALostEngineLeavesTheLastPicture) {
    open(document, "rows=250\nscroll=crash\n");
    show(document, pixels, WIDTH, HEIGHT);
    EXPECT_EQ(word.wtg_scroll_down(document.get(), 0, 10, &scrolled), MODULE_ENGINE_LOST);
    expectRows(pixels, 0, 250);
}

} // namespace
} // namespace lectern::test
