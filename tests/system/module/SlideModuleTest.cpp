// SPDX-License-Identifier: Apache-2.0
// Presentations with the real engine: slides, titles, notes, bad input, memory.
#include "tests/process/engine/EngineHost.h"
#include "tests/system/module/SlideView.h"
#include "tests/system/support/Subprocess.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>

namespace lectern::test {
namespace {

constexpr std::uint32_t WHITE = 0xFFFFFFFF;

std::size_t inkOf(const Pixels& pixels) {
    return static_cast<std::size_t>(
        std::count_if(pixels.begin(), pixels.end(), [](std::uint32_t pixel) { return pixel != WHITE; }));
}

std::int32_t openResult(const std::string& path) {
    Slideshow slideshow;
    return slideshow.open(path, "/tmp");
}

// Private memory, in bytes, of the engine of the only open document.
std::size_t engineMemory() {
    std::size_t most = 0;
    for (const EngineInfo& engine : enginesOf(getpid())) {
        std::ifstream file("/proc/" + std::to_string(engine.pid) + "/statm");
        std::size_t size = 0;
        std::size_t resident = 0;
        std::size_t shared = 0;
        file >> size >> resident >> shared;
        most = std::max(most, (resident - shared) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)));
    }
    return most;
}

TEST(SlideModule, CountTitlesAndNotesAreThoseOfTheFile) {
    for (const std::string& path : {slideSample("tour.pptx"), longSlides(40)}) {
        const std::vector<WrittenSlide> written = readSlides(path);
        const SlideView view(path);
        ASSERT_EQ(view.count(), static_cast<std::int32_t>(written.size()));
        for (std::int32_t i = 0; i < view.count(); i++) {
            const WrittenSlide& slide = written[static_cast<std::size_t>(i)];
            EXPECT_EQ(view.title(i), slide.title);
            std::string note = slide.note;
            std::replace(note.begin(), note.end(), '|', '\n');
            EXPECT_EQ(view.note(i), note);
        }
    }
}

TEST(SlideModule, TheBinaryFormatTellsTheSame) {
    const SlideView xml(slideSample("tour.pptx"));
    const SlideView binary(slideSample("tour.ppt"));
    ASSERT_EQ(binary.count(), xml.count());
    for (std::int32_t i = 0; i < xml.count(); i++) {
        EXPECT_EQ(binary.title(i), xml.title(i));
        EXPECT_GT(inkOf(binary.render(i, 480, 270)), 500U) << i;
    }
}

TEST(SlideModule, DimensionsArePoints) {
    for (const auto& [path, width] :
         {std::pair(slideSample("tour.pptx"), 960), std::pair(longSlides(40), 720)}) {
        const SlideView view(path);
        std::int32_t across = 0;
        std::int32_t down = 0;
        ASSERT_EQ(slideModule().sstg_get_slide_dimensions(view.get(), 0, &across, &down), MODULE_OK);
        EXPECT_EQ(across, width);
        EXPECT_EQ(down, 540);
    }
}

TEST(SlideModule, ASlideIsWholeAtAnySizeWithoutAFrame) {
    const SlideView view(slideSample("tour.pptx"));
    for (const auto& [width, height] : {std::pair{480, 270},
                                        {854, 480},
                                        {302, 170},
                                        {1, 1},
                                        {2, 300},
                                        {3, 3},
                                        {1920, 1080},
                                        {400, 400},
                                        {4096, 16}}) {
        const Pixels pixels = view.render(0, width, height);
        EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0x42U), 0);
        const auto at = [&, row = width](int x, int y) {
            return pixels[static_cast<std::size_t>(y * row + x)];
        };
        for (int x = 0; x < width && width > 4 && height > 4; x++) {
            ASSERT_EQ(at(x, 0), WHITE) << width << " " << x;
            ASSERT_EQ(at(x, height - 1), WHITE);
        }
        for (int y = 0; y < height && width > 4 && height > 4; y++) {
            ASSERT_EQ(at(0, y), WHITE) << width << " " << y;
            ASSERT_EQ(at(width - 1, y), WHITE);
        }
    }
}

// Greatest difference of a colour's parts between neighbours in a row.
int steepest(const Pixels& pixels, int width) {
    int most = 0;
    for (std::size_t i = 1; i < pixels.size(); i++) {
        for (const int shift : {0, 8, 16}) {
            const auto part = [&](std::size_t at) { return static_cast<int>(pixels[at] >> shift & 0xFF); };
            most = i % static_cast<std::size_t>(width) == 0 ? most
                                                            : std::max(most, std::abs(part(i) - part(i - 1)));
        }
    }
    return most;
}

