// SPDX-License-Identifier: Apache-2.0
// The sub-commands that print information about a document.
#include "tests/unit/client/CommandFixture.h"

namespace {

using namespace lectern;
using testing::HasSubstr;

const ViewArguments CLASSIC{Manners::Classic};

class PrintCommands : public CommandTest {
protected:
    // Runs a sub-command; returns its exit status. printed() returns its
    // standard output.
    template<typename Arguments>
    int run(int (*command)(const Arguments&, Interrupt&), const Arguments& arguments) {
        testing::internal::CaptureStdout();
        Interrupt interrupt;
        const int status = command(arguments, interrupt);
        mPrinted = testing::internal::GetCapturedStdout();
        return status;
    }
    const std::string& printed() const { return mPrinted; }

    const std::string mSheets = R"({"list": [{"data":"A "B"", "listitem":"1", "status":"images/check.png"},)"
                                R"({"data":"C", "listitem":"2", "status":""}]})";

private:
    std::string mPrinted;
};

TEST_F(PrintCommands, InfoPrintsALabelledLineForEachProperty) {
    mService.answer("/common getDocProperties", R"({ "name": "Letter", "author": "", "wordcnt": 5 })");
    EXPECT_EQ(run(runInfo, {"/letter.docx", "secret"}), STATUS_DONE);
    EXPECT_EQ(printed(), "Kind:        word-processing document\nName:        Letter\nWords:       5\n");
    EXPECT_THAT(mService.calls().front().payload, HasSubstr("secret"));
    EXPECT_EQ(complaints(), "");
}

TEST_F(PrintCommands, InfoPrintsTheServicesTextWhenAsked) {
    mService.answer("/common getDocProperties", R"({"name":  "Letter", "wordcnt": 5 })");
    EXPECT_EQ(run(runInfo, {"/letter.docx", {}, true}), STATUS_DONE);
    EXPECT_EQ(printed(), "{\"name\":  \"Letter\", \"wordcnt\": 5 }\n");
}

TEST_F(PrintCommands, SheetsPrintsNumbersAndNames) {
    mService.answer("/excel getSheetList", mSheets);
    EXPECT_EQ(run(runSheets, {"/a.xls", {}}), STATUS_DONE);
    EXPECT_EQ(printed(), "1  A \"B\"\n2  C\n");
    EXPECT_EQ(run(runSheets, {"/a.xls", {}, true}), STATUS_DONE);
    EXPECT_EQ(printed(), mSheets + "\n");
    EXPECT_EQ(complaints(), "");
}

TEST_F(PrintCommands, SlidesPrintsNumbersAndTitles) {
    mService.answer("/ppt getSlideList", mSheets);
    EXPECT_EQ(run(runSlides, {"/a.ppt", {}}), STATUS_DONE);
    EXPECT_EQ(printed(), "1  A \"B\"\n2  C\n");
    EXPECT_EQ(complaints(), "");
}

TEST_F(PrintCommands, ListsSayWhenTheServiceHasCutThem) {
    const std::string cut = (mSheets.substr(0, mSheets.size() - 2) + ",{\"data\":\"" + std::string(300, 'x'));
    mService.answer("/ppt getSlideList", cut.substr(0, 3 * 128));
    EXPECT_EQ(run(runSlides, {"/a.ppt", {}}), STATUS_DONE);
    EXPECT_EQ(printed(), "1  A \"B\"\n2  C\n");
    EXPECT_THAT(complaints(), HasSubstr("there are 3 slides"));
}

TEST_F(PrintCommands, AnotherKindOfDocumentIsTheServicesError) {
    mService.answer("/excel getSheetList",
                    R"({"errorCode": "errWrongType", "errorText": "Not an Excel document"})");
    EXPECT_EQ(run(runSheets, {"/a.doc", {}}), STATUS_FAILED);
    EXPECT_EQ(printed(), "");
    EXPECT_THAT(complaints(), HasSubstr("Not an Excel document"));
}

TEST_F(PrintCommands, NotePrintsTheNoteOfTheSlide) {
    mService.answer("/ppt getSlideCount", R"({"slidecnt": 7})");
    mService.answer("/ppt jumpToSlide", R"({"slideNumber": 1})");
    mService.answer("/ppt getSlideNote", R"({ "note": "One.\nTwo\u001b[1m." })");
    EXPECT_EQ(run(runNote, {{"/a.ppt"}, 2}), STATUS_DONE);
    EXPECT_EQ(printed(), "One.\nTwo[1m.\n");
    EXPECT_THAT(mService.waitForCall("/ppt jumpToSlide"), HasSubstr(R"("slide": 1)"));
    EXPECT_EQ(run(runNote, {{"/a.ppt", {}, true}, 2}), STATUS_DONE);
    EXPECT_EQ(printed(), "{ \"note\": \"One.\\nTwo\\u001b[1m.\" }\n");
    EXPECT_EQ(complaints(), "");
}

TEST_F(PrintCommands, NoteSaysThatASlideHasNone) {
    mService.answer("/ppt getSlideCount", R"({"slidecnt": 7})");
    mService.answer("/ppt jumpToSlide", R"({"slideNumber": 1})");
    mService.answer("/ppt getSlideNote", "");
    EXPECT_EQ(run(runNote, {{"/a.ppt"}, 2}), STATUS_DONE);
    EXPECT_EQ(printed(), "");
    EXPECT_EQ(complaints(), "lectern: slide 2 has no note\n");
}

TEST_F(PrintCommands, NoteNamesTheRangeOfSlides) {
    mService.answer("/ppt getSlideCount", R"({"slidecnt": 1})");
    EXPECT_EQ(run(runNote, {{"/a.ppt"}, 2}), STATUS_MISUSE);
    EXPECT_EQ(complaints(), "lectern: there is no slide 2; the document has only one\n");
}

TEST_F(PrintCommands, SearchPrintsTheNumberOfHits) {
    for (const auto& [count, text] : {std::pair("0", "no hits"), {"1", "1 hit"}, {"12", "12 hits"}}) {
        mService.answer("/common Search", std::string("{\"resultcount\":") + count + "}");
        const int status = *count == '0' ? STATUS_FAILED : STATUS_DONE;
        EXPECT_EQ(run(runSearch, {{"/letter.docx", "secret"}, "boat", {}}), status);
        EXPECT_EQ(printed(), std::string(text) + " for 'boat'\n");
        EXPECT_EQ(run(runSearch, {{"/letter.docx", {}, true}, "boat", {}}), status);
        EXPECT_EQ(printed(), std::string("{\"resultcount\":") + count + "}\n");
    }
    EXPECT_EQ(complaints(), "");
}

TEST_F(PrintCommands, SearchLooksInOneSheet) {
    mService.documentKind(1);
    mService.answer("/excel getSheetList", mSheets);
    mService.answer("/excel jumpToSheet", R"({"cursheet": 1})");
    mService.answer("/common Search", R"({ "resultcount": 3 })");
    EXPECT_EQ(run(runSearch, {{"/a.xls", {}, false, {}, CLASSIC}, "boat", 2}), STATUS_DONE);
    EXPECT_EQ(printed(), "3 hits for 'boat' in sheet 2\n");
    EXPECT_EQ(run(runSearch, {{"/a.xls", {}, false, {}, CLASSIC}, "boat", 3}), STATUS_MISUSE);
    EXPECT_THAT(complaints(), HasSubstr("a number from 1 to 2"));
}

TEST_F(PrintCommands, SearchLooksInAllSheets) {
    mService.documentKind(1);
    mService.answer("/excel getSheetList", mSheets);
    mService.answer("/excel jumpToSheet", R"({"cursheet": 1})");
    mService.answer("/common Search", R"({ "resultcount": 3 })");
    EXPECT_EQ(run(runSearch, {{"/a.xls", {}, false, {}, CLASSIC}, "boat", {}}), STATUS_DONE);
    EXPECT_EQ(printed(), "6 hits for 'boat'\n  sheet 1, A \"B\": 3 hits\n  sheet 2, C: 3 hits\n");
    EXPECT_EQ(run(runSearch, {{"/a.xls", {}, true, {}, CLASSIC}, "boat", {}}), STATUS_DONE);
    EXPECT_EQ(printed(), R"({"resultcount": 6, "sheets": [{"sheet": 0, "resultcount": 3}, )"
                         R"({"sheet": 1, "resultcount": 3}]})"
                         "\n");
}

// The service marks no hits in notes, and the fake's pictures never change.
TEST_F(PrintCommands, SearchLooksInTheNoteOfTheFirstSlide) {
    mService.documentKind(3);
    mService.answer("/common Search", R"({ "resultcount": 0 })");
    mService.answer("/common nextResult", R"({ "returnValue": true })");
    mService.answer("/ppt getSlideNote", R"({ "note": "By Boat" })");
    mService.answer("/ppt getSlideList", R"({"list": []})");
    EXPECT_EQ(run(runSearch, {{"/a.ppt", {}, false, {}, CLASSIC}, "boat", {}}), STATUS_DONE);
    EXPECT_EQ(printed(), "1 hit for 'boat'\n  slide 1: 1 hit\n");
    EXPECT_EQ(run(runSearch, {{"/a.ppt", {}, false, {}, CLASSIC}, "ship", {}}), STATUS_FAILED);
    EXPECT_EQ(printed(), "no hits for 'ship'\n");
    EXPECT_EQ(run(runSearch, {{"/a.ppt", {}, true, {}, CLASSIC}, "ship", {}}), STATUS_FAILED);
    EXPECT_EQ(printed(), "{\"resultcount\": 0, \"slides\": []}\n");
    EXPECT_EQ(complaints(), "");
}

TEST_F(PrintCommands, FailWithTheDocument) {
    mService.openResult(2);
    EXPECT_EQ(run(runSearch, {{"/letter.docx"}, "boat", {}}), STATUS_FAILED);
    EXPECT_EQ(run(runInfo, {"/letter.docx", {}}), STATUS_FAILED);
    EXPECT_EQ(printed(), "");
    EXPECT_THAT(complaints(), HasSubstr("(code 2)"));
}

} // namespace
