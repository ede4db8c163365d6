// SPDX-License-Identifier: Apache-2.0
// The presentation module's functions.

#include "tests/process/engine/EngineTest.h"
#include "tests/process/engine/SlideHost.h"

#include <algorithm>

namespace lectern::test {
namespace {

class SlideTest : public EngineTest {
protected:
    void show(Slideshow& slideshow, const std::string& contents) {
        static int decks = 0;
        const std::string path = write("deck" + std::to_string(decks++) + ".pptx", contents);
        ASSERT_EQ(slideshow.open(path, temporary()), MODULE_OK);
    }
    const SSTGFunc& slides = slideModule();
    const std::vector<std::uint16_t> wanted = wide("tide");
    const sstg_find_info* infos = nullptr;
    const sstg_find_region* regions = nullptr;
    std::int32_t count = -1;
    std::int32_t length = -1;
};

TEST_F(SlideTest, EveryFunctionSurvivesNoDocument) {
    std::int32_t number = 7;
    std::uint32_t pixel = 7;
    std::uint8_t flag = 7;
    std::uint16_t text[4] = {7, 7, 7, 7};
    time_t time = 7;
    sstg_outline_item* items = nullptr;
    const std::int32_t* offsets = nullptr;
    const std::uint8_t colour[3] = {1, 2, 3};
    void* none = nullptr;
    EXPECT_NE(slides.sstg_close_file(nullptr), 0);
    EXPECT_NE(slides.sstg_close_file(&none), 0);
    EXPECT_NE(slides.sstg_get_slide_count(nullptr, &number), 0);
    EXPECT_NE(slides.sstg_get_slide_dimensions(nullptr, 0, &number, &number), 0);
    EXPECT_NE(slides.sstg_render_slide(nullptr, 0, 0, &pixel, 1, 1), 0);
    EXPECT_NE(slides.sstg_get_slide_title(nullptr, 0, text, 4, &number), 0);
    EXPECT_NE(slides.sstg_get_slide_note(nullptr, 0, text, 4, 0, &number), 0);
    EXPECT_NE(slides.sstg_slide_has_note(nullptr, 0, &flag), 0);
    EXPECT_NE(slides.sstg_set_highlight_color(nullptr, colour), 0);
    EXPECT_NE(slides.sstg_stop_find(nullptr), 0);
    EXPECT_NE(slides.sstg_release_memory(nullptr), 0);
    EXPECT_NE(slides.sstg_get_document_name(nullptr, text, 4, &number), 0);
    EXPECT_NE(slides.sstg_get_document_author(nullptr, text, 4, &number), 0);
    EXPECT_NE(slides.sstg_get_document_description(nullptr, text, 4, &number), 0);
    EXPECT_NE(slides.sstg_get_document_creation_date(nullptr, &time), 0);
    EXPECT_NE(slides.sstg_get_document_last_saved_date(nullptr, &time), 0);
    EXPECT_NE(slides.sstg_get_slide_outline(nullptr, 0, &number, &items), 0);
    EXPECT_NE(slides.sstg_free_slide_outline(nullptr, nullptr), 0);
    EXPECT_NE(slides.sstg_find(nullptr, wanted.data(), 0, 0, &infos, &number), 0);
    EXPECT_NE(slides.sstg_get_found_regions(nullptr, &number, &regions), 0);
    EXPECT_NE(slides.sstg_get_found_note_offsets(nullptr, 0, &number, &offsets), 0);
    EXPECT_EQ(number, 7);
    EXPECT_EQ(pixel, 7U);
    EXPECT_EQ(flag, 7);
    EXPECT_EQ(text[0], 7);
    EXPECT_EQ(time, 7);
}

TEST_F(SlideTest, FailedOpensTellWhyAndLeaveNoDocument) {
    Slideshow slideshow;
    EXPECT_EQ(slideshow.open(documents() + "/none.pptx", temporary()), MODULE_NOT_FOUND);
    EXPECT_EQ(slideshow.open(documents(), temporary()), MODULE_NOT_A_FILE);
    EXPECT_EQ(slideshow.open(write("empty.pptx", ""), temporary()), MODULE_DAMAGED);
    EXPECT_EQ(slideshow.open(write("locked.pptx", "password=x\n"), temporary()), MODULE_NEEDS_PASSWORD);
    EXPECT_EQ(slideshow.get(), nullptr);
}

TEST_F(SlideTest, SlidesAreDescribedAndPainted) {
    Slideshow slideshow;
    show(slideshow, "name=Deck\n");
    std::int32_t width = 0;
    std::int32_t height = 0;
    EXPECT_EQ(slides.sstg_get_slide_count(slideshow.get(), &count), MODULE_OK);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(slides.sstg_get_slide_dimensions(slideshow.get(), 2, &width, &height), MODULE_OK);
    EXPECT_EQ(width, 720);
    EXPECT_EQ(height, 540);
    for (const auto& [across, down] : {std::pair{40, 30}, {20, 50}, {1, 1}}) {
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(across * down) + 1, 0x42);
        ASSERT_EQ(slides.sstg_render_slide(slideshow.get(), 2, 0, pixels.data(), across, down), MODULE_OK);
        EXPECT_EQ(pixels.front(), 0xFF020000U);
        EXPECT_EQ(pixels[pixels.size() - 2], 0xFF020000U + static_cast<std::uint32_t>(down) - 1);
        EXPECT_EQ(pixels.back(), 0x42U) << "nothing behind the buffer";
    }
}

TEST_F(SlideTest, LargePicturesComeWhole) {
    Slideshow slideshow;
    show(slideshow, "name=Deck\n");
    const std::int32_t across = 1023; // an odd number of pixels that take more than 2 MiB
    const std::int32_t down = 601;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(across * down), 0x42);
    ASSERT_EQ(slides.sstg_render_slide(slideshow.get(), 1, 0, pixels.data(), across, down), MODULE_OK);
    std::vector<std::uint32_t> expected;
    for (std::uint32_t y = 0; y < static_cast<std::uint32_t>(down); y++) {
        expected.insert(expected.end(), static_cast<std::size_t>(across), 0xFF010000U + y);
    }
    EXPECT_TRUE(pixels == expected);
}

