// SPDX-License-Identifier: Apache-2.0
// Long texts are laid out in portions: first what the stretch needs, the rest
// when nothing else is to do, or when it is asked for.
#include "modules/ModuleResults.h"
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace lectern::engine::test {

namespace {

constexpr int PARAGRAPHS = 300;

std::string sentence(int number) {
    std::string text = "Paragraph " + std::to_string(number);
    for (int word = 0; word < 20 + number % 50; ++word) {
        text += " word" + std::to_string(word * number % 97);
    }
    return text + ".";
}

class LongText : public OfficeTest {
public:
    // Headings, paragraphs and small tables; "zebra" stands once near the end.
    static DocxBuilder builder() {
        DocxBuilder text;
        for (int i = 1; i <= PARAGRAPHS; ++i) {
            text.paragraph(sentence(i), i % 10 == 0 ? "<w:spacing w:before=\"400\"/>" : "");
            if (i % 40 == 0) {
                text.table(3, 2000, "cell");
            }
            if (i == PARAGRAPHS - 20) {
                text.paragraph("here is the zebra");
            }
        }
        return text;
    }
    static const std::filesystem::path& file() {
        static const std::filesystem::path path = builder().write("long.docx");
        return path;
    }
    // Nothing but the first stretch of it is laid out.
    static std::unique_ptr<View> opened(int32_t dpi = 72) {
        auto shown = view(file(), 320, 500, dpi);
        shown->usedRows();
        return shown;
    }
    static std::unique_ptr<View> wholeLayout(int32_t dpi = 72) {
        auto shown = view(file(), 320, 500, dpi);
        shown->rows();
        return shown;
    }
    static int prepareAll(View& shown) {
        int parts = 0;
        while (shown.document().prepareRest()) {
            ++parts;
        }
        return parts;
    }
    static uint32_t zebra(View& shown) {
        std::vector<CharacterRange> hits;
        EXPECT_EQ(shown.document().find(u"zebra", {0, shown.count()}, hits), MODULE_OK);
        EXPECT_EQ(hits.size(), 1U);
        return hits.empty() ? 0 : hits.front().start;
    }
};

} // namespace

TEST_F(LongText, TheFirstStretchIsLaidOutWithoutTheRest) {
    const auto shown = opened();
    const int portions = prepareAll(*shown);
    EXPECT_GT(portions, prepareAll(*wholeLayout()) + 5) << "the size of the whole text needs all of it";
}

TEST_F(LongText, IsNotPreparedBeforeAStretchIsShown) {
    const auto shown = view(file(), 320, 500);
    EXPECT_EQ(prepareAll(*shown), 0);
}

TEST_F(LongText, TheRowsShownStayWhenTheRestArrives) {
    const auto shown = opened();
    shown->scrollDown(700);
    const std::vector<uint32_t> before = shown->pixels();
    const StretchPlace place = shown->place();
    EXPECT_GT(prepareAll(*shown), 5);
    EXPECT_EQ(shown->repainted(), before);
    EXPECT_EQ(shown->topLeft(), place.topLeft);
    EXPECT_EQ(shown->bottomRight(), place.bottomRight);
    EXPECT_EQ(shown->scrollUp(10'000), 700);
}

TEST_F(LongText, LooksInPortionsAsWhenLaidOutAtOnce) {
    const auto inPortions = opened();
    const auto atOnce = wholeLayout();
    int32_t moves = 0;
    int32_t scrolled = 0;
    do {
        ASSERT_EQ(inPortions->pixels(), atOnce->pixels()) << moves;
        ASSERT_EQ(inPortions->topLeft(), atOnce->topLeft()) << moves;
        ASSERT_EQ(inPortions->bottomRight(), atOnce->bottomRight()) << moves;
        inPortions->document().prepareRest();
        ++moves;
        atOnce->document().scrollDown(450, scrolled);
    } while (inPortions->document().scrollDown(450, scrolled) == MODULE_OK);
    EXPECT_GT(moves, 30);
    EXPECT_EQ(inPortions->rows(), atOnce->rows());
}

TEST_F(LongText, ASearchFindsAHitInThePartNotLaidOutAndGoesThere) {
    const auto shown = opened();
    const uint32_t position = zebra(*shown);
    ASSERT_GT(position, shown->bottomRight());
    ASSERT_EQ(shown->document().jumpToCharacter(0, position), MODULE_OK);
    EXPECT_EQ(shown->topLeft(), position - std::string("here is the ").size());
    std::vector<FoundRegion> regions;
    ASSERT_EQ(shown->document().foundRegions(regions), MODULE_OK);
    ASSERT_EQ(regions.size(), 1U);
    EXPECT_EQ(regions.front().position, position);
    const auto atOnce = wholeLayout();
    zebra(*atOnce);
    ASSERT_EQ(atOnce->document().jumpToCharacter(0, position), MODULE_OK);
    EXPECT_EQ(shown->pixels(), atOnce->pixels());
}

TEST_F(LongText, AJumpToTheEndShowsTheEnd) {
    const auto shown = opened();
    ASSERT_EQ(shown->document().jumpToCharacter(0, shown->count()), MODULE_OK);
    EXPECT_EQ(shown->bottomRight(), shown->count());
    EXPECT_LT(shown->usedRows(), 60);
    int32_t scrolled = 0;
    EXPECT_EQ(shown->document().scrollDown(1, scrolled), MODULE_NOTHING_THERE);
}

TEST_F(LongText, AMovePastTheEndGoesAsFarAsAsked) {
    const auto shown = opened();
    EXPECT_EQ(shown->scrollDown(1'000'000), 1'000'000);
    EXPECT_EQ(shown->usedRows(), 0);
    EXPECT_EQ(shown->bottomRight(), shown->count());
}

TEST_F(LongText, AZoomLaysOutNoMoreThanItsStretchNeeds) {
    const auto shown = opened();
    prepareAll(*shown);
    shown->resize(320, 500, 144);
    shown->usedRows();
    EXPECT_GT(prepareAll(*shown), 5);
    shown->resize(320, 500, 72);
    ASSERT_EQ(shown->document().jumpToCharacter(0, 0), MODULE_OK);
    EXPECT_EQ(shown->pixels(), wholeLayout()->pixels());
}

TEST_F(LongText, AZoomBeforeTheRestIsLaidOutShowsTheSameAsAfter) {
    const auto early = opened();
    const auto late = wholeLayout();
    for (View* const shown : {early.get(), late.get()}) {
        ASSERT_EQ(shown->document().jumpToCharacter(0, 30'000), MODULE_OK);
        shown->resize(320, 500, 144);
        shown->usedRows();
    }
    EXPECT_EQ(early->pixels(), late->pixels());
    EXPECT_EQ(early->topLeft(), late->topLeft());
    EXPECT_EQ(early->rows(), late->rows());
}

// The stretch after every move, with the hits on it.
struct Moves {
    std::vector<std::vector<uint32_t>> pixels;
    std::vector<std::pair<uint32_t, uint32_t>> places;
    std::vector<std::vector<uint32_t>> hits;
    friend bool operator==(const Moves&, const Moves&) = default;
};

TEST_F(LongText, MovesPreparedWhileIdleShowTheSame) {
    const auto movesOf = [](bool prepares, const std::u16string& word) {
        const auto shown = wholeLayout();
        std::vector<CharacterRange> found;
        EXPECT_EQ(shown->document().find(word, {0, shown->count()}, found), MODULE_OK);
        Moves moves;
        const auto note = [&] {
            const StretchPlace place = shown->place();
            std::vector<FoundRegion> regions;
            EXPECT_EQ(shown->document().foundRegions(regions), MODULE_OK);
            std::vector<uint32_t> hits;
            for (const FoundRegion& region : regions) {
                hits.push_back(region.position);
            }
            moves.pixels.push_back(shown->pixels());
            moves.places.emplace_back(place.topLeft, place.bottomRight);
            moves.hits.push_back(hits);
            prepares ? prepareAll(*shown) : 0;
        };
        for (int i = 0; i < 8; ++i) {
            shown->scrollDown(167);
            note();
        }
        for (int i = 0; i < 5; ++i) {
            shown->scrollUp(167);
            note();
        }
        for (int i = 0; i < 4; ++i) {
            const uint32_t bottom = shown->bottomRight();
            const auto next = std::find_if(found.begin(), found.end(),
                                           [&](const CharacterRange& hit) { return hit.start >= bottom; });
            EXPECT_EQ(shown->document().jumpToCharacter(0, next == found.end() ? 0 : next->start), MODULE_OK);
            note();
        }
        // To each of two hits, the second one after a way that leaves the first.
        for (size_t i = 0; i < 2 && i < found.size(); ++i) {
            EXPECT_EQ(shown->document().jumpToCharacter(0, found[i].start), MODULE_OK);
            note();
            for (int j = 0; j < 8; ++j) {
                shown->scrollDown(167);
                note();
            }
        }
        return moves;
    };
    for (const std::u16string word : {u"word48", u"zebra", u"nowhere"}) {
        const Moves plain = movesOf(false, word);
        const Moves prepared = movesOf(true, word);
        EXPECT_EQ(plain.places, prepared.places);
        EXPECT_EQ(plain.hits, prepared.hits);
        EXPECT_EQ(plain.pixels == prepared.pixels, true);
    }
}

TEST_F(LongText, PreparationEndsAndBeginsAgainWithTheNextMove) {
    const auto shown = wholeLayout();
    shown->scrollDown(167);
    EXPECT_GT(prepareAll(*shown), 0);
    EXPECT_EQ(prepareAll(*shown), 0);
    shown->scrollDown(167);
    EXPECT_GT(prepareAll(*shown), 0);
}

TEST_F(LongText, WordsAndSelectionsAreThoseOfTheWholeText) {
    const auto wordsAndSelected = [](View& shown) {
        int32_t words = 0;
        EXPECT_EQ(shown.document().selectAll(), MODULE_OK);
        const std::vector<uint32_t> selected = shown.repainted();
        EXPECT_EQ(shown.document().wordCount(words), MODULE_OK);
        std::u16string text;
        EXPECT_EQ(shown.document().copySelection(text), MODULE_OK);
        return std::tuple(words, selected, text);
    };
    // The suite marks what is selected in the document that was opened last.
    const auto inPortions = wordsAndSelected(*opened());
    EXPECT_EQ(inPortions, wordsAndSelected(*wholeLayout()));
}

TEST_F(LongText, CountingWordsLaysOutNothing) {
    const auto shown = opened();
    const std::vector<uint32_t> before = shown->pixels();
    int32_t words = 0;
    ASSERT_EQ(shown->document().wordCount(words), MODULE_OK);
    EXPECT_GT(words, 10'000);
    EXPECT_EQ(shown->repainted(), before);
    EXPECT_GT(prepareAll(*shown), 10);
    EXPECT_EQ(shown->rows(), wholeLayout()->rows());
}

TEST_F(LongText, ANoteInThePartNotLaidOutCanBeShown) {
    const auto path = builder().footnote("a note far down").write("far-note.docx");
    const auto paintedNote = [&](bool whole) {
        const auto shown = view(path, 320, 500);
        whole ? shown->rows() : shown->usedRows();
        std::vector<uint32_t> popup(280 * 1000);
        EXPECT_EQ(shown->document().setSurface(popup.data(), 280, 1000), MODULE_OK);
        EXPECT_EQ(shown->document().openSecondary(ClickType::Footnote, 0, 950), MODULE_OK);
        return popup;
    };
    EXPECT_EQ(paintedNote(false), paintedNote(true));
}

TEST_F(LongText, ATextThatEndsInATableIsReachedToItsEnd) {
    const auto shown = view(builder().table(3, 2000, "last").write("table-end.docx"), 320, 500);
    shown->usedRows();
    ASSERT_EQ(shown->document().jumpToCharacter(0, shown->count()), MODULE_OK);
    EXPECT_EQ(shown->bottomRight(), shown->count());
}

TEST_F(LongText, SectionsOfTheTextStayWhole) {
    const std::string columns = "<w:p><w:pPr><w:sectPr><w:type w:val=\"continuous\"/>"
                                "<w:cols w:num=\"2\" w:space=\"400\"/></w:sectPr></w:pPr></w:p>";
    DocxBuilder text;
    for (int i = 1; i <= PARAGRAPHS; ++i) {
        text.paragraph(sentence(i));
        if (i % 100 == 0) {
            text.block(columns);
        }
    }
    text.paragraph("behind the columns");
    const auto path = text.write("columns.docx");
    const auto inPortions = view(path, 320, 500);
    const auto atOnce = view(path, 320, 500);
    const int32_t rows = atOnce->rows();
    for (int32_t top = 0; top + 1000 < rows; top += 1000) {
        inPortions->scrollDown(1000);
        atOnce->scrollDown(1000);
        ASSERT_EQ(inPortions->pixels(), atOnce->pixels()) << top;
        inPortions->document().prepareRest();
    }
    EXPECT_EQ(inPortions->rows(), rows);
}

} // namespace lectern::engine::test
