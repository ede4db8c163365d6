// SPDX-License-Identifier: Apache-2.0
// The optional functions of the word module with the real engine.
#include "modules/TouchWordFunctions.h"
#include "tests/system/module/ModuleView.h"
#include "touch/TouchWordModule.h"

#include <dlfcn.h>

#include <csignal>

namespace lectern::test {
namespace {

const TouchWordModule& touchModule() {
    static const TouchWordModule functions(dlopen(MODULE_FOLDER "/WordToGoModule.so", RTLD_NOW));
    return functions;
}

std::u16string textOf(const std::uint16_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

std::string wideTableDocument() {
    return generated("make_wide_table_docx.py", {"OUT"});
}

// Shows a heading at the top of the buffer.
void goTo(const ModuleView& view, std::size_t heading) {
    const wtg_outline_entry* entries = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(touchModule().outline(view.get(), &count, &entries), MODULE_OK);
    ASSERT_GT(static_cast<std::size_t>(count), heading);
    view.jump(entries[heading].character);
}

TEST(ModuleTouch, TheLineAtAPointIsWhereAJumpToItsCharacterLeads) {
    ModuleView view(linkedDocument(), 320, 800);
    const std::vector<std::uint32_t> before = view.pixels();
    for (const std::int32_t y : {5, 60, 200, 350, 500, 700}) {
        std::uint32_t character = 0;
        module_rect line{};
        ASSERT_EQ(touchModule().characterAt(view.get(), 100, y, &character, &line), MODULE_OK);
        EXPECT_LE(line.y, y + 20) << y; // the nearest one, if it is between paragraphs
        EXPECT_GT(line.height, 5) << y;
        EXPECT_EQ(line.width, 320);
        view.jump(character);
        for (std::int32_t row = 0; row < 50; row++) { // a jump moves the line to the top
            ASSERT_EQ(view.at(30, row), before[static_cast<std::size_t>((line.y + row) * 320 + 30)]) << y;
        }
        view.jump(0);
    }
}

TEST(ModuleTouch, TellsWhereTheStretchIsInTheText) {
    ModuleView view(linkedDocument(), 320, 400);
    std::int64_t top = -1;
    std::int64_t rows = -1;
    std::uint32_t characters = 0;
    std::int32_t moved = 0;
    ASSERT_EQ(wordModule().wtg_scroll_down(view.get(), 0, 137, &moved), MODULE_OK);
    ASSERT_EQ(touchModule().textSize(view.get(), &top, &rows, &characters), MODULE_OK);
    EXPECT_EQ(top, 137);
    EXPECT_EQ(rows, view.rows());
    EXPECT_EQ(characters, view.count());
}

TEST(ModuleTouch, ReadsTheHeadings) {
    ModuleView view(wideTableDocument(), 360, 640);
    const wtg_outline_entry* entries = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(touchModule().outline(view.get(), &count, &entries), MODULE_OK);
    ASSERT_EQ(count, 4);
    EXPECT_EQ(textOf(entries[2].text), u"A wide table");
    EXPECT_EQ(entries[0].level, 0);
    EXPECT_EQ(entries[2].level, 1);
    EXPECT_EQ(view.text().substr(entries[2].character, 12), u"A wide table");
}

TEST(ModuleTouch, AWideTableHasRoomForFourLettersAtTheResolutionThatItTells) {
    ModuleView view(wideTableDocument(), 360, 640);
    goTo(view, 2);
    module_rect area{};
    std::int32_t most = 0;
    ASSERT_EQ(touchModule().tapArea(view.get(), 100, 100, &area, &most), MODULE_OK);
    EXPECT_GT(area.width, 340);
    EXPECT_LT(most, 72);
    EXPECT_GT(most, 20);
    // In a row of the table each word is in one line then, so "Boat" has one rectangle.
    view.resize(360, 640, most);
    goTo(view, 2);
    view.find(u"Boat");
    const std::vector<Region> boats = view.regions();
    ASSERT_GT(boats.size(), 50U);
    for (const Region& boat : boats) {
        EXPECT_EQ(boat.rectangles.size(), 1U);
    }
    goTo(view, 1);
    ASSERT_EQ(touchModule().tapArea(view.get(), 100, 30, &area, &most), MODULE_OK);
    EXPECT_GT(most, 144) << "two columns have room";
    view.jump(0);
    EXPECT_EQ(touchModule().tapArea(view.get(), 100, 100, &area, &most), MODULE_NOTHING_THERE);
}

TEST(ModuleTouch, APictureHasItsWidth) {
    ModuleView view(SAMPLES_FOLDER "/tour.docx", 800, 1200);
    module_rect area{};
    std::int32_t most = -1;
    bool found = false;
    for (std::int32_t y = 200; y < 600 && !found; y += 20) {
        found = touchModule().tapArea(view.get(), 150, y, &area, &most) == MODULE_OK && most == 0;
    }
    ASSERT_TRUE(found);
    EXPECT_GT(area.width, 200);
    EXPECT_LT(area.width, 790);
}

TEST(ModuleTouch, FindsWithRegardToCaseAndWholeWords) {
    ModuleView view(linkedDocument(), 320, 1000);
    const std::size_t all = view.find(u"needle").size();
    ASSERT_EQ(touchModule().setFindOptions(view.get(), 1), MODULE_OK);
    const std::size_t exact = view.find(u"needle").size();
    EXPECT_LT(exact, all);
    EXPECT_GT(exact, 0U);
    ASSERT_EQ(touchModule().setFindOptions(view.get(), 2), MODULE_OK);
    EXPECT_TRUE(view.find(u"needl").empty());
    ASSERT_EQ(touchModule().setFindOptions(view.get(), 0), MODULE_OK);
    EXPECT_EQ(view.find(u"needl").size(), all);
}

TEST(ModuleTouch, EndsOfTheSelectionMove) {
    ModuleView view(wideTableDocument(), 360, 640);
    std::int32_t x = 0;
    std::int32_t y = 0;
    view.pointAt(u"harbour", x, y);
    EXPECT_EQ(touchModule().moveSelectionEnd(view.get(), 1, x, y), MODULE_NOTHING_THERE);
    ASSERT_EQ(wordModule().wtg_select_word(view.get(), 0, x, y), MODULE_OK);
    EXPECT_EQ(view.copy(), u"harbour");
    ASSERT_EQ(touchModule().moveSelectionEnd(view.get(), 1, x, y + 40), MODULE_OK);
    EXPECT_EQ(view.copy().substr(0, 13), u"harbour keeps");
    const module_rect* rectangles = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(touchModule().selectionRegions(view.get(), &count, &rectangles), MODULE_OK);
    ASSERT_GE(count, 3);
    EXPECT_LE(rectangles[0].y, y);
    EXPECT_GT(rectangles[count - 1].y + rectangles[count - 1].height, y + 39);
    ASSERT_EQ(touchModule().moveSelectionEnd(view.get(), 1, 0, 0), MODULE_OK);
    EXPECT_EQ(view.copy(), u"h") << "the ends do not pass each other";
    EXPECT_EQ(touchModule().moveSelectionEnd(view.get(), 2, x, y), MODULE_BAD_ARGUMENT);
}

TEST(ModuleTouch, ReadsTheLinesOnTheScreen) {
    ModuleView view(wideTableDocument(), 360, 640);
    const wtg_text_line* lines = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(touchModule().textLines(view.get(), 0, 200, &count, &lines), MODULE_OK);
    ASSERT_GE(count, 8);
    EXPECT_EQ(textOf(lines[0].text), u"Before the tables");
    EXPECT_EQ(textOf(lines[1].text).substr(0, 11), u"The harbour");
    for (std::int32_t i = 1; i < count; i++) {
        EXPECT_GE(lines[i].place.y, lines[i - 1].place.y + lines[i - 1].place.height - 3);
        EXPECT_LE(lines[i].place.x + lines[i].place.width, 360);
        EXPECT_LT(lines[i].place.y, 200);
    }
    goTo(view, 1);
    ASSERT_EQ(touchModule().textLines(view.get(), 0, 100, &count, &lines), MODULE_OK);
    ASSERT_GE(count, 7);
    EXPECT_EQ(textOf(lines[1].text), u"Quay");
    EXPECT_EQ(textOf(lines[2].text), u"Boats") << "the cells of a row follow each other";
    EXPECT_EQ(lines[2].place.y, lines[1].place.y);
    EXPECT_GT(lines[2].place.x, lines[1].place.x);
    EXPECT_EQ(touchModule().textLines(view.get(), 100, 0, &count, &lines), MODULE_OK);
    EXPECT_EQ(count, 0);
}

TEST(ModuleTouch, ALostEngineComesBackWithTheSelectionAndTheOptions) {
    ModuleView view(linkedDocument(), 320, 400);
    std::int32_t x = 0;
    std::int32_t y = 0;
    view.pointAt(u"needle", x, y);
    ASSERT_EQ(wordModule().wtg_select_word(view.get(), 0, x, y), MODULE_OK);
    ASSERT_EQ(touchModule().moveSelectionEnd(view.get(), 1, x, y + 60), MODULE_OK);
    const std::u16string selected = view.copy();
    ASSERT_EQ(touchModule().setFindOptions(view.get(), 3), MODULE_OK);
    const std::size_t hits = view.find(u"needle").size();
    for (const EngineInfo& engine : enginesOf(getpid())) {
        kill(engine.pid, SIGKILL);
    }
    EXPECT_EQ(view.copy(), selected);
    EXPECT_EQ(view.find(u"needle").size(), hits);
}

TEST(ModuleTouch, RefusesWhatHasNoSense) {
    ModuleView view(linkedDocument(), 320, 400);
    const TouchWordModule& module = touchModule();
    std::uint32_t character = 7;
    module_rect line{};
    std::int32_t number = 0;
    EXPECT_NE(module.characterAt(nullptr, 1, 1, &character, &line), MODULE_OK);
    EXPECT_EQ(character, 7U);
    EXPECT_NE(module.characterAt(view.get(), 1, 1, nullptr, &line), MODULE_OK);
    EXPECT_EQ(module.characterAt(view.get(), -1000, 1 << 30, &character, &line), MODULE_OK);
    EXPECT_EQ(module.tapArea(view.get(), -1, 5, &line, &number), MODULE_NOTHING_THERE);
    EXPECT_NE(module.textSize(view.get(), nullptr, nullptr, &character), MODULE_OK);
    EXPECT_NE(module.outline(view.get(), nullptr, nullptr), MODULE_OK);
    EXPECT_NE(module.textLines(nullptr, 0, 5, &number, nullptr), MODULE_OK);
    EXPECT_NE(module.selectionRegions(view.get(), &number, nullptr), MODULE_OK);
    EXPECT_NE(module.setFindOptions(nullptr, 1), MODULE_OK);
}

} // namespace
} // namespace lectern::test