TEST_F(SlideTest, WhatCannotBeIsRefusedAndTouchesNothing) {
    Slideshow slideshow;
    show(slideshow, "name=Deck\n");
    std::vector<std::uint32_t> pixels(100, 0x42);
    std::uint16_t text[4] = {7, 7, 7, 7};
    std::int32_t width = 7;
    std::int32_t height = 7;
    std::uint8_t flag = 7;
    void* const deck = slideshow.get();
    for (const std::int32_t slide : {-1, 3, INT32_MAX, INT32_MIN}) {
        EXPECT_NE(slides.sstg_render_slide(deck, slide, 0, pixels.data(), 10, 10), MODULE_OK);
        EXPECT_NE(slides.sstg_get_slide_dimensions(deck, slide, &width, &height), MODULE_OK);
        EXPECT_NE(slides.sstg_get_slide_title(deck, slide, text, 4, &length), MODULE_OK);
        EXPECT_NE(slides.sstg_slide_has_note(deck, slide, &flag), MODULE_OK);
        EXPECT_NE(slides.sstg_find(deck, wanted.data(), 0, slide, &infos, &count), MODULE_OK);
        EXPECT_EQ(count, 0);
    }
    EXPECT_NE(slides.sstg_render_slide(deck, 0, 0, nullptr, 10, 10), MODULE_OK);
    EXPECT_NE(slides.sstg_render_slide(deck, 0, 0, pixels.data(), 0, 10), MODULE_OK);
    EXPECT_NE(slides.sstg_render_slide(deck, 0, 0, pixels.data(), 10, -1), MODULE_OK);
    EXPECT_EQ(slides.sstg_render_slide(deck, 0, 0, pixels.data(), INT32_MAX, INT32_MAX), MODULE_TOO_LARGE);
    EXPECT_NE(slides.sstg_get_slide_note(deck, 1, text, 4, -1, &length), MODULE_OK);
    EXPECT_NE(slides.sstg_get_slide_title(deck, 1, nullptr, 4, &length), MODULE_OK);
    EXPECT_NE(slides.sstg_set_highlight_color(deck, nullptr), MODULE_OK);
    EXPECT_NE(slides.sstg_find(deck, nullptr, 0, 2, &infos, &count), MODULE_OK);
    EXPECT_EQ(pixels, std::vector<std::uint32_t>(100, 0x42));
    EXPECT_EQ(text[0], 7);
    EXPECT_EQ(width, 7);
    EXPECT_EQ(flag, 7);
    EXPECT_EQ(length, -1);
}

