// SPDX-License-Identifier: Apache-2.0
// The sheet list, going to another sheet, and properties.
#include "tests/unit/excel/ExcelTest.h"

#include <cstdlib>
#include <ctime>

namespace {

class ExcelSheetsTest : public ExcelTest {
protected:
    static std::unique_ptr<TestExcel> openWithTitles(const std::vector<std::u16string>& titles) {
        fakeSheet().sheets.clear();
        for (const std::u16string& title : titles) {
            fakeSheet().sheets.push_back({title});
        }
        return openView();
    }
    static std::string entry(const std::string& title, int number, bool current = false) {
        return "{\"data\":\"" + title + "\", \"listitem\":\"" + std::to_string(number) + "\", \"status\":\"" +
               (current ? "images/check.png" : "") + "\"}";
    }
};

TEST_F(ExcelSheetsTest, ListNamesTheSheetsAndMarksTheOneShown) {
    const auto view = openWithTitles({u"A", u"B"});
    EXPECT_EQ(view->getSheetList(),
              "{\"list\": [{\"data\":\"A\", \"listitem\":\"1\", \"status\":\"images/check.png\"},"
              "{\"data\":\"B\", \"listitem\":\"2\", \"status\":\"\"}]}");
    EXPECT_THAT(calls(), ElementsAre("stg_get_sheet_count()", "stg_get_sheet_title(0, 4096)",
                                     "stg_get_sheet_title(1, 4096)"));
    view->jumpToSheet(1);
    EXPECT_EQ(view->getSheetList(), "{\"list\": [" + entry("A", 1) + "," + entry("B", 2, true) + "]}");
}

TEST_F(ExcelSheetsTest, OneSheetIsOneItem) {
    const auto view = openWithTitles({u"Only"});
    EXPECT_EQ(view->getSheetList(), "{\"list\": [" + entry("Only", 1, true) + "]}");
}

TEST_F(ExcelSheetsTest, WithoutSheetsTheListIsEmpty) {
    const auto view = openView();
    fakeSheet().sheets.clear();
    EXPECT_EQ(view->getSheetList(), "");
}

TEST_F(ExcelSheetsTest, SheetCountIsAskedAnew) {
    const auto view = openWithTitles({u"A"});
    fakeSheet().sheets.push_back({u"B"});
    EXPECT_EQ(view->getSheetList(), "{\"list\": [" + entry("A", 1, true) + "," + entry("B", 2) + "]}");
}

TEST_F(ExcelSheetsTest, TitlesAreNotEscaped) {
    const auto view = openWithTitles({u"a\"b\\"});
    EXPECT_EQ(view->getSheetList(), "{\"list\": [" + entry("a\"b\\", 1, true) + "]}");
}

TEST_F(ExcelSheetsTest, ListIsCutAfter128BytesASheet) {
    const auto view = openWithTitles({std::u16string(60, u'x')});
    EXPECT_EQ(view->getSheetList(), "{\"list\": [" + entry(std::string(60, 'x'), 1, true) + "]}");
    fakeSheet().sheets[0].title = std::u16string(100, u'x');
    EXPECT_EQ(view->getSheetList(), "{\"list\": [{\"data\":\"" + std::string(100, 'x') + "\", \"listi");
    EXPECT_EQ(view->getSheetList().size(), 128U);
}

TEST_F(ExcelSheetsTest, ShortTitlesLeaveTheirRoomToOthers) {
    const auto view = openWithTitles({u"A", u"B", std::u16string(200, u'x')});
    EXPECT_EQ(view->getSheetList(), "{\"list\": [" + entry("A", 1, true) + "," + entry("B", 2) + "," +
                                        entry(std::string(200, 'x'), 3) + "]}");
}

TEST_F(ExcelSheetsTest, TitlesAreCutAtAWholeCharacter) {
    std::vector<std::u16string> titles(20, u"A");
    titles[0] = std::u16string(2000, u'\u20ac'); // 6000 bytes, of which 2046 are kept
    const std::string list = openWithTitles(titles)->getSheetList();
    EXPECT_EQ(list.find("\", \"listitem\":\"1\""), 19U + 2046U) << list;
}

TEST_F(ExcelSheetsTest, JumpTakesMarksAndColumnsOver) {
    fakeSheet().sheets.resize(3);
    fakeSheet().sheets[2].columns = 7;
    const auto view = openView();
    view->mOffscreenDirty = false;
    view->mScroll.set(100, 200);
    EXPECT_EQ(view->jumpToSheet(2), 2);
    EXPECT_THAT(calls(), ElementsAre("stg_get_comment_marks_rects(2)", "stg_get_column_count(2)"));
    EXPECT_EQ(view->mCurrentSheet, 2);
    EXPECT_EQ(view->columnCount(), 7);
    EXPECT_TRUE(view->mOffscreenDirty);
    EXPECT_EQ(view->mScroll, CpPoint(100, 200));
    EXPECT_EQ(view->mSheetWidth, 4000) << "the size is taken over at rest";
    EXPECT_THAT(notifications(*view), IsEmpty());
    view->StopHandler();
    EXPECT_EQ(view->mSheetWidth, 560);
}

TEST_F(ExcelSheetsTest, NumbersOutOfRangeGoToTheModuleUnchanged) {
    const auto view = openView();
    for (const int sheet : {-1, 1, INT_MAX, INT_MIN}) {
        const std::string number = std::to_string(sheet);
        EXPECT_EQ(view->jumpToSheet(sheet), sheet);
        EXPECT_THAT(calls(), ElementsAre("stg_get_comment_marks_rects(" + number + ")",
                                         "stg_get_column_count(" + number + ")"));
        EXPECT_EQ(view->columnCount(), 50) << "as it was";
        paint(*view);
        EXPECT_THAT(calls(), ElementsAre("stg_render_sheet(" + number + ", 0, 0)"));
        view->StopHandler();
        view->handlePenDown(100, 10);
        view->handlePenUp(200, 10);
        view->handleClick(100, 10);
        view->handleClick(100, 100);
        view->sortAscending();
        view->doSearch("x");
        view->getSheetList();
        paint(*view);
        calls();
    }
}

TEST_F(ExcelSheetsTest, PropertiesAreMeasuredAndRead) {
    setenv("TZ", "UTC", 1);
    tzset();
    fakeSheet().name = u"Budget \u20ac";
    fakeSheet().author = u"A. B.";
    fakeSheet().created = 1267455120;   // 2010-03-01 14:52
    fakeSheet().lastSaved = 1267456020; // 15:07
    const auto view = openView();
    EXPECT_EQ(view->getDocProperties(),
              "{ \"name\": \"Budget \u20ac\", \"author\": \"A. B.\", \"description\": \"\", "
              "\"lastsave\": \"Mar 1, 2010, 3:07pm\", \"createdate\": \"Mar 1, 2010, 2:52pm\" }");
    EXPECT_THAT(calls(),
                ElementsAre("stg_get_document_name(0)", "stg_get_document_name(4096)",
                            "stg_get_document_author(0)", "stg_get_document_author(4096)",
                            "stg_get_document_description(0)", "stg_get_document_description(4096)",
                            "stg_get_document_last_saved_date()", "stg_get_document_creation_date()"));
}

TEST_F(ExcelSheetsTest, LongPropertiesAreReplacedNeverCut) {
    fakeSheet().name = std::u16string(2047, u'n');
    fakeSheet().author = std::u16string(2048, u'a');
    fakeSheet().description = std::u16string(100000, u'd');
    const auto view = openView();
    const std::string text = view->getDocProperties();
    EXPECT_NE(text.find("\"name\": \"" + std::string(2047, 'n') + "\""), std::string::npos);
    EXPECT_NE(text.find("\"author\": \"(no author)\""), std::string::npos);
    EXPECT_NE(text.find("\"description\": \"(no description)\""), std::string::npos);
    fakeSheet().name += u'n';
    EXPECT_NE(view->getDocProperties().find("\"name\": \"(no name)\""), std::string::npos);
}

} // namespace
