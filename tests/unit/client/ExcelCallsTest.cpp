// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/CallsFixture.h"
#include <lectern/ExcelCalls.h>

namespace {

using namespace lectern;

class ExcelCalls : public CallsTest {};

TEST_F(ExcelCalls, ListAndCommentComeAsTheyAre) {
    const std::string list = R"({"list": [{"data":"A "B"", "listitem":"1", "status":"images/check.png"}]})";
    mService.answer("/excel getSheetList", list);
    mService.answer("/excel getLastComment", R"({ "comment": "late", "xcoord": 3, "ycoord": 4 })");
    EXPECT_EQ(*ask(excel::getSheetList()), list);
    EXPECT_EQ(*ask(excel::getLastComment()), R"({ "comment": "late", "xcoord": 3, "ycoord": 4 })");
    EXPECT_EQ(payload().integer("docid"), 1);
}

TEST_F(ExcelCalls, AJumpGivesTheSheetNowShown) {
    mService.answer("/excel jumpToSheet", R"({"cursheet": 2})");
    EXPECT_EQ(*ask(excel::jumpToSheet(2), 5), 2);
    EXPECT_EQ(payload().integer("docid"), 5);
    EXPECT_EQ(payload().integer("sheet"), 2);
}

TEST_F(ExcelCalls, CountsAndSortsGiveTheirNumber) {
    using Method = Call<int> (*)();
    const std::tuple<const char*, const char*, Method> methods[] = {
        {"/excel getColumnCount", R"({"columncnt": 7})", excel::getColumnCount},
        {"/excel sortAscending", R"({"column": 7})", excel::sortAscending},
        {"/excel sortDescending", R"({"column": 7})", excel::sortDescending}};
    for (const auto& [name, reply, method] : methods) {
        mService.answer(name, reply);
        const Result<int> number = ask(method(), 4);
        ASSERT_TRUE(number) << name;
        EXPECT_EQ(*number, 7);
        EXPECT_EQ(place(), name);
        EXPECT_EQ(payload().integer("docid"), 4);
        mService.answer(name, "{}");
        EXPECT_FALSE(ask(method(), 4)) << name;
    }
}

TEST_F(ExcelCalls, HidingNamesTheDocument) {
    using Method = Call<void> (*)();
    const std::pair<const char*, Method> methods[] = {{"/excel hideSelection", excel::hideSelection},
                                                      {"/excel unhideSelection", excel::unhideSelection},
                                                      {"/excel unhideAll", excel::unhideAll}};
    for (const auto& [name, method] : methods) {
        EXPECT_FALSE(ask(method(), 6));
        EXPECT_EQ(place(), name);
        EXPECT_EQ(payload().integer("docid"), 6);
    }
}

TEST_F(ExcelCalls, ResizeModeIsOnForTheWordOnAlone) {
    EXPECT_FALSE(ask(excel::resizeMode(true)));
    EXPECT_EQ(place(), "/excel resizeMode");
    EXPECT_EQ(payload().string("mode"), "on");
    EXPECT_FALSE(ask(excel::resizeMode(false)));
    EXPECT_EQ(payload().string("mode"), "off");
}

TEST_F(ExcelCalls, CopySelectionSendsThePathUnderTheServicesKey) {
    EXPECT_FALSE(ask(excel::copySelection("/tmp/größe.txt")));
    EXPECT_EQ(place(), "/excel copySelection");
    EXPECT_EQ(payload().string("column"), "/tmp/größe.txt");
}

TEST_F(ExcelCalls, AnotherKindOfDocumentIsRefused) {
    mService.answer("/excel getSheetList",
                    R"({"errorCode": "errWrongType", "errorText": "Not an Excel document"})");
    const auto list = ask(excel::getSheetList());
    ASSERT_FALSE(list);
    EXPECT_EQ(list.error().name, "errWrongType");
}

} // namespace
