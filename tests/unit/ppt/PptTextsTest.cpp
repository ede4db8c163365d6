// SPDX-License-Identifier: Apache-2.0
// The slide list, notes and properties.
#include "tests/unit/ppt/PptTest.h"

#include <cstdlib>
#include <ctime>

namespace {

class PptTextsTest : public PptTest {
protected:
    static std::unique_ptr<TestPpt> openWithTitles(const std::vector<std::u16string>& titles) {
        fakeSlides().slides.clear();
        for (const std::u16string& title : titles) {
            fakeSlides().slides.push_back({title});
        }
        return openView();
    }
    static std::string entry(const std::string& title, int number, bool current = false) {
        return "{\"data\":\"" + title + "\", \"listitem\":\"" + std::to_string(number) + "\", \"status\":\"" +
               (current ? "images/check.png" : "") + "\"}";
    }
};

TEST_F(PptTextsTest, ListNamesTheSlidesAndMarksTheOneShown) {
    const auto view = openWithTitles({u"Intro", u"Plan"});
    view->jumpToSlide(1);
    EXPECT_EQ(view->getSlideList(),
              "{\"list\": [{\"data\":\"Intro\", \"listitem\":\"1\", \"status\":\"\"},"
              "{\"data\":\"Plan\", \"listitem\":\"2\", \"status\":\"images/check.png\"}]}");
    EXPECT_THAT(calls(), ElementsAre("sstg_get_slide_count()", "sstg_get_slide_title(0, 4096)",
                                     "sstg_get_slide_title(1, 4096)"));
}

TEST_F(PptTextsTest, ListMarksExactlyOne) {
    const auto view = openWithTitles({u"A", u"B", u"C"});
    for (int current = 0; current < 3; ++current) {
        view->jumpToSlide(current);
        EXPECT_EQ(view->getSlideList(), "{\"list\": [" + entry("A", 1, current == 0) + "," +
                                            entry("B", 2, current == 1) + "," + entry("C", 3, current == 2) +
                                            "]}");
    }
}

TEST_F(PptTextsTest, OneSlidesListIsCompleteUpTo60BytesOfTitle) {
    const std::string title(60, 'x');
    const auto view = openWithTitles({std::u16string(60, u'x')});
    const std::string list = view->getSlideList();
    EXPECT_EQ(list, "{\"list\": [" + entry(title, 1, true) + "]}");
    EXPECT_EQ(list.size(), 128U);
    fakeSlides().slides[0].title += u"x";
    EXPECT_EQ(view->getSlideList(), "{\"list\": [" + entry(title + "x", 1, true) + "]");
}

TEST_F(PptTextsTest, LongTitleCutsTheListInsideTheNumber) {
    const auto view = openWithTitles({std::u16string(100, u'x')});
    EXPECT_EQ(view->getSlideList(), "{\"list\": [{\"data\":\"" + std::string(100, 'x') + "\", \"listi");
    EXPECT_EQ(view->getSlideList().size(), 128U);
}

TEST_F(PptTextsTest, ListIsCutAtAWholeCharacterAndEndsThere) {
    // 19 bytes come first, so 109 remain for characters of three bytes.
    const auto view = openWithTitles({std::u16string(50, u'\u20AC')});
    const std::string list = view->getSlideList();
    EXPECT_EQ(list.size(), 19U + 36 * 3);
    EXPECT_EQ(list.substr(list.size() - 3), "\u20AC");
}

TEST_F(PptTextsTest, TitlesAreCutAt2047Bytes) {
    std::vector<std::u16string> titles(40, u"");
    titles[0] = std::u16string(3000, u'x');
    const auto view = openWithTitles(titles);
    EXPECT_EQ(view->getSlideList().substr(0, 19 + 2047 + 3),
              "{\"list\": [{\"data\":\"" + std::string(2047, 'x') + "\", ");
}

TEST_F(PptTextsTest, TitlesAreNotEscaped) {
    const auto view = openWithTitles({u"a\"b\\c"});
    EXPECT_EQ(view->getSlideList(), "{\"list\": [" + entry("a\"b\\c", 1, true) + "]}");
}

TEST_F(PptTextsTest, MissingAndBrokenTitlesAreEmpty) {
    const auto view = openWithTitles({u"A", u"B", u"\xDC00"});
    fakeSlides().nextResults["sstg_get_slide_title"] = {1};
    EXPECT_EQ(view->getSlideList(),
              "{\"list\": [" + entry("", 1, true) + "," + entry("B", 2) + "," + entry("", 3) + "]}");
}

TEST_F(PptTextsTest, ListOfNoSlidesIsEmpty) {
    EXPECT_EQ(openDeck(0)->getSlideList(), "");
}

TEST_F(PptTextsTest, ListCountsTheSlidesAnew) {
    const auto view = openWithTitles({u"A"});
    fakeSlides().slides.push_back({u"B"});
    EXPECT_EQ(view->getSlideList(), "{\"list\": [" + entry("A", 1, true) + "," + entry("B", 2) + "]}");
    EXPECT_EQ(view->slideCount(), 2);
}

TEST_F(PptTextsTest, NoteIsThatOfTheSlideShown) {
    const auto view = openDeck(3);
    fakeSlides().slides[1].note = u"Sprich \"langsam\"";
    EXPECT_EQ(view->getSlideNote(), "");
    EXPECT_THAT(calls(), ElementsAre("sstg_slide_has_note(0)"));
    view->jumpToSlide(1);
    EXPECT_EQ(view->getSlideNote(), "{ \"note\": \"Sprich \\\"langsam\\\"\" }");
    EXPECT_THAT(calls(), ElementsAre("sstg_slide_has_note(1)", "sstg_get_slide_note(1, 1024, 0)"));
}

TEST_F(PptTextsTest, LongNoteIsCutTo1023Units) {
    const auto view = openDeck(1);
    fakeSlides().slides[0].note = std::u16string(5000, u'x');
    EXPECT_EQ(view->getSlideNote(), "{ \"note\": \"" + std::string(1023, 'x') + "\" }");
    fakeSlides().slides[0].note = std::u16string(1022, u'x') + u"\U0001F600";
    EXPECT_EQ(view->getSlideNote(), "{ \"note\": \"" + std::string(1022, 'x') + "\" }")
        << "no half of a character";
}

TEST_F(PptTextsTest, NoteThatCannotBeReadIsEmpty) {
    const auto view = openDeck(1);
    fakeSlides().slides[0].note = u"text";
    fakeSlides().nextResults["sstg_slide_has_note"] = {1};
    EXPECT_EQ(view->getSlideNote(), "");
    fakeSlides().nextResults["sstg_get_slide_note"] = {1};
    EXPECT_EQ(view->getSlideNote(), "{ \"note\": \"\" }");
    fakeSlides().slides[0].note = u"";
    EXPECT_EQ(view->getSlideNote(), "{ \"note\": \"\" }");
}

TEST_F(PptTextsTest, PropertiesAreTheModules) {
    setenv("TZ", "UTC", 1);
    tzset();
    fakeSlides().name = u"Deck";
    fakeSlides().author = u"\u00C5sa";
    fakeSlides().description = u"d";
    fakeSlides().created = 951782820;    // 29 Feb 2000, 00:07
    fakeSlides().lastSaved = 1267456020; // 1 Mar 2010, 15:07
    const auto view = openView();
    EXPECT_EQ(view->getDocProperties(),
              "{ \"name\": \"Deck\", \"author\": \"\u00C5sa\", \"description\": \"d\", "
              "\"lastsave\": \"Mar 1, 2010, 3:07pm\", \"createdate\": \"Feb 29, 2000, 12:07am\" }");
    EXPECT_THAT(calls(),
                ElementsAre("sstg_get_document_name(0)", "sstg_get_document_name(4096)",
                            "sstg_get_document_author(0)", "sstg_get_document_author(4096)",
                            "sstg_get_document_description(0)", "sstg_get_document_description(4096)",
                            "sstg_get_document_last_saved_date()", "sstg_get_document_creation_date()"));
}

TEST_F(PptTextsTest, PropertiesThatAreTooLongAreSaidToBeNone) {
    fakeSlides().name = std::u16string(2047, u'n');
    fakeSlides().author = std::u16string(2048, u'a');
    fakeSlides().description = std::u16string(9000, u'd');
    const auto view = openView();
    const std::string properties = view->getDocProperties();
    EXPECT_THAT(properties, testing::HasSubstr("\"name\": \"" + std::string(2047, 'n') + "\""));
    EXPECT_THAT(properties, testing::HasSubstr("\"author\": \"(no author)\""));
    EXPECT_THAT(properties, testing::HasSubstr("\"description\": \"(no description)\""));
    fakeSlides().name += u"n";
    EXPECT_THAT(view->getDocProperties(), testing::HasSubstr("\"name\": \"(no name)\""));
}

} // namespace