TEST(SlideModule, SlidesAreShownThoughTheMasterWasWhenTheyWereSaved) {
    constexpr char SLIDES = 1;
    constexpr char MASTER = 2;
    constexpr char NOTES = 3;
    const SlideView asSlides(oldSlidesSavedInView(SLIDES));
    for (const char other : {MASTER, NOTES}) {
        const SlideView view(oldSlidesSavedInView(other));
        for (std::int32_t i = 0; i < view.count(); i++) {
            EXPECT_EQ(view.render(i, 480, 270), asSlides.render(i, 480, 270)) << int{other} << ": " << i;
        }
    }
}

TEST(SlideModule, MirroredGradientsAreSmooth) {
    const SlideView view(madeSlides("gradients.pptx",
                                    "deck = Pptx()\n"
                                    "for angle in (0, 30, 90):\n"
                                    "    fill = gradient(angle, ('0000FF', 'FF0000', '0000FF'))\n"
                                    "    deck.slide().box('', (-10, -10, 740, 560), fill=fill)\n"
                                    "    deck.slide().background = fill\n"
                                    "deck.save(OUT)"));
    ASSERT_EQ(view.count(), 6);
    for (std::int32_t i = 0; i < view.count(); i++) {
        const Pixels pixels = view.render(i, 480, 360);
        EXPECT_LE(steepest(pixels, 480), 4) << i;
        const auto red = [&](int x, int y) {
            return pixels[static_cast<std::size_t>(y * 480 + x)] >> 16 & 0xFF;
        };
        EXPECT_GT(red(240, 180), 245U) << i;
        EXPECT_LT(red(5, 5), 25U) << i;
        EXPECT_LT(red(474, 354), 25U) << i;
    }
    // The slanted axis goes through these two points and not through their mirror images.
    const Pixels slanted = view.render(2, 480, 360);
    EXPECT_GT(slanted[300 * 480 + 171] >> 16 & 0xFF, 230U);
    EXPECT_GT(slanted[60 * 480 + 309] >> 16 & 0xFF, 230U);
    EXPECT_LT(slanted[60 * 480 + 171] >> 16 & 0xFF, 180U);
}

TEST(SlideModule, MissingPicturesShowNothing) {
    const SlideView view(madeSlides("missing.pptx",
                                    "deck = Pptx()\nslide = deck.slide()\n"
                                    "slide.picture(b'', (100, 100, 300, 200))\ndeck.save(OUT)"));
    EXPECT_EQ(inkOf(view.render(0, 360, 270)), 0U);
}

TEST(SlideModule, DrawingsAndPicturesAreNotMissing) {
    // The drawing is a metafile of a red square of 1000 units.
    const SlideView view(madeSlides(
        "drawing.pptx",
        "from docx_writer import png\n"
        "from struct import pack\n"
        "placeable = pack('<IH4hHI', 0x9AC6CDD7, 0, 0, 0, 1000, 1000, 1440, 0)\n"
        "check = 0\n"
        "for i in range(0, 20, 2):\n"
        "    check ^= int.from_bytes(placeable[i:i + 2], 'little')\n"
        "records = [pack('<IHhh', 5, 0x20B, 0, 0), pack('<IHhh', 5, 0x20C, 1000, 1000),\n"
        "           pack('<IHHIH', 7, 0x2FC, 0, 0x0000FF, 0), pack('<IHH', 4, 0x12D, 0),\n"
        "           pack('<IH4h', 7, 0x41B, 1000, 1000, 0, 0), pack('<IH', 3, 0)]\n"
        "body = b''.join(records)\n"
        "header = pack('<HHHIHIH', 1, 9, 0x300, 9 + len(body) // 2, 1, 7, 0)\n"
        "deck = Pptx()\n"
        "deck.slide().picture(placeable + pack('<H', check) + header + body, (100, 100, 300, 200))\n"
        "deck.slide().picture(png(9, 9, lambda x, y: (255, 0, 0)), (100, 100, 300, 200))\n"
        "deck.save(OUT)"));
    for (const std::int32_t slide : {0, 1}) {
        const Pixels pixels = view.render(slide, 360, 270);
        EXPECT_GT(std::count(pixels.begin(), pixels.end(), 0xFFFF0000U), 140 * 90) << slide;
    }
}

TEST(SlideModule, HiddenSlidesAreShown) {
    const SlideView view(slideSample("tour.pptx"));
    EXPECT_EQ(view.title(4), "Only for the harbour master");
    EXPECT_NE(view.render(4, 480, 270), view.render(3, 480, 270));
    EXPECT_GT(inkOf(view.render(4, 480, 270)), 500U);
}

