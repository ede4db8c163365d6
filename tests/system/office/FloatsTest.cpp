// SPDX-License-Identifier: Apache-2.0
// Frames, text boxes, drawings and pictures that stand beside the text on paper.
#include "tests/system/office/Floats.h"

#include "modules/ModuleResults.h"
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"

#include <algorithm>
#include <tuple>

namespace lectern::engine::test {

namespace {

// Words that occur in no other one.
constexpr char LINES[] = "some text that takes some lines or more on every screen, because it goes on and on "
                         "and says nothing that anybody would want to know about anything at all, ";

struct Screen {
    int32_t width;
    int32_t dpi;
};
constexpr Screen SCREENS[] = {{480, 72}, {480, 144}, {320, 216}, {1080, 72}};
constexpr int32_t HEIGHT = 4000;
constexpr int MOST_QUESTIONS = 50;

bool overlap(const PixelRect& a, const PixelRect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

class Floats : public OfficeTest {
public:
    static std::unique_ptr<View> shown(const std::string& body, const std::string& name,
                                       Screen screen = {480, 72}) {
        return view(DocxBuilder().body(body).write(name + ".docx"), screen.width, HEIGHT, screen.dpi);
    }

    // The place of a word that occurs once. The suite may tell the place of a hit
    // too late when the machine is busy; then it is asked again.
    static PixelRect placeOf(View& view, const std::string& word) {
        const std::u16string text(word.begin(), word.end());
        std::vector<CharacterRange> hits;
        std::vector<FoundRegion> regions;
        for (int i = 0; i < MOST_QUESTIONS && regions.empty(); ++i) {
            EXPECT_EQ(view.document().find(text, {0, view.count()}, hits), MODULE_OK);
            EXPECT_EQ(view.document().foundRegions(regions), MODULE_OK);
            view.document().stopFind();
        }
        EXPECT_EQ(hits.size(), 1U) << word;
        EXPECT_EQ(regions.size(), 1U) << word;
        if (regions.size() != 1 || regions.front().rectangles.empty()) {
            return {};
        }
        return regions.front().rectangles.front();
    }

    // Whether the word's letters are seen: neither nothing nor a filled area.
    static void expectLetters(const View& view, const PixelRect& place, const std::string& word) {
        int dark = 0;
        for (int32_t y = place.y; y < place.y + place.height; ++y) {
            for (int32_t x = place.x; x < place.x + place.width; ++x) {
                dark += (view.at(x, y) & 0xFF) < 0x80 ? 1 : 0;
            }
        }
        EXPECT_GT(dark, place.width * place.height / 40) << word;
        EXPECT_LT(dark, place.width * place.height / 2) << word;
    }

    // On every screen the words are painted in this order, nothing covers them,
    // and nothing is wider than the text.
    static void expectInOrder(const std::string& body, const std::vector<std::string>& words) {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        for (const Screen& screen : SCREENS) {
            SCOPED_TRACE(std::to_string(screen.width) + " at " + std::to_string(screen.dpi));
            const auto document = shown(body, name, screen);
            ASSERT_LT(document->rows(), HEIGHT);
            std::vector<PixelRect> places;
            for (const std::string& word : words) {
                places.push_back(placeOf(*document, word));
                expectLetters(*document, places.back(), word);
            }
            for (size_t i = 1; i < places.size(); ++i) {
                const PixelRect& a = places[i - 1];
                const PixelRect& b = places[i];
                EXPECT_LT(std::tuple(a.y, a.x), std::tuple(b.y, b.x)) << words[i - 1] << ", " << words[i];
                for (size_t j = 0; j < i; ++j) {
                    EXPECT_FALSE(overlap(places[j], b)) << words[j] << ", " << words[i];
                }
            }
            const int32_t margin = screen.dpi / 36;
            EXPECT_EQ(document->ink(0, margin), 0);
            EXPECT_EQ(document->ink(screen.width - margin, screen.width), 0);
        }
    }

    // The body looks as if the drawing were not there.
    static void expectNothingOf(const std::string& drawing, const std::string& word) {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        const std::string after = paragraphOf(word) + paragraphOf(LINES);
        const auto with = shown("<w:p>" + drawing + "</w:p>" + after, name);
        const auto without = shown("<w:p/>" + after, name + "-without");
        with->rows();
        without->rows();
        EXPECT_EQ(with->pixels(), without->pixels());
    }
};

std::string after(const std::string& run, const std::string& text) {
    return "<w:p>" + run + "<w:r><w:t xml:space=\"preserve\">" + text + "</w:t></w:r></w:p>";
}

} // namespace

TEST_F(Floats, AColumnPlacedOnThePageIsReadBeforeTheText) {
    const std::string column = paragraphOf("skills") + paragraphOf("address") + paragraphOf("hobbies");
    const std::string body = after(box({0.3, 0.5, true}, 2, 9, column), std::string(LINES) + "career") +
                             paragraphOf(std::string(LINES) + "school");
    expectInOrder(body, {"skills", "address", "hobbies", "career", "school"});
}

TEST_F(Floats, AFramePlacedOnThePageIsReadBeforeTheText) {
    const std::string body = paragraphOf("skills", frameProperties()) +
                             paragraphOf("address", frameProperties()) +
                             paragraphOf(std::string(LINES) + "career");
    expectInOrder(body, {"skills", "address", "career"});
}

TEST_F(Floats, ABoxIsAsWideAsTheText) {
    const auto document =
        shown(after(box({0, 0}, 1, 1, paragraphOf("boxed"), {"CCDDFF", false, false}), LINES), "wide");
    document->rows();
    const PixelRect word = placeOf(*document, "boxed");
    for (const int32_t x : {8, 240, 470}) {
        EXPECT_EQ(document->at(x, word.y) & 0xFFFFFF, 0xCCDDFFU) << x;
    }
}

TEST_F(Floats, WhiteLettersWithoutABackgroundAreSeen) {
    const std::string pale =
        "<w:p><w:r><w:rPr><w:color w:val=\"FFFFFF\"/></w:rPr><w:t>pale</w:t></w:r></w:p>";
    const auto document = shown(after(box({0, 0}, 2, 1, pale, {"", false, false}), "dark"), "pale");
    document->rows();
    const PixelRect word = placeOf(*document, "pale");
    int white = 0;
    for (int32_t y = word.y; y < word.y + word.height; ++y) {
        for (int32_t x = word.x; x < word.x + word.width; ++x) {
            white += (document->at(x, y) & 0xFF) > 0x80 ? 1 : 0;
        }
    }
    EXPECT_GT(white, 10);
    EXPECT_LT(white, word.width * word.height / 2);
}

TEST_F(Floats, ABoxBelowItsParagraphIsReadAfterIt) {
    const std::string body = after(oldBox(0.4, paragraphOf("boxed")), "anchor") + paragraphOf("") +
                             paragraphOf("") + paragraphOf(std::string(LINES) + "behind");
    expectInOrder(body, {"anchor", "boxed", "behind"});
}

TEST_F(Floats, ABoxBelowTheLastParagraphIsReadLast) {
    expectInOrder(after(box({0, 1}, 2, 1, paragraphOf("boxed")), "anchor"), {"anchor", "boxed"});
}

TEST_F(Floats, BoxesSideBySideAreReadFromLeftToRight) {
    const std::string boxes = box({3.5, 0}, 3, 1, paragraphOf("right")) +
                              box({0, 0.02}, 3, 1, paragraphOf("left")) +
                              box({0, 1.5}, 3, 1, paragraphOf("under"));
    expectInOrder(after(boxes, "anchor") + paragraphOf("last"), {"left", "right", "anchor", "last", "under"});
}

TEST_F(Floats, ABoxInACellStaysInTheCell) {
    const std::string boxed = box({0.1, 0.1}, 4, 0.5, paragraphOf("boxed"));
    const std::string table = "<w:tbl><w:tblPr/><w:tblGrid><w:gridCol w:w=\"4500\"/><w:gridCol w:w=\"4500\"/>"
                              "</w:tblGrid><w:tr><w:tc><w:tcPr/>" +
                              after(boxed, "cell") + "</w:tc><w:tc><w:tcPr/>" + paragraphOf("beside") +
                              paragraphOf("") + "</w:tc></w:tr></w:tbl>";
    expectInOrder(paragraphOf("before") + table + paragraphOf("after"), {"before", "boxed", "cell", "after"});
}

TEST_F(Floats, ATableInABoxIsRead) {
    const std::string boxed = paragraphOf("over") + plainTable({"one", "two"}, false) + paragraphOf("under");
    expectInOrder(after(box({0, 0}, 3, 1, boxed), "anchor"), {"over", "one", "two", "under", "anchor"});
}

TEST_F(Floats, AFloatingTableIsPartOfTheText) {
    expectInOrder(paragraphOf("before") + plainTable({"one", "two"}, true) + paragraphOf(LINES) +
                      paragraphOf("after"),
                  {"before", "one", "two", "after"});
}

TEST_F(Floats, TheTextsOfAGroupAreReadFromLeftToRight) {
    expectInOrder(after(groupOfBoxes({0, 0}, {"third", "second", "first"}), "anchor"),
                  {"first", "second", "third", "anchor"});
}

TEST_F(Floats, AGroupInALineStaysThere) {
    const auto document = shown(after(groupInLine(), "word"), "line-group");
    document->rows();
    EXPECT_GT(document->ink(), 2 * 70 * 70);
    EXPECT_GT(document->ink(222, 300), 20) << "the word stands beside it";
    EXPECT_LT(document->rows(), 72 + 20);
}

TEST_F(Floats, LinesOfAFixedHeightMakeRoomForWhatIsHigher) {
    const std::string exact = "<w:spacing w:line=\"120\" w:lineRule=\"exact\"/>";
    expectInOrder(paragraphOf("first", exact) + paragraphOf("second", exact) + paragraphOf("third", exact),
                  {"first", "second", "third"});
}

TEST_F(Floats, WordsLeftOfTheTextAreSeen) {
    const std::string outside = "<w:ind w:left=\"-1000\" w:right=\"-1000\"/>";
    const std::string hanging = "<w:ind w:left=\"200\" w:hanging=\"900\"/>";
    expectInOrder(paragraphOf("outside", outside) + paragraphOf("hanging", hanging), {"outside", "hanging"});
}

TEST_F(Floats, APictureBesideTheTextDoesNotBreakItsLines) {
    DocxBuilder builder;
    builder.paragraph("before").picture(2, 2, false).paragraph("after");
    const auto document = view(builder.write("beside.docx"), 480, 600);
    document->rows();
    EXPECT_GT(placeOf(*document, "after").y, placeOf(*document, "before").y + 144);
}

TEST_F(Floats, ABoxDrawnAroundTextGoes) {
    expectNothingOf(box({0, 0.1}, 5, 0.6, ""), "heading");
}

TEST_F(Floats, ADrawingBehindTextGoes) {
    expectNothingOf(box({0, 0.1}, 5, 0.6, "", {"FFEE88", true, true}), "heading");
}

TEST_F(Floats, ADrawingThatHidesNoTextStays) {
    const auto document = shown(after(box({0, 0.1}, 2, 1, "", {"112233", false, false}), ""), "stays");
    document->rows();
    EXPECT_GT(document->ink(), 140 * 70);
}

TEST_F(Floats, NothingStandsForAPictureThatIsNotThere) {
    expectNothingOf(linkedPicture(3, 2), "word");
}

TEST_F(Floats, NoLinesAreDrawnAroundCellsWithoutBorders) {
    const auto document = shown(plainTable({" ", " ", " "}, false) + paragraphOf(""), "plain-table");
    document->rows();
    EXPECT_EQ(document->ink(), 0);
    EXPECT_EQ(std::count(document->pixels().begin(), document->pixels().end(), 0xFFFFFFFF),
              static_cast<int64_t>(document->pixels().size()));
}

TEST_F(Floats, TheCornersOfThePageAreWhite) {
    const auto document = shown(paragraphOf(""), "empty");
    document->rows();
    EXPECT_EQ(std::count(document->pixels().begin(), document->pixels().end(), 0xFFFFFFFF),
              static_cast<int64_t>(document->pixels().size()));
}

TEST_F(Floats, ACommentLeavesNoMarkInTheText) {
    DocxBuilder with;
    const auto commented = view(with.comment("word", "a comment").write("commented.docx"), 480, 200);
    const auto plain = view(DocxBuilder().paragraph("word").write("uncommented.docx"), 480, 200);
    commented->rows();
    plain->rows();
    EXPECT_EQ(commented->pixels(), plain->pixels());
}

} // namespace lectern::engine::test