TEST_F(SlideTest, NotesAreReadInPieces) {
    Slideshow slideshow;
    show(slideshow, "name=Deck\n");
    std::uint8_t flag = 7;
    EXPECT_EQ(slides.sstg_slide_has_note(slideshow.get(), 0, &flag), MODULE_OK);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(slides.sstg_slide_has_note(slideshow.get(), 1, &flag), MODULE_OK);
    EXPECT_EQ(flag, 1);
    std::vector<std::uint16_t> text(5, 7);
    EXPECT_EQ(slides.sstg_get_slide_note(slideshow.get(), 1, text.data(), 5, 2, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"memb");
    EXPECT_EQ(length, 8);
    EXPECT_EQ(slides.sstg_get_slide_note(slideshow.get(), 1, text.data(), 5, 100, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"");
    EXPECT_EQ(length, 8);
    EXPECT_EQ(slides.sstg_get_slide_title(slideshow.get(), 2, nullptr, 0, &length), MODULE_OK);
    EXPECT_EQ(length, 7);
}

TEST_F(SlideTest, AnOutlineHoldsUntilItIsFreed) {
    Slideshow slideshow;
    show(slideshow, "name=Deck\n");
    sstg_outline_item* first = nullptr;
    sstg_outline_item* second = nullptr;
    sstg_outline_item* none = nullptr;
    ASSERT_EQ(slides.sstg_get_slide_outline(slideshow.get(), 1, &count, &first), MODULE_OK);
    ASSERT_EQ(count, 3);
    ASSERT_EQ(slides.sstg_get_slide_outline(slideshow.get(), 1, &count, &second), MODULE_OK);
    ASSERT_EQ(slides.sstg_free_slide_outline(slideshow.get(), second), MODULE_OK);
    const auto* units = reinterpret_cast<const char16_t*>(first[1].text);
    EXPECT_EQ(std::u16string(units), u"first");
    EXPECT_EQ(first[1].level, 1);
    EXPECT_EQ(first[2].text[0], 0);
    EXPECT_EQ(first[2].level, 2);
    EXPECT_EQ(slides.sstg_free_slide_outline(slideshow.get(), first), MODULE_OK);
    EXPECT_NE(slides.sstg_free_slide_outline(slideshow.get(), first), MODULE_OK) << "a second time";
    ASSERT_EQ(slides.sstg_get_slide_outline(slideshow.get(), 0, &count, &none), MODULE_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(slides.sstg_free_slide_outline(slideshow.get(), none), MODULE_OK);
}

TEST_F(SlideTest, HitsHaveCountsForEachSlideAndRegionsOnTheOneRendered) {
    Slideshow slideshow;
    show(slideshow, "name=Deck\n");
    ASSERT_EQ(slides.sstg_find(slideshow.get(), wanted.data(), 0, 2, &infos, &count), MODULE_OK);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(infos[0].slide_hits, 1);
    EXPECT_EQ(infos[1].slide, 1);
    EXPECT_EQ(infos[1].slide_hits, 4);
    EXPECT_EQ(infos[1].note_hits, 1);
    EXPECT_EQ(slides.sstg_get_found_regions(slideshow.get(), &count, &regions), MODULE_OK);
    EXPECT_EQ(count, 0) << "nothing is rendered yet";
    std::vector<std::uint32_t> pixels(100);
    ASSERT_EQ(slides.sstg_render_slide(slideshow.get(), 1, 0, pixels.data(), 10, 10), MODULE_OK);
    ASSERT_EQ(slides.sstg_get_found_regions(slideshow.get(), &count, &regions), MODULE_OK);
    ASSERT_EQ(count, 4);
    EXPECT_EQ(regions[3].rectangle_count, 2U);
    EXPECT_EQ(regions[3].rectangles[0].x, 30);
    EXPECT_EQ(regions[3].rectangles[1].y, 80);
    const std::int32_t* offsets = nullptr;
    ASSERT_EQ(slides.sstg_get_found_note_offsets(slideshow.get(), 1, &count, &offsets), MODULE_OK);
    ASSERT_EQ(count, 1);
    EXPECT_EQ(offsets[0], 3);
    ASSERT_EQ(slides.sstg_stop_find(slideshow.get()), MODULE_OK);
    EXPECT_EQ(slides.sstg_get_found_regions(slideshow.get(), &count, &regions), MODULE_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(regions, nullptr);
}

TEST_F(SlideTest, WhatAnEngineMakesUpIsNotPassedOn) {
    Slideshow slideshow;
    show(slideshow, "lie\n");
    std::int32_t width = 7;
    std::int32_t height = 7;
    EXPECT_EQ(slides.sstg_get_slide_dimensions(slideshow.get(), 0, &width, &height), MODULE_FAILED);
    EXPECT_EQ(width, 7);
    std::vector<std::uint32_t> pixels(100);
    ASSERT_EQ(slides.sstg_render_slide(slideshow.get(), 0, 0, pixels.data(), 10, 10), MODULE_OK);
    ASSERT_EQ(slides.sstg_find(slideshow.get(), wanted.data(), 0, 2, &infos, &count), MODULE_OK);
    EXPECT_EQ(slides.sstg_get_found_regions(slideshow.get(), &count, &regions), MODULE_FAILED);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(regions, nullptr);
}

TEST_F(SlideTest, AnEngineThatHangsOrDiesCostsItsDocumentAlone) {
    setVariable("LECTERN_ENGINE_CALL_LIMIT_MS", "500");
    Slideshow hanging;
    Slideshow dying;
    Slideshow well;
    show(hanging, "find=hang\n");
    show(dying, "render=crash\n");
    show(well, "name=Deck\n");
    std::vector<std::uint32_t> pixels(100, 0x42);
    EXPECT_EQ(slides.sstg_find(hanging.get(), wanted.data(), 0, 2, &infos, &count), MODULE_TIMED_OUT);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(slides.sstg_render_slide(dying.get(), 0, 0, pixels.data(), 10, 10), MODULE_ENGINE_LOST);
    EXPECT_EQ(pixels, std::vector<std::uint32_t>(100, 0x42));
    EXPECT_EQ(slides.sstg_get_slide_count(dying.get(), &count), MODULE_ENGINE_LOST);
    EXPECT_EQ(slides.sstg_render_slide(well.get(), 1, 0, pixels.data(), 10, 10), MODULE_OK);
    EXPECT_EQ(pixels.front(), 0xFF010000U);
}

TEST_F(SlideTest, PropertiesAndVersionAreTexts) {
    Slideshow slideshow;
    show(slideshow, "name=Deck\n");
    std::vector<std::uint16_t> text(20, 7);
    time_t time = 0;
    EXPECT_EQ(slides.sstg_get_document_name(slideshow.get(), text.data(), 6, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"De") << "6 bytes";
    EXPECT_EQ(length, 4);
    EXPECT_EQ(slides.sstg_get_document_author(slideshow.get(), nullptr, 0, &length), MODULE_OK);
    EXPECT_EQ(length, 6);
    EXPECT_EQ(slides.sstg_get_document_description(slideshow.get(), text.data(), 40, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"Description");
    EXPECT_EQ(slides.sstg_get_document_creation_date(slideshow.get(), &time), MODULE_OK);
    EXPECT_EQ(time, 1000);
    EXPECT_EQ(slides.sstg_get_document_last_saved_date(slideshow.get(), &time), MODULE_OK);
    EXPECT_EQ(time, 2000);
    EXPECT_EQ(slides.sstg_release_memory(slideshow.get()), MODULE_OK);
    EXPECT_EQ(slides.sstg_get_version(text.data(), 20, &length), MODULE_OK);
    EXPECT_EQ(textOf(text).substr(0, 8), u"Lectern ");
}

TEST_F(SlideTest, ANumberOfSlidesThatCannotBeIsNotBelieved) {
    Slideshow slideshow;
    show(slideshow, "lie=yes\n");
    EXPECT_EQ(slides.sstg_get_slide_count(slideshow.get(), &count), MODULE_FAILED);
    EXPECT_EQ(count, -1);
}

} // namespace
} // namespace lectern::test
