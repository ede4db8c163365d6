// SPDX-License-Identifier: Apache-2.0
// The sub-commands with touch manners.
#include "tests/unit/client/CommandFixture.h"

#include <fstream>

namespace {

using namespace lectern;
using testing::ElementsAre;
using testing::HasSubstr;

class TouchCommand : public CommandTest {
protected:
    int open(OpenArguments arguments) {
        arguments.file = "/letter.docx";
        arguments.output = mFolder / "out.png";
        arguments.width = 48;
        arguments.height = 80;
        Interrupt interrupt;
        return runOpen(arguments, interrupt);
    }
    int play(const std::string& script, const ViewArguments& view = {}) {
        const std::string path = mFolder / "a.play";
        std::ofstream(path) << script;
        Interrupt interrupt;
        return runPlay({path, "/letter.docx", mFolder / "frames", 48, 80, {}, {}, view}, interrupt);
    }
    int search(const SearchArguments& arguments) {
        testing::internal::CaptureStdout();
        Interrupt interrupt;
        const int status = runSearch(arguments, interrupt);
        mPrinted = testing::internal::GetCapturedStdout();
        return status;
    }
    std::vector<std::string> searchCalls() const {
        std::vector<std::string> places;
        for (const FakeService::Call& call : mService.calls()) {
            if (call.place.find("earch") != std::string::npos ||
                call.place.find("Result") != std::string::npos) {
                places.push_back(call.place);
            }
        }
        return places;
    }

