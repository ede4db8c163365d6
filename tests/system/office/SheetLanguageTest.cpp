// SPDX-License-Identifier: Apache-2.0
// Formats that a workbook leaves to the reader follow the reader's language.
#include "engine/office/sheet/SheetDocument.h"
#include "modules/ModuleResults.h"
#include "tests/system/office/OfficeFixture.h"

#include <cstdlib>

namespace lectern::engine::test {

namespace {

class SheetLanguageTest : public OfficeTest {
protected:
    ~SheetLanguageTest() override {
        unsetenv("LECTERN_LANGUAGE");
        firstSum(); // the suite keeps the language of the last load
    }
    // A number in a format of thousands.
    static std::u16string firstSum() {
        constexpr int32_t SUM_COLUMN = 9;
        std::unique_ptr<SheetDocument> document;
        EXPECT_EQ(SheetDocument::open(office(), SAMPLES_FOLDER "/tour.xlsx", "", testFolder(), document),
                  MODULE_OK);
        int32_t width = 0;
        int32_t height = 0;
        EXPECT_EQ(document->dimensions(0, width, height), MODULE_OK);
        EXPECT_EQ(document->selectArea(0, 0, 0, width, height), MODULE_OK);
        std::u16string text;
        EXPECT_EQ(document->copySelection(text), MODULE_OK);
        size_t from = text.find(u"January");
        for (int32_t column = 0; column < SUM_COLUMN; ++column) {
            from = text.find(u'\t', from) + 1;
        }
        return text.substr(from, text.find_first_of(u"\t\n", from) - from);
    }
};

TEST_F(SheetLanguageTest, IsEnglishUnlessAnotherIsSet) {
    EXPECT_EQ(firstSum(), u"9,608");
}

TEST_F(SheetLanguageTest, IsTheOneThatIsSet) {
    setenv("LECTERN_LANGUAGE", "de-DE", 1);
    EXPECT_EQ(firstSum(), u"9.608");
}

TEST_F(SheetLanguageTest, IsEnglishWhenNoneOfThatNameCanBe) {
    setenv("LECTERN_LANGUAGE", "de-DE,Batch=false", 1);
    EXPECT_EQ(firstSum(), u"9,608");
}

} // namespace

} // namespace lectern::engine::test
