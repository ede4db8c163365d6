// SPDX-License-Identifier: Apache-2.0
#include "modules/ModuleResults.h"
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"

#include <algorithm>
#include <chrono>

namespace lectern::engine::test {

namespace {

class Flow : public OfficeTest {
public:
    static std::unique_ptr<View> lines(int count, int32_t width = 320, int32_t height = 500,
                                       int32_t dpi = 72) {
        return view(write("lines.txt", numberedLines(count)), width, height, dpi);
    }
};

int32_t inkOfRow(const View& view, int32_t y) {
    int32_t ink = 0;
    for (int32_t x = 0; x < view.width(); ++x) {
        ink += view.isWhite(x, y) ? 0 : 1;
    }
    return ink;
}

// The largest number of rows without ink between two rows with ink.
int32_t widestGap(const View& view) {
    int32_t widest = 0;
    int32_t last = -1;
    for (int32_t y = 0; y < view.height(); ++y) {
        if (inkOfRow(view, y) == 0) {
            continue;
        }
        widest = last < 0 ? 0 : std::max(widest, y - last - 1);
        last = y;
    }
    return widest;
}

} // namespace

TEST_F(Flow, CharactersAreThoseOfTheTextWithOneBetweenParagraphs) {
    const auto shown = view(write("three.txt", "one\ntwo words\n\nthree"), 320, 200);
    EXPECT_EQ(shown->count(), 20U);
}

TEST_F(Flow, AShortTextIsShownWhole) {
    const auto shown = view(write("short.txt", "one line"), 320, 200);
    EXPECT_EQ(shown->topLeft(), 0U);
    EXPECT_EQ(shown->bottomRight(), shown->count());
    EXPECT_EQ(shown->usedRows(), shown->rows());
    EXPECT_LT(shown->rows(), 40);
    int32_t scrolled = 5;
    EXPECT_EQ(shown->document().scrollDown(10, scrolled), MODULE_NOTHING_THERE);
    EXPECT_EQ(scrolled, 0);
    EXPECT_EQ(shown->scrollUp(10), 0);
}

TEST_F(Flow, EveryPixelIsOpaqueAndRowsBelowTheTextAreWhite) {
    const auto shown = view(write("opaque.txt", "one line"), 320, 200);
    const int32_t used = shown->usedRows();
    for (const uint32_t pixel : shown->pixels()) {
        ASSERT_EQ(pixel >> 24, 0xFFU);
    }
    for (int32_t y = used; y < shown->height(); ++y) {
        ASSERT_EQ(inkOfRow(*shown, y), 0) << y;
    }
}

TEST_F(Flow, OverlappingStretchesShowTheSameRows) {
    for (const int32_t dpi : {72, 97, 144, 179, 287}) {
        const auto shown = lines(200, 320, 400, dpi);
        shown->scrollDown(1000);
        const std::vector<uint32_t> before = shown->repainted();
        shown->scrollDown(137);
        const std::vector<uint32_t> after = shown->repainted();
        EXPECT_TRUE(std::equal(before.begin() + 137 * 320, before.end(), after.begin())) << dpi;
        EXPECT_EQ(after, shown->pixels()) << dpi;
    }
}

TEST_F(Flow, MovesDownByWhatIsAskedAndUpByWhatThereIs) {
    const auto shown = lines(100);
    EXPECT_EQ(shown->scrollDown(300), 300);
    EXPECT_EQ(shown->scrollDown(77), 77);
    EXPECT_EQ(shown->scrollUp(100), 100);
    EXPECT_EQ(shown->scrollUp(1000), 277);
    EXPECT_EQ(shown->scrollUp(1), 0);
    EXPECT_EQ(shown->topLeft(), 0U);
}

TEST_F(Flow, TheEndIsReachedExactly) {
    const auto shown = lines(60);
    const int32_t rows = shown->rows();
    ASSERT_GT(rows, 1500);
    shown->scrollDown(rows - shown->height() - 1);
    EXPECT_LT(shown->bottomRight(), shown->count());
    EXPECT_EQ(shown->usedRows(), shown->height());
    shown->scrollDown(1);
    EXPECT_EQ(shown->bottomRight(), shown->count());
    EXPECT_EQ(shown->usedRows(), shown->height());
    int32_t scrolled = 5;
    EXPECT_EQ(shown->document().scrollDown(1, scrolled), MODULE_NOTHING_THERE);
    EXPECT_EQ(scrolled, 0);
}

TEST_F(Flow, AMoveMayGoPastTheEndIntoWhite) {
    const auto shown = lines(60);
    const int32_t rows = shown->rows();
    EXPECT_EQ(shown->scrollDown(rows - 20), rows - 20);
    EXPECT_EQ(shown->usedRows(), 20);
    EXPECT_EQ(shown->bottomRight(), shown->count());
    for (int32_t y = 20; y < shown->height(); ++y) {
        ASSERT_EQ(inkOfRow(*shown, y), 0) << y;
    }
    EXPECT_EQ(shown->scrollUp(rows), rows - 20);
}

TEST_F(Flow, AdjoiningStretchesShareTheirBoundaryCharacter) {
    const auto shown = lines(100);
    uint32_t boundary = shown->bottomRight();
    EXPECT_GT(boundary, 0U);
    for (int i = 0; i < 3; ++i) {
        shown->scrollDown(shown->height());
        EXPECT_EQ(shown->topLeft(), boundary);
        boundary = shown->bottomRight();
    }
}

TEST_F(Flow, AJumpPutsTheCharactersLineAtTheTop) {
    const auto shown = lines(100);
    for (const uint32_t position : {1'000U, 12'345U, 20'000U}) {
        ASSERT_EQ(shown->document().jumpToCharacter(0, position), MODULE_OK);
        const uint32_t top = shown->topLeft();
        EXPECT_LE(top, position);
        EXPECT_GT(top + 80, position);
        EXPECT_GT(inkOfRow(*shown, 7), 0);
    }
    ASSERT_EQ(shown->document().jumpToCharacter(0, 3), MODULE_OK);
    EXPECT_EQ(shown->topLeft(), 0U);
    ASSERT_EQ(shown->document().jumpToCharacter(0, shown->count()), MODULE_OK);
    EXPECT_EQ(shown->bottomRight(), shown->count());
    EXPECT_LT(shown->usedRows(), 40);
}

TEST_F(Flow, TheTopCharacterStaysThroughResolutionAndWidth) {
    const auto shown = lines(100);
    ASSERT_EQ(shown->document().jumpToCharacter(0, 15'000), MODULE_OK);
    for (const auto& [width, dpi] : {std::pair{320, 144}, {640, 72}, {200, 97}, {1000, 216}}) {
        const uint32_t top = shown->topLeft();
        shown->resize(width, 500, dpi);
        ASSERT_EQ(shown->document().jumpToCharacter(0, top), MODULE_OK);
        const std::vector<uint32_t> jumped = shown->pixels();
        EXPECT_EQ(jumped, shown->repainted());
        const uint32_t after = shown->topLeft();
        EXPECT_LE(after, top);
        EXPECT_GT(after + 200, top);
    }
}

TEST_F(Flow, ALayoutAgainShowsWhatAJumpToTheTopCharacterShows) {
    const auto shown = lines(100);
    shown->scrollDown(2'345);
    const uint32_t top = shown->topLeft();
    shown->resize(400, 300, 100);
    const uint32_t kept = shown->topLeft();
    const std::vector<uint32_t> pixels = shown->pixels();
    ASSERT_EQ(shown->document().jumpToCharacter(0, top), MODULE_OK);
    EXPECT_EQ(shown->pixels(), pixels);
    EXPECT_EQ(shown->topLeft(), kept);
}

TEST_F(Flow, AHigherResolutionMakesTextLargerAndWrapsIt) {
    const auto shown = lines(50);
    const int32_t small = shown->rows();
    shown->resize(320, 500, 144);
    EXPECT_GT(shown->rows(), small * 3);
    shown->resize(640, 500, 144);
    const int32_t wide = shown->rows();
    EXPECT_NEAR(wide, 2 * small, small / 20);
}

TEST_F(Flow, OnlyTheNextCallThatNeedsItLaysOut) {
    const auto shown = lines(50);
    shown->rows();
    EXPECT_TRUE(shown->document().takePainted());
    EXPECT_FALSE(shown->document().takePainted());
    shown->resize(300, 400, 90);
    EXPECT_EQ(shown->count(), shown->count());
    EXPECT_FALSE(shown->document().takePainted());
    EXPECT_EQ(shown->ink(), shown->width() * shown->height()) << "still as it was made";
    shown->usedRows();
    EXPECT_TRUE(shown->document().takePainted());
}

TEST_F(Flow, AnotherSurfaceForAWhileChangesNothing) {
    const auto shown = lines(50);
    shown->scrollDown(500);
    const std::vector<uint32_t> before = shown->pixels();
    std::vector<uint32_t> other(280 * 1000, 0x42);
    ASSERT_EQ(shown->document().setSurface(other.data(), 280, 1000), MODULE_OK);
    EXPECT_EQ(other, std::vector<uint32_t>(280 * 1000, 0x42));
    EXPECT_EQ(shown->repainted(), before);
}

TEST_F(Flow, PageBreaksLeaveNoGap) {
    DocxBuilder builder;
    builder.header("page header").paragraph("first page").pageBreak().paragraph("second page");
    builder.paragraph("third page", "<w:pageBreakBefore/>").paragraph("fourth");
    const auto shown = view(builder.write("breaks.docx"), 320, 400);
    EXPECT_LT(shown->rows(), 160);
    EXPECT_LT(widestGap(*shown), 50);
}

TEST_F(Flow, HeadersDoNotShow) {
    const auto plain = view(DocxBuilder().paragraph("text").write("plain.docx"), 320, 100);
    const auto headed =
        view(DocxBuilder().header("a header").paragraph("text").write("headed.docx"), 320, 100);
    EXPECT_EQ(headed->rows(), plain->rows());
    EXPECT_EQ(headed->pixels(), plain->pixels());
}

TEST_F(Flow, FootnoteTextDoesNotShow) {
    DocxBuilder with;
    DocxBuilder without;
    for (int i = 0; i < 5; ++i) {
        without.paragraph("noted1");
    }
    for (int i = 0; i < 5; ++i) {
        with.footnote("a footnote of some length, which would take a line or two");
    }
    const auto plain = view(without.write("unnoted.docx"), 320, 400);
    const auto noted = view(with.write("noted.docx"), 320, 400);
    EXPECT_EQ(noted->rows(), plain->rows());
    EXPECT_EQ(noted->bottomRight(), noted->count());
}

TEST_F(Flow, ALongPlainTextIsReachedToItsEnd) {
    std::string text;
    for (int i = 1; i <= 10'000; ++i) {
        text += "Paragraph number " + std::to_string(i) + " of a text of ten thousand.\n";
    }
    const auto shown = view(write("long.txt", text), 320, 1562);
    const int32_t rows = shown->rows();
    EXPECT_GT(rows, 10'000 * 11);
    EXPECT_LT(rows, 10'000 * 40);
    int32_t gap = 0;
    uint32_t last = 0;
    for (int32_t top = 0; top + shown->height() < rows; top += 1500) {
        gap = std::max(gap, widestGap(*shown));
        const uint32_t first = shown->topLeft();
        ASSERT_TRUE(first > last || top == 0) << first << " after " << last << " at row " << top;
        last = first;
        shown->scrollDown(1500);
    }
    EXPECT_LT(gap, 30);
    ASSERT_EQ(shown->document().jumpToCharacter(0, shown->count()), MODULE_OK);
    EXPECT_EQ(shown->bottomRight(), shown->count());
    EXPECT_LT(shown->usedRows(), 40);
}

TEST_F(Flow, RightToLeftAndEastAsianTextIsPainted) {
    const auto arabic = view(write("arabic.txt", "\xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7"), 200, 60);
    EXPECT_GT(arabic->ink(), 50);
    EXPECT_EQ(arabic->count(), 5U);
    const auto chinese =
        view(write("chinese.txt", "\xE4\xBD\xA0\xE5\xA5\xBD\xE4\xB8\x96\xE7\x95\x8C"), 200, 60);
    EXPECT_GT(chinese->ink(), 50);
    EXPECT_EQ(chinese->count(), 4U);
}

} // namespace lectern::engine::test
