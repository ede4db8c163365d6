// SPDX-License-Identifier: Apache-2.0
// Which text of a document is found, counted and marked.
#include "modules/ModuleResults.h"
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"

#include <algorithm>

namespace lectern::engine::test {

namespace {

constexpr char CHANGED[] = " w:author=\"A\" w:date=\"2020-01-01T00:00:00Z\"";

std::string run(const std::string& text, const std::string& properties = "") {
    return "<w:r><w:rPr>" + properties + "</w:rPr><w:t xml:space=\"preserve\">" + text + "</w:t></w:r>";
}

std::string paragraph(const std::string& runs, const std::string& properties = "") {
    return "<w:p><w:pPr>" + properties + "</w:pPr>" + runs + "</w:p>";
}

std::string control(const std::string& contents, const std::string& properties = "") {
    return "<w:sdt><w:sdtPr>" + properties + "</w:sdtPr><w:sdtContent>" + contents +
           "</w:sdtContent></w:sdt>";
}

std::string cell(const std::string& contents) {
    return "<w:tc><w:tcPr><w:tcW w:w=\"3000\" w:type=\"dxa\"/></w:tcPr>" + contents + "</w:tc>";
}

std::string tableRow(const std::string& cells) {
    return "<w:tbl><w:tblGrid><w:gridCol w:w=\"3000\"/><w:gridCol w:w=\"3000\"/></w:tblGrid><w:tr>" + cells +
           "</w:tr></w:tbl>";
}

std::string field(const std::string& instruction, const std::string& result) {
    const auto sign = [](const std::string& type) {
        return "<w:r><w:fldChar w:fldCharType=\"" + type + "\"/></w:r>";
    };
    return sign("begin") + "<w:r><w:instrText xml:space=\"preserve\">" + instruction +
           "</w:instrText></w:r>" + sign("separate") + run(result) + sign("end");
}

std::string deletion(const std::string& text) {
    return "<w:del w:id=\"1\"" + std::string(CHANGED) + "><w:r><w:delText xml:space=\"preserve\">" + text +
           "</w:delText></w:r></w:del>";
}

std::string insertion(const std::string& text) {
    return "<w:ins w:id=\"2\"" + std::string(CHANGED) + ">" + run(text) + "</w:ins>";
}

std::string vml(const std::string& shape) {
    return paragraph("<w:r><w:pict xmlns:v=\"urn:schemas-microsoft-com:vml\">" + shape + "</w:pict></w:r>");
}

class ShownText : public OfficeTest {
public:
    static std::vector<CharacterRange> hits(View& view, const std::u16string& text) {
        std::vector<CharacterRange> found;
        EXPECT_EQ(view.document().find(text, {0, view.count()}, found), MODULE_OK);
        return found;
    }

    static std::u16string all(View& view) {
        std::u16string text;
        EXPECT_EQ(view.document().selectAll(), MODULE_OK);
        EXPECT_EQ(view.document().copySelection(text), MODULE_OK);
        EXPECT_EQ(view.document().clearSelection(), MODULE_OK);
        return text;
    }

    // The first rectangles of the hits in a document that is shown whole.
    static std::vector<PixelRect> marks(View& view, const std::u16string& text) {
        view.rows();
        EXPECT_FALSE(hits(view, text).empty());
        std::vector<FoundRegion> regions;
        EXPECT_EQ(view.document().foundRegions(regions), MODULE_OK);
        std::vector<PixelRect> rectangles;
        for (const FoundRegion& region : regions) {
            rectangles.push_back(region.rectangles.front());
        }
        return rectangles;
    }

