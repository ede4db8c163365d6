// SPDX-License-Identifier: Apache-2.0
// Documents written in other formats.
#include "engine/office/Exporting.h"

#include "engine/office/TemporaryCopy.h"
#include "modules/ModuleResults.h"
#include "tests/system/office/OfficeFixture.h"

#include <regex>

namespace lectern::engine::test {
namespace {

class ExportingTest : public OfficeTest {
protected:
    static std::string exported(const std::filesystem::path& path, DocumentKind kind, ExportFormat format) {
        const std::string target = testFolder() / "exported";
        EXPECT_EQ(exportFile(office(), {path, "", testFolder(), {}}, kind, format, target), MODULE_OK);
        return bytesOf(target);
    }
    static std::string sample(const std::string& name) { return std::string(SAMPLES_FOLDER) + "/" + name; }
    static std::string text(const std::string& name, DocumentKind kind) {
        return exported(sample(name), kind, ExportFormat::Text);
    }
};

TEST_F(ExportingTest, PagesBecomePdf) {
    const std::pair<const char*, DocumentKind> samples[] = {{"tour.docx", DocumentKind::Text},
                                                            {"tour.xlsx", DocumentKind::Sheet},
                                                            {"tour.pptx", DocumentKind::Slides}};
    for (const auto& [name, kind] : samples) {
        const std::string pdf = exported(sample(name), kind, ExportFormat::Pdf);
        EXPECT_EQ(pdf.substr(0, 5), "%PDF-") << name;
        const std::regex page(R"(/Type\s*/Page\b)");
        const auto pages = std::distance(std::sregex_iterator(pdf.begin(), pdf.end(), page), {});
        EXPECT_GE(pages, kind == DocumentKind::Slides ? 7 : 1) << name;
    }
}

TEST_F(ExportingTest, TheTextOfATextHasItsWordsInUtf8) {
    const std::string words = text("tour.docx", DocumentKind::Text);
    EXPECT_EQ(words.find("\xEF\xBB\xBF"), std::string::npos) << "no byte order mark";
    EXPECT_NE(words.find("A Tour of the Harbour\n"), std::string::npos);
    EXPECT_NE(words.find("sch\xC3\xB6nen"), std::string::npos);
}

TEST_F(ExportingTest, TheTextOfAWorkbookHasItsSheetsWithTabsBetweenTheColumns) {
    const auto path = write("list.csv", "city;people\nBern;134\n\"K\xC3\xB6ln; am Rhein\";1085\n");
    EXPECT_EQ(exported(path, DocumentKind::Sheet, ExportFormat::Text),
              "list\ncity\tpeople\nBern\t134\nK\xC3\xB6ln; am Rhein\t1085\n");
    const std::string all = text("tour.xlsx", DocumentKind::Sheet);
    EXPECT_NE(all.find("Passengers\n"), std::string::npos);
    EXPECT_NE(all.find("\n\n"), std::string::npos) << "an empty line between two sheets";
}

TEST_F(ExportingTest, TheTextOfSlidesHasThoseOfTheirShapes) {
    EXPECT_NE(text("tour.pptx", DocumentKind::Slides).find("The Harbour in Slides\n"), std::string::npos);
}

TEST_F(ExportingTest, ADocumentOfAnotherKindIsRefused) {
    EXPECT_EQ(exportFile(office(), {sample("tour.docx"), "", testFolder(), {}}, DocumentKind::Slides,
                         ExportFormat::Pdf, testFolder() / "exported"),
              MODULE_WRONG_KIND);
    EXPECT_EQ(exportFile(office(), {sample("locked.docx"), "", testFolder(), {}}, DocumentKind::Text,
                         ExportFormat::Pdf, testFolder() / "exported"),
              MODULE_NEEDS_PASSWORD);
}

} // namespace
} // namespace lectern::engine::test