    const std::string mUnsupported =
        R"({"errorCode": "errNotSupported", "errorText": "not supported for this document"})";
    std::string mPrinted;
};

TEST_F(TouchCommand, OpensWithTheMannersDotsAndKindAskedFor) {
    OpenArguments arguments;
    arguments.view = {Manners::Touch, 264.0, DocumentKind::Presentation};
    EXPECT_EQ(open(arguments), STATUS_DONE);
    const std::string payload = mService.waitForCall("/events create");
    EXPECT_THAT(payload, HasSubstr(R"("manners": "touch")"));
    EXPECT_THAT(payload, HasSubstr(R"("dpi": 264)"));
    EXPECT_THAT(payload, HasSubstr(R"("kind": "ppt")"));
    EXPECT_EQ(complaints(), "");
}

TEST_F(TouchCommand, GoesToTheHitAskedForByItsNumber) {
    mService.answer("/touch search", R"({"hit": 4, "hits": 7, "part": 0})");
    mService.answer("/touch nextResult", R"({"hit": 5, "hits": 7, "part": 0})");
    OpenArguments arguments;
    arguments.search = "boat";
    arguments.hit = 3;
    EXPECT_EQ(open(arguments), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(searchCalls(), ElementsAre("/touch search", "/touch nextResult", "/touch nextResult"));
}

TEST_F(TouchCommand, SaysWhenNothingIsFound) {
    mService.answer("/touch search", R"({"errorCode": "errNothingThere", "errorText": "nothing there"})");
    OpenArguments arguments;
    arguments.search = "boat";
    EXPECT_EQ(open(arguments), STATUS_DONE);
    EXPECT_EQ(complaints(), "lectern: 'boat' was not found\n");
}

TEST_F(TouchCommand, SearchesAsClassicViewsDoWhereTheModuleHasNoMore) {
    mService.answer("/touch search", mUnsupported);
    mService.answer("/touch nextResult", mUnsupported);
    mService.answer("/common Search", R"({"resultcount": 2})");
    OpenArguments arguments;
    arguments.search = "boat";
    arguments.hit = 2;
    EXPECT_EQ(open(arguments), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(searchCalls(),
                ElementsAre("/touch search", "/common Search", "/touch nextResult", "/common nextResult"));
}

TEST_F(TouchCommand, CountsTheHitsOfSlidesByTheAnswersOfTheService) {
    mService.documentKind(3);
    mService.answer("/touch search", R"({"hit": 0, "hits": 3, "part": 2})");
    mService.answer("/touch nextResult", R"({"hit": 1, "hits": 3, "part": 4})");
    mService.answer("/ppt getSlideList", R"({"list": []})");
    EXPECT_EQ(search({{"/a.ppt"}, "boat", {}}), STATUS_DONE);
    EXPECT_EQ(mPrinted, "3 hits for 'boat'\n  slide 3: 1 hit\n  slide 5: 2 hits\n");
    mService.answer("/touch search", R"({"errorCode": "errNothingThere", "errorText": "nothing there"})");
    EXPECT_EQ(search({{"/a.ppt"}, "ship", {}}), STATUS_FAILED);
    EXPECT_EQ(mPrinted, "no hits for 'ship'\n");
}

TEST_F(TouchCommand, CountsTheHitsOfSheetsByTheAnswersOfTheService) {
    mService.documentKind(1);
    mService.answer("/touch search", R"({"hit": 0, "hits": 2, "part": 0})");
    mService.answer("/touch nextResult", R"({"hit": 1, "hits": 3, "part": 1})"); // one more was counted
    mService.answer("/excel getSheetList", R"({"list": [{"data":"A", "listitem":"1", "status":""},)"
                                           R"({"data":"C", "listitem":"2", "status":""}]})");
    mService.answer("/excel jumpToSheet", R"({"cursheet": 1})");
    EXPECT_EQ(search({{"/a.xls"}, "boat", {}}), STATUS_DONE);
    EXPECT_EQ(mPrinted, "3 hits for 'boat'\n  sheet 1, A: 1 hit\n  sheet 2, C: 2 hits\n");
    EXPECT_EQ(search({{"/a.xls"}, "boat", 2}), STATUS_DONE);
    EXPECT_EQ(mPrinted, "2 hits for 'boat' in sheet 2\n");
    EXPECT_EQ(search({{"/a.xls", {}, true}, "boat", 1}), STATUS_DONE);
    EXPECT_EQ(mPrinted, "{ \"resultcount\": 1 }\n");
}

TEST_F(TouchCommand, PlaysPinchesAboutAPointAndScrolls) {
    EXPECT_EQ(play("pinchat 10 20 2 80\nscrollby 0 30\n"), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PAINT, _PAINT, _PINCH, _PINCH, _PAINT, _PINCH, _PAINT,
                                                     _PINCH, _PAINT, _SCROLL_BY));
    const auto pinches = mService.view().takenOf(_PINCH);
    EXPECT_EQ(pinches[1].pinchFactor(), 1.5F);
    EXPECT_EQ(pinches[3].pinchPhase(), _PINCH_ENDS);
    EXPECT_EQ(pinches[3].y, 20);
}

TEST_F(TouchCommand, PlaysAResize) {
    EXPECT_EQ(play("frame\nresize 80x48\nframe turned\n"), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(mService.waitForCall("/touch resize"), HasSubstr(R"("width": 80)"));
}

TEST_F(TouchCommand, NamesTheLineThatNeedsTouchManners) {
    EXPECT_EQ(play("frame\npinchat 10 20 2\n", {Manners::Classic}), STATUS_MISUSE);
    EXPECT_THAT(complaints(), HasSubstr("a.play:2: the document was opened without touch manners"));
}

TEST_F(TouchCommand, StepsWithoutHitsDoNothing) {
    mService.answer("/touch nextResult", R"({"errorCode": "errNothingThere", "errorText": "nothing there"})");
    EXPECT_EQ(play("next\n"), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
}

class ViewOptions : public testing::Test {};

TEST_F(ViewOptions, AreTouchMannersByDefault) {
    const auto parsed = std::get<OpenArguments>(parseOpen({"a.docx", "-o", "a.png"}));
    EXPECT_EQ(parsed.view.manners, Manners::Touch);
    EXPECT_EQ(parsed.view.dpi, 72.0);
    EXPECT_EQ(parsed.view.kind, DocumentKind::Unknown);
    EXPECT_EQ(std::get<PrintArguments>(parseInfo({"a.docx", "--classic"})).view.manners, Manners::Classic);
}

TEST_F(ViewOptions, TakeDotsAndKinds) {
    const auto parsed =
        std::get<PlayArguments>(parsePlay({"a.play", "a", "-o", "f", "--dpi", "264", "--kind", "excel"}));
    EXPECT_EQ(parsed.view.dpi, 264.0);
    EXPECT_EQ(parsed.view.kind, DocumentKind::Spreadsheet);
    EXPECT_EQ(std::get<PrintArguments>(parseInfo({"-", "--kind", "ppt"})).view.kind,
              DocumentKind::Presentation);
}

TEST_F(ViewOptions, RefuseOtherValues) {
    const auto misuse = [](const Words& words) { return std::get<Misuse>(parseOpen(words)).text; };
    EXPECT_THAT(misuse({"a", "-o", "b", "--dpi", "12"}), HasSubstr("use 36 to 1200"));
    EXPECT_THAT(misuse({"a", "-o", "b", "--kind", "odt"}), HasSubstr("use word, excel or ppt"));
    EXPECT_THAT(misuse({"a", "-o", "b", "--kind", "word", "--classic"}), HasSubstr("cannot be combined"));
    EXPECT_THAT(misuse({"a", "-o", "b", "--dpi", "72", "--classic"}), HasSubstr("cannot be combined"));
}

} // namespace
