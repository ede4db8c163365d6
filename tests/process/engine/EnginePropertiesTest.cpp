// SPDX-License-Identifier: Apache-2.0
// Texts, dates and counts, and how texts are cut.

#include "tests/process/engine/EngineTest.h"

namespace lectern::test {
namespace {

// The fake's description: it includes surrogate pairs and an unpaired surrogate.
const std::u16string DESCRIPTION = std::u16string(u"\U0001F4C4 ") + char16_t{0xD800} + u"text \U0001F4C4";

class PropertiesTest : public EngineTest {
protected:
    PropertiesTest() : word(wordModule()) {}
    const WordModule& word;
    Document document;
    std::vector<std::uint16_t> text = std::vector<std::uint16_t>(32, 0x5A5A);
    std::int32_t length = -1;
};

TEST_F(PropertiesTest, GivesTheWholeTextWhereItFits) {
    open(document, "name=A long name\n");
    EXPECT_EQ(word.wtg_get_document_name(document.get(), text.data(), 64, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"A long name");
    EXPECT_EQ(length, 11);
    EXPECT_EQ(text[12], 0x5A5A) << "nothing is written behind the terminator";
}

TEST_F(PropertiesTest, GivesTheEmptyTextForWhatIsUnset) {
    open(document, "rows=1\n");
    EXPECT_EQ(word.wtg_get_document_name(document.get(), text.data(), 64, &length), MODULE_OK);
    EXPECT_EQ(text[0], 0);
    EXPECT_EQ(length, 0);
}

TEST_F(PropertiesTest, MeasuresWithoutABuffer) {
    open(document, "name=A long name\n");
    EXPECT_EQ(word.wtg_get_document_name(document.get(), nullptr, 0, &length), MODULE_OK);
    EXPECT_EQ(length, 11);
}

TEST_F(PropertiesTest, CapacitiesAreBytesWithTheTerminator) {
    open(document, "name=A long name\n");
    EXPECT_EQ(word.wtg_get_document_name(document.get(), text.data(), 8, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"A l");
    EXPECT_EQ(length, 11) << "of the whole text";
    EXPECT_EQ(text[4], 0x5A5A);
}

TEST_F(PropertiesTest, ACapacityForLessThanATerminatorOnlyMeasures) {
    open(document, "name=A long name\n");
    for (const std::int32_t capacity : {0, 1}) {
        EXPECT_EQ(word.wtg_get_document_name(document.get(), text.data(), capacity, &length), MODULE_OK);
        EXPECT_EQ(text[0], 0x5A5A);
        EXPECT_EQ(length, 11);
    }
    EXPECT_EQ(word.wtg_get_document_name(document.get(), text.data(), 2, &length), MODULE_OK);
    EXPECT_EQ(text[0], 0);
}

TEST_F(PropertiesTest, TextsAreCutBetweenWholeCharacters) {
    open(document, "rows=1\n");
    EXPECT_EQ(word.wtg_get_document_description(document.get(), text.data(), 64, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), DESCRIPTION);
    EXPECT_EQ(length, 11);
    // The buffer has room for one unit of text, half of the first character.
    EXPECT_EQ(word.wtg_get_document_description(document.get(), text.data(), 4, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"");
    // Room for all but the last unit.
    EXPECT_EQ(word.wtg_get_document_description(document.get(), text.data(), 22, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), DESCRIPTION.substr(0, 9));
    // An unpaired surrogate at the end is kept.
    EXPECT_EQ(word.wtg_get_document_description(document.get(), text.data(), 10, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), DESCRIPTION.substr(0, 4));
    EXPECT_EQ(length, 11);
}

TEST_F(PropertiesTest, ImpossibleBuffersAreRefused) {
    open(document, "name=A long name\n");
    EXPECT_EQ(word.wtg_get_document_name(document.get(), text.data(), -2, &length), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_document_name(document.get(), nullptr, 8, &length), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(length, -1);
}

TEST_F(PropertiesTest, GivesDatesPastTheThirtyTwoBitEnd) {
    open(document, "rows=1\n");
    time_t time = -1;
    EXPECT_EQ(word.wtg_get_document_creation_date(document.get(), &time), MODULE_OK);
    EXPECT_EQ(time, time_t{5'000'000'000});
    EXPECT_EQ(word.wtg_get_document_last_saved_date(document.get(), &time), MODULE_OK);
    EXPECT_EQ(time, 0);
}

TEST_F(PropertiesTest, FailuresAndExceptionsOfTheSuiteTouchNothing) {
    time_t time = 7;
    open(document, "information=code:1\n");
    EXPECT_EQ(word.wtg_get_document_creation_date(document.get(), &time), MODULE_FAILED);
    EXPECT_EQ(time, 7);
    Document throwing;
    open(throwing, "information=throw\n");
    EXPECT_EQ(word.wtg_get_document_creation_date(throwing.get(), &time), MODULE_FAILED);
    EXPECT_EQ(time, 7);
    // Only that one call has failed.
    std::int32_t words = 0;
    EXPECT_EQ(word.wtg_word_count(throwing.get(), &words), MODULE_OK);
    EXPECT_EQ(words, 1000);
}

TEST_F(PropertiesTest, TellsItsVersionWithoutADocument) {
    EXPECT_EQ(word.wtg_get_version(nullptr, 0, &length), MODULE_OK);
    EXPECT_GT(length, 8);
    EXPECT_EQ(word.wtg_get_version(text.data(), 8, &length), MODULE_OK);
    EXPECT_EQ(textOf(text), u"Lectern") << "capacities are units here";
    EXPECT_EQ(word.wtg_get_version(text.data(), -1, &length), MODULE_BAD_ARGUMENT);
    EXPECT_EQ(word.wtg_get_version(text.data(), 8, nullptr), MODULE_BAD_ARGUMENT);
}

TEST_F(PropertiesTest, ReleasesMemoryOfAnOpenDocument) {
    open(document, "rows=1\n");
    EXPECT_EQ(word.wtg_release_memory(document.get()), MODULE_OK);
}

} // namespace
} // namespace lectern::test
