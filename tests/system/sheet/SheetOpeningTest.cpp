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