    static ClickTarget tap(View& view, const std::u16string& text) {
        const std::vector<PixelRect> found = marks(view, text);
        ClickTarget target;
        if (!found.empty()) {
            const PixelRect& mark = found.front();
            EXPECT_EQ(view.document().clickInfo(mark.x + mark.width / 2, mark.y + mark.height / 2, target),
                      MODULE_OK);
        }
        return target;
    }
};

} // namespace

TEST_F(ShownText, HasTrackedInsertionsAndNoTrackedDeletions) {
    const auto shown =
        view(DocxBuilder()
                 .block(paragraph(run("kept ") + deletion("withdrawn ") + insertion("added ") + run("words")))
                 .paragraph("end")
                 .write("tracked.docx"));
    EXPECT_EQ(all(*shown), u"kept added words\nend");
    EXPECT_TRUE(hits(*shown, u"withdrawn").empty());
    EXPECT_EQ(marks(*shown, u"added words").size(), 1U);
}

TEST_F(ShownText, OfAProtectedDocumentHasNoTrackedDeletions) {
    const auto shown = view(DocxBuilder()
                                .block(paragraph(run("kept ") + deletion("withdrawn ") + insertion("added")))
                                .protect()
                                .write("protected.docx"));
    EXPECT_EQ(all(*shown), u"kept added");
    const std::vector<PixelRect> found = marks(*shown, u"added");
    const auto plain = view(DocxBuilder().paragraph("kept added").write("unprotected.docx"));
    EXPECT_EQ(found, marks(*plain, u"added"));
    EXPECT_EQ(shown->pixels(), plain->pixels());
}

TEST_F(ShownText, PaintsTrackedInsertionsAsOrdinaryText) {
    const auto tracked =
        view(DocxBuilder().block(paragraph(insertion("added") + deletion(" gone"))).write("inserted.docx"));
    const auto plain = view(DocxBuilder().paragraph("added").write("plain.docx"));
    tracked->rows();
    plain->rows();
    EXPECT_EQ(tracked->pixels(), plain->pixels());
}

TEST_F(ShownText, HasNoHiddenLetters) {
    const auto shown = view(DocxBuilder()
                                .block(paragraph(run("com") + run("secret", "<w:vanish/>") + run("bined")))
                                .write("hidden.docx"));
    EXPECT_EQ(all(*shown), u"combined");
    EXPECT_EQ(marks(*shown, u"combined").size(), 1U);
}

TEST_F(ShownText, OfAFieldIsMarkedLetterByLetter) {
    const auto shown = view(DocxBuilder()
                                .block(paragraph(field(" MERGEFIELD x ", "first middle last")))
                                .paragraph("end")
                                .write("field.docx"));
    const PixelRect whole = marks(*shown, u"first middle last").front();
    const PixelRect middle = marks(*shown, u"middle").front();
    const PixelRect last = marks(*shown, u"last").front();
    EXPECT_GT(middle.x, whole.x);
    EXPECT_LT(middle.width, whole.width / 2);
    EXPECT_GE(last.x, middle.x + middle.width);
    EXPECT_NEAR(last.x + last.width, whole.x + whole.width, 2);
}

TEST_F(ShownText, OfAContentControlIsMarkedLetterByLetter) {
    const std::string inside = control(paragraph(run("in control of words")));
    const std::string inLine = paragraph(control(run("begin in line")) + run(" outside"));
    const auto shown = view(DocxBuilder().block(inside + inLine).paragraph("end").write("control.docx"));
    const std::vector<PixelRect> found = marks(*shown, u"in ");
    ASSERT_EQ(found.size(), 3U) << "in control, begin in, in line";
    for (const PixelRect& mark : found) {
        EXPECT_LT(mark.width, 20);
    }
    EXPECT_EQ(marks(*shown, u"of words").size(), 1U);
    EXPECT_EQ(marks(*shown, u"line outside").size(), 1U);
}

TEST_F(ShownText, IsFoundAgainAndAgainBehindAControlAroundATable) {
    const std::string cells = control(cell(paragraph(run("title alpha")))) + cell(paragraph(run("beta")));
    const std::string cover = control(tableRow(cells) + paragraph(run("in the cover alpha")));
    const auto shown =
        view(DocxBuilder().block(cover).paragraph("behind it alpha").write("cover.docx"), 480, 400);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(marks(*shown, u"alpha").size(), 3U);
        EXPECT_EQ(marks(*shown, u"beta").size(), 1U);
        EXPECT_EQ(shown->document().stopFind(), MODULE_OK);
    }
}

TEST_F(ShownText, HasTheTextsOfShapesInAGroup) {
    const auto box = [](const std::string& shape, int left, const std::string& text) {
        return "<v:" + shape + " style=\"position:absolute;left:" + std::to_string(left) +
               ";top:0;width:1400;height:900\"><v:textbox><w:txbxContent>" + paragraph(run(text)) +
               "</w:txbxContent></v:textbox></v:" + shape + ">";
    };
    const auto shown =
        view(DocxBuilder()
                 .block(vml("<v:group style=\"position:absolute;width:300pt;height:100pt\" "
                            "coordsize=\"3000,1000\">" +
                            box("rect", 0, "left inside") + box("oval", 1500, "right inside") + "</v:group>"))
                 .paragraph("end")
                 .write("group.docx"));
    EXPECT_EQ(all(*shown), u"left inside\nright inside\n\nend") << "before the paragraph of the group";
    EXPECT_EQ(marks(*shown, u"inside").size(), 2U);
}