TEST(SlideModule, AnimationsHaveEndedAndEmptyPlaceholdersAreEmpty) {
    const SlideView view(slideSample("tour.pptx"));
    const Pixels pixels = view.render(6, 960, 540);
    // Nothing is left of the hidden box, whose colour is C8553D.
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0xFFC8553DU), 0);
    // The empty title placeholder shows nothing either.
    for (int y = 20; y < 100; y++) {
        const auto row = pixels.begin() + std::ptrdiff_t{y} * 960;
        ASSERT_TRUE(std::all_of(row, row + 960, [](std::uint32_t pixel) { return pixel == WHITE; })) << y;
    }
    EXPECT_GT(inkOf(pixels), 500U);
}

TEST(SlideModule, GoingBackToASlideShowsTheSamePicture) {
    const SlideView view(longSlides(40));
    const Pixels first = view.render(7, 320, 240);
    const Pixels other = view.render(8, 320, 240);
    EXPECT_NE(first, other);
    EXPECT_EQ(view.render(7, 320, 240), first);
    EXPECT_EQ(slideModule().sstg_release_memory(view.get()), MODULE_OK);
    EXPECT_EQ(view.render(7, 320, 240), first);
}

TEST(SlideModule, AnOutlineHasTheTitleAndTheTextWithItsLevels) {
    const SlideView view(slideSample("tour.pptx"));
    sstg_outline_item* items = nullptr;
    std::int32_t count = 0;
    ASSERT_EQ(slideModule().sstg_get_slide_outline(view.get(), 1, &count, &items), MODULE_OK);
    ASSERT_EQ(count, 6);
    const auto text = [&](int i) { return std::u16string(reinterpret_cast<const char16_t*>(items[i].text)); };
    EXPECT_EQ(text(0), u"What you will see");
    EXPECT_EQ(text(2), u"Rowing boats");
    EXPECT_EQ(text(5), u"The lighthouse");
    const std::vector<int> levels{items[0].level, items[1].level, items[2].level, items[4].level};
    EXPECT_EQ(levels, (std::vector{0, 1, 2, 1}));
    EXPECT_EQ(slideModule().sstg_free_slide_outline(view.get(), items), MODULE_OK);
}

TEST(SlideModule, PropertiesAreThoseOfTheFile) {
    const SlideView view(slideSample("tour.pptx"));
    std::vector<std::uint16_t> text(100);
    std::int32_t length = 0;
    time_t time = 0;
    ASSERT_EQ(slideModule().sstg_get_document_name(view.get(), text.data(), 200, &length), MODULE_OK);
    EXPECT_EQ(std::vector(text.begin(), text.begin() + length + 1), wide("The Harbour in Slides"));
    ASSERT_EQ(slideModule().sstg_get_document_author(view.get(), text.data(), 200, &length), MODULE_OK);
    EXPECT_EQ(std::vector(text.begin(), text.begin() + length + 1), wide("The Lectern makers"));
    ASSERT_EQ(slideModule().sstg_get_document_creation_date(view.get(), &time), MODULE_OK);
    EXPECT_EQ(time, 1767601800);
    ASSERT_EQ(slideModule().sstg_get_document_last_saved_date(view.get(), &time), MODULE_OK);
    EXPECT_EQ(time, 1770825900);
}

TEST(SlideModule, ProtectedFilesAreRefusedAtOnce) {
    EXPECT_EQ(openResult(slideSample("locked.pptx")), MODULE_NEEDS_PASSWORD);
}

TEST(SlideModule, WhatIsNoPresentationIsRefused) {
    EXPECT_EQ(openResult(slideFile("text.pptx", "these are only words")), MODULE_WRONG_KIND);
    EXPECT_EQ(openResult(slideFile("nothing.pptx", "")), MODULE_DAMAGED);
    EXPECT_EQ(openResult(slideSample("tour.docx")), MODULE_WRONG_KIND);
    EXPECT_EQ(openResult(slideFile("words.pptx", readFile(slideSample("tour.docx")))), MODULE_WRONG_KIND);
}

TEST(SlideModule, DamagedFilesOpenOrNotButNothingHangs) {
    for (const char* name : {"tour.pptx", "tour.ppt"}) {
        const std::string whole = readFile(slideSample(name));
        for (const std::size_t part : {2U, 3U, 10U}) {
            openResult(slideFile(std::string("cut-") + name, whole.substr(0, whole.size() / part)));
        }
        std::mt19937 chance(11);
        std::string bytes = whole;
        for (int i = 0; i < 200; i++) {
            bytes[chance() % bytes.size()] = static_cast<char>(chance());
        }
        openResult(slideFile(std::string("noise-") + name, bytes));
    }
    EXPECT_EQ(SlideView(slideSample("tour.pptx")).count(), 7) << "others go on";
}

