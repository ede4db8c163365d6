// SPDX-License-Identifier: Apache-2.0
// The presentation module's optional functions.

#include "modules/TouchSlideFunctions.h"
#include "tests/process/engine/EngineTest.h"
#include "tests/process/engine/SlideHost.h"

namespace lectern::test {
namespace {

class SlideTouchTest : public EngineTest {
protected:
    void* show(const std::string& contents) {
        EXPECT_EQ(mSlideshow.open(write("deck.pptx", contents), temporary()), MODULE_OK);
        return mSlideshow.get();
    }
    std::int32_t linkAt(void* deck, std::int32_t slide, std::int32_t x, std::int32_t y) {
        return getLink(deck, slide, x, y, 100, 50, &target, text.data(), 500, &length);
    }

    decltype(&sstg_set_find_options) setOptions =
        slideFunction<decltype(sstg_set_find_options)>("sstg_set_find_options");
    decltype(&sstg_get_link) getLink = slideFunction<decltype(sstg_get_link)>("sstg_get_link");
    decltype(&sstg_get_shape_area) getArea =
        slideFunction<decltype(sstg_get_shape_area)>("sstg_get_shape_area");
    decltype(&sstg_get_text_lines) getLines =
        slideFunction<decltype(sstg_get_text_lines)>("sstg_get_text_lines");
    std::vector<std::uint16_t> text = std::vector<std::uint16_t>(500);
    std::int32_t target = 7;
    std::int32_t length = 7;
    std::int32_t count = 7;
    module_rect area{7, 7, 7, 7};
    const sstg_text_line* lines = nullptr;

private:
    Slideshow mSlideshow;
};

TEST_F(SlideTouchTest, EveryFunctionRefusesNothing) {
    EXPECT_NE(setOptions(nullptr, 0), MODULE_OK);
    EXPECT_NE(linkAt(nullptr, 0, 0, 0), MODULE_OK);
    EXPECT_NE(getArea(nullptr, 0, 0, 0, 1, 1, &area), MODULE_OK);
    EXPECT_NE(getLines(nullptr, 0, 1, 1, &count, &lines), MODULE_OK);
    void* const deck = show("name=Deck\n");
    EXPECT_NE(getLink(deck, 0, 0, 0, 1, 1, nullptr, text.data(), 500, &length), MODULE_OK);
    EXPECT_NE(getLink(deck, 0, 0, 0, 1, 1, &target, nullptr, 500, &length), MODULE_OK);
    EXPECT_NE(getArea(deck, 0, 0, 0, 1, 1, nullptr), MODULE_OK);
    EXPECT_NE(getLines(deck, 0, 1, 1, nullptr, &lines), MODULE_OK);
    EXPECT_NE(getLines(deck, 0, 1, 1, &count, nullptr), MODULE_OK);
    EXPECT_EQ(target, 7);
    EXPECT_EQ(length, 7);
    EXPECT_EQ(count, 7);
    EXPECT_EQ(area.width, 7);
}

TEST_F(SlideTouchTest, LinksAreSlidesOrAddresses) {
    void* const deck = show("name=Deck\n");
    ASSERT_EQ(linkAt(deck, 1, 10, 10), MODULE_OK);
    EXPECT_EQ(target, 2);
    EXPECT_EQ(length, 0);
    ASSERT_EQ(linkAt(deck, 1, 10, 40), MODULE_OK);
    EXPECT_EQ(target, -1);
    EXPECT_EQ(textOf(text), u"https://a.example");
    EXPECT_EQ(length, 17);
    ASSERT_EQ(getLink(deck, 1, 10, 40, 100, 50, &target, text.data(), 6, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"https");
    EXPECT_EQ(length, 17);
    target = 7;
    EXPECT_EQ(linkAt(deck, 1, 90, 10), MODULE_NOTHING_THERE);
    EXPECT_NE(linkAt(deck, 3, 10, 10), MODULE_OK);
    EXPECT_EQ(target, 7);
}

TEST_F(SlideTouchTest, AreasAndLinesAreInPixelsOfThePicture) {
    void* const deck = show("name=Deck\n");
    ASSERT_EQ(getArea(deck, 1, 10, 10, 100, 50, &area), MODULE_OK);
    EXPECT_EQ(area.width, 50);
    EXPECT_EQ(area.height, 50);
    EXPECT_EQ(getArea(deck, 1, 90, 10, 100, 50, &area), MODULE_NOTHING_THERE);
    ASSERT_EQ(getLines(deck, 0, 100, 50, &count, &lines), MODULE_OK);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(lines[0].length, 2);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(lines[0].text)), u"ab");
    EXPECT_EQ(lines[0].places[1].width, 50);
    EXPECT_EQ(std::u16string(reinterpret_cast<const char16_t*>(lines[1].text)), u"c");
    EXPECT_EQ(lines[1].places[0].height, 50);
    EXPECT_EQ(lines[1].paragraph, 1);
}

TEST_F(SlideTouchTest, AnswersThatCannotBeAreNotBelieved) {
    void* const deck = show("lie\n");
    EXPECT_EQ(linkAt(deck, 0, 10, 10), MODULE_FAILED);
    EXPECT_EQ(target, 7);
    EXPECT_EQ(getLines(deck, 0, 100, 50, &count, &lines), MODULE_FAILED);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(lines, nullptr);
}

TEST_F(SlideTouchTest, OptionsHoldForLaterFinds) {
    const SSTGFunc& slides = slideModule();
    void* const deck = show("name=Deck\n");
    const sstg_find_info* infos = nullptr;
    for (const std::int32_t flags : {0, 1, 0}) {
        ASSERT_EQ(setOptions(deck, flags), MODULE_OK);
        ASSERT_EQ(slides.sstg_find(deck, wide("tide").data(), 0, 2, &infos, &count), MODULE_OK);
        EXPECT_EQ(infos[1].note_hits, flags == 0 ? 1 : 0);
    }
}

} // namespace
} // namespace lectern::test
