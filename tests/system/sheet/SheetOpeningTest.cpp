// SPDX-License-Identifier: Apache-2.0
// Files that open, and files that do not.

#include "tests/system/sheet/WorkbookView.h"
#include "tests/system/support/Subprocess.h"

#include <filesystem>

namespace lectern::test {
namespace {

std::int32_t openResult(const std::string& path, const std::string& password = "") {
    WorkbookHandle workbook;
    const std::int32_t result = workbook.open(path, "/tmp", password);
    EXPECT_EQ(workbook.get() != nullptr, result == MODULE_OK);
    return result;
}

TEST(SheetOpeningTest, APasswordIsAskedForAndChecked) {
    for (const char* name : {"locked.xlsx", "locked.xls"}) {
        EXPECT_EQ(openResult(sample(name)), MODULE_NEEDS_PASSWORD) << name;
        EXPECT_EQ(openResult(sample(name), "lighthouse"), MODULE_WRONG_PASSWORD) << name;
        EXPECT_EQ(openResult(sample(name), "harbour"), MODULE_OK) << name;
    }
    EXPECT_EQ(openResult(sample("tour.xlsx"), "not needed"), MODULE_OK);
}

TEST(SheetOpeningTest, APasswordIsAskedForUnderWhateverPath) {
    for (const char* detour : {"./locked.xls", "../samples/locked.xls", "/locked.xls"}) {
        EXPECT_EQ(openResult(sample(detour)), MODULE_NEEDS_PASSWORD) << detour;
        EXPECT_EQ(openResult(sample(detour), "harbour"), MODULE_OK) << detour;
    }
}

TEST(SheetOpeningTest, APathBackFromALinkLeadsWhereTheSystemSays) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder.path() + "/here/below");
    std::filesystem::create_directory(folder.path() + "/there");
    std::filesystem::create_directory_symlink(folder.path() + "/here/below", folder.path() + "/there/link");
    std::filesystem::copy_file(sample("tour.xlsx"), folder.path() + "/here/book.xlsx");
    EXPECT_EQ(openResult(folder.path() + "/there/link/../book.xlsx"), MODULE_OK);
}

TEST(SheetOpeningTest, DamagedFilesAreRefused) {
    const std::string whole = readFile(sample("tour.xlsx"));
    const std::string old = readFile(sample("tour.xls"));
    EXPECT_EQ(openResult(written("cut.xlsx", whole.substr(0, whole.size() / 2))), MODULE_DAMAGED);
    std::string holed = whole;
    holed.replace(holed.size() / 3, holed.size() / 3, holed.size() / 3, '\0');
    // The suite may recover a part of this file.
    const std::int32_t result = openResult(written("holed.xlsx", holed));
    EXPECT_TRUE(result == MODULE_OK || result == MODULE_DAMAGED) << result;
    EXPECT_NE(openResult(written("cut.xls", old.substr(0, 600))), MODULE_OK);
    EXPECT_NE(openResult(written("head.xlsx", "PK\x03\x04 and nothing more")), MODULE_OK);
}

// An old workbook whose bytes at `place` behind the first `mark` are others.
std::string changedXls(const std::string& name, const std::string& mark, std::size_t place,
                       const std::string& bytes) {
    std::string file = readFile(sample("tour.xls"));
    const std::size_t at = file.find(mark);
    EXPECT_NE(at, std::string::npos);
    file.replace(at + place, bytes.size(), bytes);
    return written(name, file);
}

TEST(SheetOpeningTest, AStreamLongerThanTheFileIsLeftOut) {
    constexpr std::size_t LENGTH = 120; // in an entry of the directory, which begins with the name
    const std::string name("\x05\0S\0u\0m\0m\0a\0r\0y", 15);
    EXPECT_EQ(openResult(changedXls("stream.xls", name, LENGTH, "\xC8\xE5\x00\xF3")), MODULE_OK);
}

TEST(SheetOpeningTest, SheetsThatAFileOnlyCountsAreEmpty) {
    constexpr std::size_t ACTIVE_SHEET = 14; // in the record of the window
    WorkbookView view(changedXls("counted.xls", std::string("\x3D\0\x12\0", 4), ACTIVE_SHEET, "\x12"));
    ASSERT_EQ(view.titles().size(), 6U);
    view.show(5, 100, 100, 72);
    view.render(0, 0);
    EXPECT_TRUE(view.find("a").empty());
}

TEST(SheetOpeningTest, BuiltInFormatsOfDatesAreThoseOfALanguage) {
    // The formats' numbers and what they show of a day.
    constexpr std::pair<char, const char*> FORMATS[] = {
        {14, "1/15/2019"}, {15, "15-Jan-19"}, {16, "15-Jan"}, {17, "Jan-19"}};
    constexpr std::size_t FORMAT_NUMBER = 6; // in the record that a cell refers to
    std::string file = readFile(sample("tour.xls"));
    // The record of the cells in the format of the number 166: yyyy-mm-dd.
    std::size_t record = file.find(std::string("\xE0\0\x14\0", 4));
    while (file.substr(record + FORMAT_NUMBER, 2) != std::string("\xA6\0", 2)) {
        record = file.find(std::string("\xE0\0\x14\0", 4), record + 1);
        ASSERT_NE(record, std::string::npos);
    }
    for (const auto& [number, shown] : FORMATS) {
        file[record + FORMAT_NUMBER] = number;
        WorkbookView view(written("dated.xls", file));
        view.show(1, 100, 100, 72);
        EXPECT_EQ(view.column(1).at(1), shown) << int{number};
    }
}

TEST(SheetOpeningTest, TextDocumentsAreOfTheWrongKind) {
    EXPECT_EQ(openResult(written("text.xlsx", readFile(sample("tour.docx")))), MODULE_WRONG_KIND);
}

TEST(SheetOpeningTest, WhatIsNoFileIsRefused) {
    EXPECT_EQ(openResult(sample("none.xlsx")), MODULE_NOT_FOUND);
    EXPECT_EQ(openResult(sample("")), MODULE_NOT_A_FILE);
}

TEST(SheetOpeningTest, TwoWorkbooksAreApart) {
    WorkbookView one(sample("tour.xlsx"));
    WorkbookView other(generated("three.xlsx", {"plain", "OUT", "3", "1", "2"}));
    EXPECT_EQ(sheetModule().stg_sort_ascending(other.get(), 0, 0), MODULE_OK);
    EXPECT_EQ(one.titles().size(), 5U);
    EXPECT_EQ(other.titles().size(), 1U);
}

} // namespace
} // namespace lectern::test