TEST(SlideModule, ADeckWithoutSlidesIsAnEmptyPage) {
    const SlideView none(madeSlides("none.pptx", "Pptx().save(OUT)"));
    EXPECT_EQ(none.count(), 0);
    std::int32_t width = -1;
    std::int32_t height = -1;
    EXPECT_EQ(slideModule().sstg_get_slide_dimensions(none.get(), 0, &width, &height), MODULE_OK);
    EXPECT_GT(width, height) << "a size of the suite's";
    EXPECT_GT(height, 400);
    EXPECT_EQ(inkOf(none.render(0, 96, 54)), 0U);
    EXPECT_EQ(none.title(0), "");
    EXPECT_EQ(none.note(0), "");
    const sstg_find_info* infos = nullptr;
    std::int32_t found = -1;
    EXPECT_NE(slideModule().sstg_find(none.get(), wide("e").data(), 0, 0, &infos, &found), MODULE_OK);
    Pixels pixels(4);
    EXPECT_NE(slideModule().sstg_render_slide(none.get(), 1, 0, pixels.data(), 2, 2), MODULE_OK);
}

TEST(SlideModule, SlidesMissingFromThePackagesListAreNone) {
    const std::string made = "deck = Pptx()\n"
                             "for i in range(2):\n"
                             "    deck.slide().title('Lost')\n"
                             "whole = deck._presentation()\n"
                             "start, end = whole.index('<p:sldId '), whole.index('</p:sldIdLst>')\n";
    const SlideView none(madeSlides(
        "unlisted.pptx", made + "deck._presentation = lambda: whole[:start] + whole[end:]\ndeck.save(OUT)"));
    EXPECT_EQ(none.count(), 0);
    const SlideView one(
        madeSlides("half-listed.pptx", made + "second = whole.index('<p:sldId ', start + 1)\n"
                                              "deck._presentation = lambda: whole[:start] + whole[second:]\n"
                                              "deck.save(OUT)"));
    EXPECT_EQ(one.count(), 1);
    EXPECT_EQ(one.title(0), "Lost");
}

TEST(SlideModule, OddDecksAreShown) {
    const SlideView bare(madeSlides("bare.pptx", "deck = Pptx()\ndeck.slide()\ndeck.save(OUT)"));
    EXPECT_EQ(bare.count(), 1);
    EXPECT_EQ(bare.title(0), "");
    EXPECT_EQ(inkOf(bare.render(0, 200, 150)), 0U);
    for (const char* size : {"(1, 1)", "(50000, 50000)", "(50000, 1)"}) {
        const std::string made =
            std::string("deck = Pptx(") + size + ")\ndeck.slide().title('Odd')\ndeck.save(OUT)";
        const SlideView odd(madeSlides("odd.pptx", made));
        std::int32_t width = 0;
        std::int32_t height = 0;
        ASSERT_EQ(slideModule().sstg_get_slide_dimensions(odd.get(), 0, &width, &height), MODULE_OK) << size;
        EXPECT_GE(width, 1);
        EXPECT_LE(height, 50000);
        EXPECT_EQ(odd.title(0), "Odd");
        odd.render(0, 320, 240);
        odd.find("odd");
    }
}

TEST(SlideModule, ThousandsOfShapesArePainted) {
    const SlideView view(longSlides(1, 3000));
    EXPECT_GT(inkOf(view.render(0, 640, 480)), 100000U);
    EXPECT_EQ(view.find("needle1").size(), 1U);
}

TEST(SlideModule, JumpingAroundDoesNotGrowTheEngine) {
    const SlideView view(longSlides(300));
    ASSERT_EQ(view.count(), 300);
    std::mt19937 chance(5);
    const auto jump = [&](int times) {
        for (int i = 0; i < times; i++) {
            view.render(static_cast<std::int32_t>(chance() % 300), 640, 480);
        }
    };
    // Now its caches and those of the suite are full.
    for (std::int32_t slide = 0; slide < 300; slide++) {
        view.render(slide, 640, 480);
    }
    jump(300);
    const std::size_t before = engineMemory();
    jump(1500);
    const std::size_t after = engineMemory();
    RecordProperty("before", std::to_string(before >> 20));
    RecordProperty("after", std::to_string(after >> 20));
    EXPECT_LT(after, before + (std::size_t{16} << 20)) << before << " bytes before";
}

} // namespace
} // namespace lectern::test
