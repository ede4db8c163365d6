// SPDX-License-Identifier: Apache-2.0
#include "modules/ModuleResults.h"
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"

#include <cstring>

namespace lectern::engine::test {

namespace {

class Opening : public OfficeTest {};

// The same text in UTF-16.
std::string utf16(std::u16string_view text, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

constexpr char16_t SAMPLE_TEXT[] = u"R\u00e9sum\u00e9 na\u00efve\ntwo";

std::vector<uint32_t> paintedText(const std::filesystem::path& path) {
    const auto shown = OfficeTest::view(path, 200, 60);
    EXPECT_EQ(shown->count(), 16U) << path;
    EXPECT_GT(shown->usedRows(), 20) << path;
    EXPECT_GT(shown->ink(), 100) << path;
    return shown->pixels();
}

// A document whose second half is missing.
std::filesystem::path half() {
    const std::filesystem::path whole = std::filesystem::path(SAMPLES_FOLDER) / "tour.docx";
    std::filesystem::path path = testFolder() / "half.docx";
    std::filesystem::copy_file(whole, path, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(path, std::filesystem::file_size(whole) / 2);
    return path;
}

} // namespace

TEST_F(Opening, TextLooksTheSameInEveryEncoding) {
    const std::string utf8 = "R\xC3\xA9sum\xC3\xA9 na\xC3\xAFve\ntwo";
    const auto expected = paintedText(write("utf8.txt", utf8));
    EXPECT_EQ(paintedText(write("utf8-marked.txt", "\xEF\xBB\xBF" + utf8)), expected);
    EXPECT_EQ(paintedText(write("little.txt", utf16(SAMPLE_TEXT, false))), expected);
    EXPECT_EQ(paintedText(write("big.txt", utf16(SAMPLE_TEXT, true))), expected);
    const std::u16string marked = std::u16string(u"\uFEFF") + SAMPLE_TEXT;
    EXPECT_EQ(paintedText(write("little-marked.txt", utf16(marked, false))), expected);
    EXPECT_EQ(paintedText(write("big-marked.txt", utf16(marked, true))), expected);
    EXPECT_EQ(paintedText(write("latin1.txt", "R\xE9sum\xE9 na\xEFve\ntwo")), expected);
}

TEST_F(Opening, WindowsTextHasItsQuotesAndEuro) {
    const auto expected = view(write("quotes8.txt", "\xE2\x80\x9C\xE2\x82\xAC\xE2\x80\x9D"), 100, 30);
    const auto windows = view(write("quotes.TXT", "\x93\x80\x94"), 100, 30);
    EXPECT_EQ(windows->usedRows(), expected->usedRows());
    EXPECT_GT(windows->ink(), 10);
    EXPECT_EQ(windows->pixels(), expected->pixels());
}

TEST_F(Opening, TheCopyOfATranscodedTextIsGoneAfterwards) {
    const auto path = write("copies/latin1.txt", "caf\xE9");
    std::filesystem::create_directories(testFolder() / "copies/temporary");
    std::unique_ptr<WordDocument> document;
    ASSERT_EQ(WordDocument::open(office(), path, "", testFolder() / "copies/temporary", document), MODULE_OK);
    EXPECT_TRUE(std::filesystem::is_empty(testFolder() / "copies/temporary"));
}

TEST_F(Opening, AnEmptyTextIsADocumentOfOneEmptyLine) {
    const auto shown = view(write("empty.txt", ""), 200, 100);
    EXPECT_EQ(shown->count(), 0U);
    EXPECT_EQ(shown->topLeft(), 0U);
    EXPECT_EQ(shown->bottomRight(), 0U);
    EXPECT_GT(shown->usedRows(), 0);
    EXPECT_LT(shown->usedRows(), 40);
    EXPECT_EQ(shown->ink(), 0);
}

TEST_F(Opening, FileNamesMayHoldAnyCharacter) {
    for (const char* name :
         {"with space.txt", "100% #1?.txt", "a&b;c=d+e.txt", "\xC3\xA9t\xC3\xA9 \xE6\x97\xA5.txt",
          "quote'\"<>|.txt", "[brackets]{x}.txt", "back\\slash.txt", "new\nline.txt"}) {
        const auto shown = view(write(name, "named"), 200, 40);
        ASSERT_NE(shown, nullptr) << name;
        EXPECT_EQ(shown->count(), 5U) << name;
    }
}

TEST_F(Opening, NothingIsWrittenBesideTheDocument) {
    const auto path = write("alone/document.txt", "text");
    const auto shown = view(path, 200, 40);
    const std::filesystem::directory_iterator files(path.parent_path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(Opening, DamagedDocumentsAreRefused) {
    EXPECT_EQ(openResult(half()), MODULE_DAMAGED);
    EXPECT_EQ(openResult(write("rubbish.docx", std::string("PK\3\4") + std::string(500, '\x7F'))),
              MODULE_DAMAGED);
    EXPECT_EQ(openResult(write("nothing.docx", "")), MODULE_OK);
}

TEST_F(Opening, ASpreadsheetNamedDocIsOfTheWrongKind) {
    const auto path = testFolder() / "spreadsheet.doc";
    std::filesystem::copy_file(std::filesystem::path(SAMPLES_FOLDER) / "tour.xls", path);
    EXPECT_EQ(openResult(path), MODULE_WRONG_KIND);
}

TEST_F(Opening, ADocumentOpensAfterOnesThatFailed) {
    EXPECT_EQ(openResult(half()), MODULE_DAMAGED);
    const auto shown = view(write("after.txt", "still there"), 200, 40);
    EXPECT_EQ(shown->count(), 11U);
}

TEST_F(Opening, ArgumentsThatCannotBeAreRefused) {
    const auto shown = view(write("arguments.txt", "text"), 200, 40);
    WordDocument& document = shown->document();
    uint32_t pixel = 0;
    EXPECT_EQ(document.setSurface(nullptr, 10, 10), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(document.setSurface(&pixel, 0, 1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(document.setSurface(&pixel, 1, -1), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(document.setDpi(0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(document.jumpToCharacter(1, 0), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(document.jumpToCharacter(0, 5), MODULE_BAD_ARGUMENT);
    int32_t scrolled = 7;
    EXPECT_EQ(document.scrollDown(-1, scrolled), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(scrolled, 0);
    EXPECT_EQ(document.scrollUp(-1, scrolled), MODULE_BAD_ARGUMENT);
}

TEST_F(Opening, WhatNeedsASurfaceSaysSoWithoutOne) {
    std::unique_ptr<WordDocument> document;
    ASSERT_EQ(WordDocument::open(office(), write("bare.txt", "text"), "", testFolder(), document), MODULE_OK);
    StretchPlace place{9, 9, 9};
    EXPECT_EQ(document->stretchPlace(place), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(place.topLeft, 9U);
    uint32_t count = 9;
    EXPECT_EQ(document->characterCount(count), MODULE_OK);
    EXPECT_EQ(count, 4U);
    EXPECT_FALSE(document->takePainted());
}

} // namespace lectern::engine::test
