// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ContentKind.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using lectern::contentKind;
using lectern::DocumentKind;
using lectern::kindOfType;

class ContentKind : public testing::Test {
protected:
    ContentKind() {
        std::string pattern = testing::TempDir() + "lectern-kind-XXXXXX";
        mFolder = mkdtemp(pattern.data());
    }
    ~ContentKind() override { std::filesystem::remove_all(mFolder); }

    // The kind of a sample under another name.
    DocumentKind named(const std::string& sample, const std::string& name) const {
        const std::filesystem::path path = mFolder / name;
        std::filesystem::copy_file(std::string(LECTERN_SOURCE_DIR) + "/samples/" + sample, path,
                                   std::filesystem::copy_options::overwrite_existing);
        return contentKind(path);
    }
    DocumentKind written(const std::string& bytes, const std::string& name) const {
        const std::filesystem::path path = mFolder / name;
        std::ofstream(path, std::ios::binary) << bytes;
        return contentKind(path);
    }

    std::filesystem::path mFolder;
};

TEST_F(ContentKind, IsThatOfTheContentsWithoutAnExtensionOrWithAWrongOne) {
    for (const char* name : {"document", "document.xls", "document.pptx", "document.odt", "document.txt"}) {
        EXPECT_EQ(named("tour.docx", name), DocumentKind::WordProcessing) << name;
        EXPECT_EQ(named("tour.doc", name), DocumentKind::WordProcessing) << name;
        EXPECT_EQ(named("tour.xlsx", name), DocumentKind::Spreadsheet) << name;
        EXPECT_EQ(named("tour.xls", name), DocumentKind::Spreadsheet) << name;
        EXPECT_EQ(named("tour.pptx", name), DocumentKind::Presentation) << name;
        EXPECT_EQ(named("tour.ppt", name), DocumentKind::Presentation) << name;
    }
}

TEST_F(ContentKind, IsThatOfTheNameWhereAPasswordHidesTheContents) {
    EXPECT_EQ(named("locked.docx", "a.docx"), DocumentKind::WordProcessing);
    EXPECT_EQ(named("locked.xlsx", "a.xlsx"), DocumentKind::Spreadsheet);
    EXPECT_EQ(named("locked.pptx", "a.pptx"), DocumentKind::Presentation);
    EXPECT_EQ(named("locked.doc", "a"), DocumentKind::WordProcessing);
    EXPECT_EQ(named("locked.xls", "a"), DocumentKind::Spreadsheet);
}

TEST_F(ContentKind, OfTextIsThatOfItsNameElseWordProcessing) {
    EXPECT_EQ(written("a,b\n1,2\n", "a.csv"), DocumentKind::Spreadsheet);
    EXPECT_EQ(written("a\tb\n1\t2\n", "a.tsv"), DocumentKind::Spreadsheet);
    EXPECT_EQ(written("a,b\n1,2\n", "a.xls"), DocumentKind::Spreadsheet);
    EXPECT_EQ(written("<html><table></table></html>", "a.xls"), DocumentKind::Spreadsheet);
    EXPECT_EQ(written("<html><body>Boat</body></html>", "a"), DocumentKind::WordProcessing);
    EXPECT_EQ(written("Boats\n", "notes"), DocumentKind::WordProcessing);
    EXPECT_EQ(written("{\\rtf1 Boats}", "notes.xls"), DocumentKind::WordProcessing);
}

TEST_F(ContentKind, IsUnknownForOtherFilesAndWithoutAFile) {
    EXPECT_EQ(written(std::string("\x89PNG\r\n\x1a\n\0\0\0\0", 12), "a"), DocumentKind::Unknown);
    EXPECT_EQ(written("", "a.docx"), DocumentKind::Unknown);
    EXPECT_EQ(written("PK\3\4", "a.zip"), DocumentKind::Unknown);
    EXPECT_EQ(written("PK\3\4" + std::string(30, 'x') + "PK\5\6", "a.zip"), DocumentKind::Unknown);
    EXPECT_EQ(written(std::string("\xD0\xCF\x11\xE0", 4) + std::string(600, '\xFF'), "a"),
              DocumentKind::Unknown);
    EXPECT_EQ(contentKind(mFolder / "none.docx"), DocumentKind::Unknown);
    EXPECT_EQ(contentKind(mFolder), DocumentKind::Unknown);
}

TEST(KindOfType, CoversTemplatesMacrosAndOpenDocument) {
    for (const char* type :
         {"application/msword", "application/msword-template", "application/rtf",
          "application/vnd.openxmlformats-officedocument.wordprocessingml.template",
          "application/vnd.ms-word.document.macroEnabled.12", "application/vnd.oasis.opendocument.text",
          "application/vnd.oasis.opendocument.text-template"}) {
        EXPECT_EQ(kindOfType(type), DocumentKind::WordProcessing) << type;
    }
    for (const char* type : {"application/vnd.ms-excel", "text/csv", "text/tab-separated-values",
                             "application/vnd.ms-excel.sheet.binary.macroEnabled.12",
                             "application/vnd.openxmlformats-officedocument.spreadsheetml.template",
                             "application/vnd.oasis.opendocument.spreadsheet"}) {
        EXPECT_EQ(kindOfType(type), DocumentKind::Spreadsheet) << type;
    }
    for (const char* type :
         {"application/vnd.ms-powerpoint", "application/vnd.oasis.opendocument.presentation",
          "application/vnd.openxmlformats-officedocument.presentationml.slideshow",
          "application/vnd.ms-powerpoint.template.macroEnabled.12"}) {
        EXPECT_EQ(kindOfType(type), DocumentKind::Presentation) << type;
    }
    EXPECT_EQ(kindOfType("image/png"), DocumentKind::Unknown);
    EXPECT_EQ(kindOfType("text/plain"), DocumentKind::Unknown) << "a name tells more";
}

} // namespace
