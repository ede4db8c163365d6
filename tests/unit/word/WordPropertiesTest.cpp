// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/word/WordTest.h"

#include <cstdlib>
#include <ctime>

namespace {

class WordPropertiesTest : public WordTest {
protected:
    void SetUp() override {
        WordTest::SetUp();
        setenv("TZ", "UTC", 1);
        tzset();
    }
};

TEST_F(WordPropertiesTest, MembersInOrder) {
    const auto view = openView(320, 480, 3000);
    fakeWord().name = u"Träume";
    fakeWord().description = u"\"quoted\"";
    fakeWord().lastSaved = 1267456020; // 1 March 2010 15:07
    fakeWord().created = 300;
    fakeWord().words = 1234;
    EXPECT_EQ(view->getDocProperties(),
              "{ \"name\": \"Träume\", \"author\": \"\", \"description\": \"\\\"quoted\\\"\", "
              "\"lastsave\": \"Mar 1, 2010, 3:07pm\", \"createdate\": \"Jan 1, 1970, 12:05am\", \"wordcnt\": "
              "1234 }");
    EXPECT_THAT(calls(), ElementsAre("wtg_get_document_name(0)", "wtg_get_document_name(4096)",
                                     "wtg_get_document_author(0)", "wtg_get_document_author(4096)",
                                     "wtg_get_document_description(0)", "wtg_get_document_description(4096)",
                                     "wtg_get_document_last_saved_date()", "wtg_get_document_creation_date()",
                                     "wtg_word_count()"));
}

TEST_F(WordPropertiesTest, LongTextsAreReplaced) {
    const auto view = openView(320, 480, 3000);
    fakeWord().name = std::u16string(2047, u'n');
    fakeWord().author = std::u16string(3000, u'a');
    fakeWord().description = std::u16string(2048, u'd');
    const std::string text = view->getDocProperties();
    EXPECT_NE(text.find("\"name\": \"" + std::string(2047, 'n') + "\""), std::string::npos);
    EXPECT_NE(text.find("\"author\": \"(no author)\""), std::string::npos);
    EXPECT_NE(text.find("\"description\": \"(no description)\""), std::string::npos);
    EXPECT_THAT(calls(), testing::Not(testing::Contains("wtg_get_document_author(4096)")));
    fakeWord().name = std::u16string(2048, u'n');
    EXPECT_NE(view->getDocProperties().find("\"name\": \"(no name)\""), std::string::npos);
}

int32_t negativeLength(void* /*doc*/, uint16_t* buffer, int32_t /*size*/, int32_t* length) {
    *length = -1;
    if (buffer != nullptr) {
        buffer[0] = 'n';
        buffer[1] = 0;
    }
    return 0;
}

TEST_F(WordPropertiesTest, NegativeLengthsAreNotTooLong) {
    const auto view = openView(320, 480, 3000);
    WTGFunc& module = Singleton<WTGFunc>::Instance();
    const auto bound = std::exchange(module.wtg_get_document_name, negativeLength);
    EXPECT_NE(view->getDocProperties().find("\"name\": \"n\""), std::string::npos);
    module.wtg_get_document_name = bound;
}

TEST_F(WordPropertiesTest, BrokenTextsAreEmpty) {
    const auto view = openView(320, 480, 3000);
    fakeWord().author = std::u16string(1, static_cast<char16_t>(0xD800));
    EXPECT_NE(view->getDocProperties().find("\"author\": \"\""), std::string::npos);
}

TEST_F(WordPropertiesTest, ClearingTheSelectionAsksForAPaint) {
    const auto view = openView(320, 480, 3000);
    EXPECT_EQ(view->clearSelection(), 0);
    EXPECT_THAT(calls(), ElementsAre("wtg_clear_selection()"));
    EXPECT_THAT(notifications(*view), ElementsAre(_INVALIDATED));
}

} // namespace
