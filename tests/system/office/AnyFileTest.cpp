// SPDX-License-Identifier: Apache-2.0
// Opening files of any name by their contents.
#include "engine/office/Conversion.h"
#include "engine/office/DocumentLoading.h"
#include "engine/office/sheet/SheetDocument.h"
#include "engine/office/slide/SlideDocument.h"
#include "modules/ModuleResults.h"
#include "tests/system/office/OfficeFixture.h"

#include <filesystem>
#include <vector>

namespace lectern::engine::test {
namespace {

class AnyFileTest : public OfficeTest {
protected:
    // A sample in another format of the suite, under a name of its own.
    static std::filesystem::path made(const std::string& sample, const char* filter,
                                      const std::string& name) {
        LoadedModel loaded;
        EXPECT_EQ(
            loadModel(office().d(), std::string(SAMPLES_FOLDER) + "/" + sample, "", testFolder(), loaded),
            MODULE_OK);
        std::filesystem::path path = testFolder() / name;
        store(loaded.model, path, filter);
        return path;
    }
    static AnyFile any(const std::filesystem::path& path, const std::string& password = "") {
        return {path, password, testFolder(), {}};
    }
    template<class Document>
    static int32_t open(const std::filesystem::path& path, std::unique_ptr<Document>& document,
                        const std::string& password = "") {
        return Document::openAny(office(), any(path, password), document);
    }
    static std::u16string textOf(const std::filesystem::path& path) {
        std::unique_ptr<WordDocument> document;
        EXPECT_EQ(open(path, document), MODULE_OK) << path;
        std::u16string text;
        if (document) {
            std::vector<uint32_t> pixels(size_t{480} * 800);
            document->setSurface(pixels.data(), 480, 800);
            EXPECT_EQ(document->selectAll(), MODULE_OK) << path;
            EXPECT_EQ(document->copySelection(text), MODULE_OK) << path;
        }
        return text;
    }
    // The cells from the first on, with tabs and line feeds between them.
    static std::u16string cellsOf(const std::filesystem::path& path) {
        std::unique_ptr<SheetDocument> document;
        EXPECT_EQ(open(path, document), MODULE_OK) << path;
        std::u16string text;
        if (document) {
            EXPECT_EQ(document->selectArea(0, 0, 0, 100'000, 100'000), MODULE_OK);
            EXPECT_EQ(document->copySelection(text), MODULE_OK);
        }
        return text;
    }
    static std::u16string firstSheetOf(const std::filesystem::path& path) {
        std::unique_ptr<SheetDocument> document;
        EXPECT_EQ(open(path, document), MODULE_OK) << path;
        std::u16string title;
        EXPECT_EQ(document->title(0, title), MODULE_OK);
        return title;
    }
    static int32_t slidesOf(const std::filesystem::path& path) {
        std::unique_ptr<SlideDocument> document;
        int32_t count = -1;
        EXPECT_EQ(open(path, document), MODULE_OK) << path;
        if (document) {
            EXPECT_EQ(document->slideCount(count), MODULE_OK);
        }
        return count;
    }
};

TEST_F(AnyFileTest, TextsOfAllFormatsOpenUnderAnyName) {
    const struct {
        const char* filter;
        const char* name;
    } formats[] = {
        {"writer8", "text.odt"},
        {"writer8_template", "template.ott"},
        {"Rich Text Format", "text.rtf"},
        {"MS Word 2007 XML VBA", "macros.docm"},
        {"MS Word 2007 XML Template", "template.dotx"},
        {"MS Word 97 Vorlage", "template.dot"},
        {"OpenDocument Text Flat XML", "flat.fodt"},
        {"writer8", "no-extension"},
        {"MS Word 2007 XML", "packed.txt"},
        {"MS Word 97", "compound.csv"},
        {"Rich Text Format", "rich.txt"},
        {"writer8", "misnamed.xls"},
        {"MS Word 97", "misnamed.pdf"},
    };
    for (const auto& format : formats) {
        const std::u16string text = textOf(made("tour.docx", format.filter, format.name));
        EXPECT_NE(text.find(u"A Tour of the Harbour"), std::u16string::npos) << format.name;
        EXPECT_EQ(text.find(u"office:"), std::u16string::npos) << format.name;
    }
}

TEST_F(AnyFileTest, TextsWithoutAFormatAreTextsInAnyEncoding) {
    EXPECT_EQ(textOf(write("notes", "caf\xC3\xA9")), u"caf\u00E9");
    EXPECT_EQ(textOf(write("notes.log", "caf\xE9")), u"caf\u00E9");
    EXPECT_EQ(textOf(write("notes.odt", "plain words")), u"plain words");
    EXPECT_EQ(textOf(write("nothing", "")), u"");
}

TEST_F(AnyFileTest, HtmlIsATextAsWideAsTheScreen) {
    std::string words;
    for (int i = 0; i < 200; ++i) {
        words += "word ";
    }
    const std::string html =
        "<!DOCTYPE html><html><head><title>Ignored</title></head><body><h1>Heading</h1><p>" + words +
        "</p><table><tr><td>One</td><td>Two</td></tr></table></body></html>";
    for (const char* name : {"page.html", "page", "page.docx", "page.txt"}) {
        std::unique_ptr<WordDocument> document;
        ASSERT_EQ(open(write(name, html), document), MODULE_OK) << name;
        View view(std::move(document), 300, 800, 72);
        EXPECT_GT(view.rows(), 300) << "the lines are broken at the screen's width";
        EXPECT_GT(view.ink(0, 150), 1000);
        EXPECT_GT(view.ink(0, 20), 20) << "the margins of the page are gone";
        EXPECT_EQ(textOf(testFolder() / name).substr(0, 7), u"Heading") << name;
    }
}

TEST_F(AnyFileTest, WorkbooksOfAllFormatsOpenUnderAnyName) {
    const struct {
        const char* filter;
        const char* name;
    } formats[] = {
        {"calc8", "book.ods"},
        {"calc8_template", "template.ots"},
        {"Calc MS Excel 2007 VBA XML", "macros.xlsm"},
        {"Calc MS Excel 2007 XML Template", "template.xltx"},
        {"MS Excel 97 Vorlage/Template", "template.xlt"},
        {"calc8", "book"},
        {"Calc MS Excel 2007 XML", "packed.csv"},
        {"MS Excel 97", "compound.txt"},
        {"MS Excel 97", "misnamed.docx"},
    };
    const std::u16string title = firstSheetOf(std::filesystem::path(SAMPLES_FOLDER) / "tour.xlsx");
    for (const auto& format : formats) {
        EXPECT_EQ(firstSheetOf(made("tour.xlsx", format.filter, format.name)), title) << format.name;
    }
}

TEST_F(AnyFileTest, AListIsASheetWhateverSeparatesItsValues) {
    const std::u16string cells = u"city\tpeople\nBern\t134\nKöln, am Rhein\t1085";
    EXPECT_EQ(cellsOf(write("a.csv", "city,people\nBern,134\n\"K\xC3\xB6ln, am Rhein\",1085\n")), cells);
    EXPECT_EQ(cellsOf(write("b.csv", "city;people\r\nBern;134\r\nK\xF6ln, am Rhein;1085\r\n")), cells)
        << "in Windows-1252";
    EXPECT_EQ(cellsOf(write("c.tsv", "\xEF\xBB\xBF"
                                     "city\tpeople\nBern\t134\nK\xC3\xB6ln, am Rhein\t1085\n")),
              cells);
    EXPECT_EQ(cellsOf(write("d", "sep=|\ncity|people\nBern|134\nK\xC3\xB6ln, am Rhein|1085\n")), cells);
    EXPECT_EQ(cellsOf(write("e.xls", "city;people\nBern;134\nK\xC3\xB6ln, am Rhein;1085\n")), cells);
}

TEST_F(AnyFileTest, AListIsNamedAfterItsFileAndCalculatesNothing) {
    EXPECT_EQ(firstSheetOf(write("Cities of Europe.csv", "a,b\n")), u"Cities of Europe");
    EXPECT_EQ(firstSheetOf(write("odd [name]?.csv", "a,b\n")), u"Sheet1");
    EXPECT_EQ(cellsOf(write("formula.csv", "a,=1+1\n")), u"a\t=1+1");
}

TEST_F(AnyFileTest, ATableOfAWebPageIsASheet) {
    const std::string html = "<html><body><table><tr><td>One</td><td>2</td></tr></table></body></html>";
    EXPECT_EQ(cellsOf(write("table.xls", html)), u"One\t2");
}

TEST_F(AnyFileTest, PresentationsOfAllFormatsOpenUnderAnyName) {
    const struct {
        const char* filter;
        const char* name;
    } formats[] = {
        {"impress8", "slides.odp"},
        {"impress8_template", "template.otp"},
        {"MS PowerPoint 97", "show.pps"},
        {"MS PowerPoint 97 Vorlage", "template.pot"},
        {"Impress MS PowerPoint 2007 XML AutoPlay", "show.ppsx"},
        {"Impress MS PowerPoint 2007 XML VBA", "macros.pptm"},
        {"Impress MS PowerPoint 2007 XML Template", "template.potx"},
        {"impress8", "slides"},
        {"Impress MS PowerPoint 2007 XML", "packed.txt"},
    };
    for (const auto& format : formats) {
        EXPECT_EQ(slidesOf(made("tour.pptx", format.filter, format.name)), 7) << format.name;
    }
}

TEST_F(AnyFileTest, ProtectedPresentationsOpenWithTheirPassword) {
    const auto path = testFolder() / "protected";
    std::filesystem::copy_file(std::filesystem::path(SAMPLES_FOLDER) / "locked.pptx", path);
    std::unique_ptr<SlideDocument> document;
    EXPECT_EQ(open(path, document), MODULE_NEEDS_PASSWORD);
    EXPECT_EQ(open(path, document, "wrong"), MODULE_WRONG_PASSWORD);
    EXPECT_EQ(open(path, document, "harbour"), MODULE_OK);
}

TEST_F(AnyFileTest, WhatIsNoSuchDocumentIsRefused) {
    std::unique_ptr<WordDocument> text;
    std::unique_ptr<SheetDocument> sheet;
    std::unique_ptr<SlideDocument> slides;
    const std::filesystem::path samples(SAMPLES_FOLDER);
    EXPECT_EQ(open(samples / "tour.xlsx", text), MODULE_WRONG_KIND);
    EXPECT_EQ(open(samples / "tour.docx", sheet), MODULE_WRONG_KIND);
    EXPECT_EQ(open(samples / "tour.docx", slides), MODULE_WRONG_KIND);
    EXPECT_EQ(open(samples / "tour.txt", slides), MODULE_WRONG_KIND);
    EXPECT_EQ(open(write("binary", std::string("\x7F"
                                               "ELF\0\1\2\3",
                                               8) +
                                       std::string(500, '\2')),
                   text),
              MODULE_DAMAGED);
    const auto long_ = write("long", "a");
    std::filesystem::resize_file(long_, (std::uintmax_t{32} << 20) + 1);
    EXPECT_NE(open(long_, text), MODULE_OK);
}

TEST_F(AnyFileTest, TheLoadTellsItsProgress) {
    std::vector<int32_t> told;
    AnyFile file = any(made("tour.docx", "writer8", "progress.odt"));
    file.progress = [&](int32_t percent) { told.push_back(percent); };
    std::unique_ptr<WordDocument> document;
    ASSERT_EQ(WordDocument::openAny(office(), file, document), MODULE_OK);
    ASSERT_FALSE(told.empty());
    EXPECT_GT(told.back(), 50);
}

TEST_F(AnyFileTest, NoCopyStaysBehind) {
    std::filesystem::create_directories(testFolder() / "room");
    std::unique_ptr<SheetDocument> sheet;
    AnyFile list = any(write("room.csv", "a;b\n1;2\n"));
    list.temporaryDirectory = testFolder() / "room";
    EXPECT_EQ(SheetDocument::openAny(office(), list, sheet), MODULE_OK);
    sheet.reset();
    EXPECT_TRUE(std::filesystem::is_empty(list.temporaryDirectory));
}

} // namespace
} // namespace lectern::engine::test