TEST_F(ShownText, HasTheLettersOfADrawing) {
    const auto shown =
        view(DocxBuilder()
                 .block(vml("<v:shapetype id=\"_x0000_t136\" coordsize=\"21600,21600\" "
                            "xmlns:o=\"urn:schemas-microsoft-com:office:office\" o:spt=\"136\" adj=\"10800\" "
                            "path=\"m@7,l@8,m@5,21600l@6,21600e\"><v:path textpathok=\"t\"/>"
                            "<v:textpath on=\"t\" fitshape=\"t\"/></v:shapetype><v:shape "
                            "type=\"#_x0000_t136\" style=\"width:200pt;height:50pt\"><v:textpath "
                            "string=\"Harbour feast\"/></v:shape>"))
                 .paragraph("end")
                 .write("drawn.docx"));
    const std::vector<PixelRect> found = marks(*shown, u"feast");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_GT(found.front().width, 150) << "the drawing is marked";
}

TEST_F(ShownText, HasReadingsBehindTheirParagraph) {
    const auto shown =
        view(DocxBuilder()
                 .block(paragraph(run("before ") +
                                  "<w:r><w:ruby><w:rubyPr><w:hps w:val=\"10\"/><w:hpsBaseText w:val=\"21\"/>"
                                  "<w:lid w:val=\"ja-JP\"/></w:rubyPr><w:rt>" +
                                  run("reading") + "</w:rt><w:rubyBase>" + run("base") +
                                  "</w:rubyBase></w:ruby></w:r>" + run(" after")))
                 .paragraph("end")
                 .write("ruby.docx"));
    EXPECT_EQ(all(*shown), u"before base after\nreading\nend");
    EXPECT_EQ(marks(*shown, u"reading").front().x, marks(*shown, u"base").front().x);
}

TEST_F(ShownText, CountsNoListLabelsAsWords) {
    const auto shown = view(DocxBuilder()
                                .paragraph("two words")
                                .listItem("first item", "Step %1 of it:")
                                .listItem("second item", "Step %1 of it:")
                                .write("list.docx"));
    int32_t words = 0;
    ASSERT_EQ(shown->document().wordCount(words), MODULE_OK);
    EXPECT_EQ(words, 6);
}

TEST_F(ShownText, OfAContentsEntryIsALinkWhateverNumberStandsBeforeATab) {
    const std::string tab = "<w:r><w:tab/></w:r>";
    const auto entry = [&](const std::string& number, const std::string& text, const std::string& before) {
        return paragraph(before + run(number) + tab + run(text) + tab + run("1"));
    };
    const std::string start =
        "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText> TOC \\o \"1-3\" "
        "</w:instrText></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r>";
    const std::string heading = "<w:outlineLvl w:val=\"0\"/>";
    const auto shown = view(DocxBuilder()
                                .block(entry("1", "Tides of spring", start) + entry("A.1", "Lost boats", "") +
                                       paragraph("<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>"))
                                .paragraph("Tides of spring", heading)
                                .paragraph("Lost boats", heading)
                                .write("contents.docx"));
    const std::u16string text = all(*shown);
    for (const char16_t* const title : {u"Tides of spring", u"Lost boats"}) {
        const ClickTarget target = tap(*shown, title);
        EXPECT_EQ(target.type, ClickType::InternalLink);
        EXPECT_EQ(target.value, text.rfind(title));
    }
}

TEST_F(ShownText, BeforeACommentOnAPointOpensItWithTheWholeWord) {
    const auto shown = view(DocxBuilder().commentedPoint("before remarkable", "said").write("point.docx"));
    EXPECT_EQ(tap(*shown, u"rema").type, ClickType::Comment);
    EXPECT_EQ(tap(*shown, u"befo").type, ClickType::Nothing);
}

TEST_F(ShownText, OfANoteTooLongForThePopUpIsShownInSmallerLetters) {
    std::string note;
    for (int i = 0; i < 260; ++i) {
        note += "many words in a note ";
    }
    const auto shown = view(DocxBuilder().footnote(note + "THEEND").write("note.docx"), 280, 1000);
    shown->rows();
    ASSERT_EQ(shown->document().openSecondary(ClickType::Footnote, 0, 950), MODULE_OK);
    int32_t last = 0;
    for (int32_t y = 0; y < shown->height(); ++y) {
        for (int32_t x = 0; x < shown->width(); ++x) {
            last = shown->isWhite(x, y) ? last : y;
        }
    }
    EXPECT_GT(last, 500);
    EXPECT_LT(last, 990) << "rows are left below the note's end";
}

} // namespace lectern::engine::test
