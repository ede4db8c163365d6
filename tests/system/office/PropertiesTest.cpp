// SPDX-License-Identifier: Apache-2.0
#include "modules/ModuleResults.h"
#include "tests/system/office/Documents.h"
#include "tests/system/office/DocxBuilder.h"
#include "tests/system/office/OfficeFixture.h"

#include <cstdlib>
#include <ctime>

namespace lectern::engine::test {

namespace {

class Properties : public OfficeTest {
public:
    static std::unique_ptr<WordDocument> open(const std::filesystem::path& path) {
        std::unique_ptr<WordDocument> document;
        EXPECT_EQ(WordDocument::open(office(), path, "", testFolder(), document), MODULE_OK);
        return document;
    }
};

struct Read : DocumentInformation {
    int32_t words = -1;
};

Read read(WordDocument& document) {
    Read read;
    EXPECT_EQ(document.information(read), MODULE_OK);
    EXPECT_EQ(document.wordCount(read.words), MODULE_OK);
    return read;
}

std::filesystem::path described() {
    DocxBuilder builder;
    builder.properties("A t\xC3\xAFtle", "Some Body", "What it is \xE2\x82\xAC", "2012-03-04T05:06:07Z",
                       "2020-07-31T23:59:59Z");
    return builder.paragraph("five words are in here").write("described.docx");
}

void expectDescribed(const Read& properties) {
    EXPECT_EQ(properties.name, u"A t\u00EFtle");
    EXPECT_EQ(properties.author, u"Some Body");
    EXPECT_EQ(properties.description, u"What it is \u20AC");
    EXPECT_EQ(properties.created, 1330837567);
    EXPECT_EQ(properties.lastSaved, 1596239999);
    EXPECT_EQ(properties.words, 5);
}

} // namespace

TEST_F(Properties, AreThoseOfTheFile) {
    expectDescribed(read(*open(described())));
}

TEST_F(Properties, TimesDoNotDependOnTheTimeZone) {
    setenv("TZ", "America/New_York", 1);
    expectDescribed(read(*open(described())));
    const std::filesystem::path old = savedAs(described(), "doc");
    EXPECT_EQ(read(*open(old)).created, 1330837567);
    setenv("TZ", "Asia/Tokyo", 1);
    tzset();
    expectDescribed(read(*open(described())));
    EXPECT_EQ(read(*open(old)).created, 1330837567);
}

TEST_F(Properties, OfAPlainTextAreEmpty) {
    const Read properties = read(*open(write("plain.txt", "just some text")));
    EXPECT_TRUE(properties.name.empty());
    EXPECT_TRUE(properties.author.empty());
    EXPECT_TRUE(properties.description.empty());
    EXPECT_EQ(properties.created, 0);
    EXPECT_EQ(properties.lastSaved, 0);
    EXPECT_EQ(properties.words, 3);
}

// The properties that samples/make_samples.py writes to both files.
TEST_F(Properties, AreTheSameInBothFormatsOfASample) {
    for (const char* name : {"tour.docx", "tour.doc"}) {
        SCOPED_TRACE(name);
        const Read properties = read(*open(std::filesystem::path(SAMPLES_FOLDER) / name));
        EXPECT_EQ(properties.name, u"A Tour of the Harbour");
        EXPECT_EQ(properties.author, u"The Lectern makers");
        EXPECT_EQ(properties.description,
                  u"One page of everything that a word-processing document is made of.");
        EXPECT_EQ(properties.created, 1767601800);
        EXPECT_GT(properties.words, 200);
    }
}

TEST_F(Properties, OfAnOldDocumentAreRead) {
    const Read properties = read(*open(savedAs(described(), "doc")));
    EXPECT_EQ(properties.name, u"A t\u00EFtle");
    EXPECT_EQ(properties.author, u"Some Body");
    EXPECT_EQ(properties.description, u"What it is \u20AC");
    EXPECT_EQ(properties.created, 1330837567);
    EXPECT_EQ(properties.words, 5);
}

} // namespace lectern::engine::test
