// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/CommandFixture.h"

#include <gmock/gmock.h>
#include <png.h>
#include <unistd.h>

#include <csignal>
#include <thread>

namespace {

using namespace lectern;
using testing::HasSubstr;

class OpenCommand : public CommandTest {
protected:
    OpenCommand() {
        mArguments.file = "/letter.docx";
        mArguments.output = mFolder / "out.png";
        mArguments.width = 48;
        mArguments.height = 80;
        mArguments.view.manners = Manners::Classic;
    }

    int run() {
        Interrupt interrupt;
        return runOpen(mArguments, interrupt);
    }
    // The calls made by the search, in order.
    std::vector<std::string> steps() const {
        std::vector<std::string> places;
        for (const FakeService::Call& call : mService.calls()) {
            if (call.place.rfind("/common", 0) == 0) {
                places.push_back(call.place);
            }
        }
        return places;
    }

    OpenArguments mArguments;
};

TEST_F(OpenCommand, WritesAPictureOfTheViewsSize) {
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_file(&image, mArguments.output.c_str()), 0) << image.message;
    EXPECT_EQ(image.width, 48U);
    EXPECT_EQ(image.height, 80U);
    image.format = PNG_FORMAT_RGB;
    std::vector<uint8_t> colours(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, colours.data(), 0, nullptr), 0);
    EXPECT_EQ(colours[0], 0x12);
    EXPECT_EQ(colours[1], 0x34);
    EXPECT_EQ(colours[2], 0x56);
}

TEST_F(OpenCommand, SaysWhatIsWrongWithADocumentAndWritesNothing) {
    mService.openResult(8);
    EXPECT_EQ(run(), STATUS_FAILED);
    EXPECT_EQ(complaints(), "lectern: cannot open '/letter.docx': the password is wrong; "
                            "give the right one with --password (code 8)\n");
    EXPECT_FALSE(std::filesystem::exists(mArguments.output));
}

TEST_F(OpenCommand, OpensNothingWhenThePictureCannotBeWritten) {
    mArguments.output = mFolder / "none" / "out.png";
    EXPECT_EQ(run(), STATUS_FAILED);
    EXPECT_THAT(complaints(), HasSubstr("cannot write"));
    EXPECT_TRUE(mService.calls().empty());
}

TEST_F(OpenCommand, ZoomsAndComesBackToTheStart) {
    mArguments.zoom = 1.5;
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    const std::vector<long> taken = mService.view().taken();
    EXPECT_THAT(std::vector<long>(taken.begin(), taken.begin() + 7),
                testing::ElementsAre(1, 1, 7, 8, 1, 9, 1));
    EXPECT_THAT(taken, testing::Contains(_PEN_UP));
}

TEST_F(OpenCommand, SaysWhenAZoomOrAPlaceIsOutOfReach) {
    mArguments.zoom = 9.0;
    mArguments.scroll = {0, 1'000'000};
    EXPECT_EQ(run(), STATUS_DONE);
    const std::string text = complaints();
    EXPECT_THAT(text, HasSubstr("zoomed by 4 only,"));
    EXPECT_THAT(text, HasSubstr("scrolled to 0,5000 only,"));
}

TEST_F(OpenCommand, LaysOutWideOnlyWhatIsWordProcessing) {
    mArguments.wide = true;
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_THAT(mService.view().taken(), testing::Contains(_WIDE_MODE));
    mService.documentKind(1);
    EXPECT_EQ(run(), STATUS_MISUSE);
    EXPECT_THAT(complaints(), HasSubstr("--wide works with word-processing documents only"));
}

TEST_F(OpenCommand, ShowsASheetBeforeItMovesTheView) {
    mService.documentKind(1);
    mService.answer(
        "/excel getSheetList",
        R"({"list": [{"data":"A", "listitem":"1", "status":""},{"data":"B", "listitem":"2", "status":""}]})");
    mService.answer("/excel jumpToSheet", R"({"cursheet": 1})");
    mArguments.sheet = 2;
    mArguments.scroll = {0, 30};
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(mService.waitForCall("/excel jumpToSheet"), HasSubstr(R"("sheet": 1)"));
    EXPECT_EQ(mService.view().taken(),
              (std::vector<long>{_PAINT, _PEN_UP, _PAINT, _PAINT, _PEN_DOWN, _PEN_MOVE, _PEN_UP, _PAINT}));
}

TEST_F(OpenCommand, ShowsASlide) {
    mService.documentKind(3);
    mService.answer("/ppt getSlideCount", R"({"slidecnt": 7})");
    mService.answer("/ppt jumpToSlide", R"({"slideNumber": 6})");
    mArguments.slide = 7;
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(mService.waitForCall("/ppt jumpToSlide"), HasSubstr(R"("slide": 6)"));
}

TEST_F(OpenCommand, NamesTheRangeForASheetOrSlideThatIsNotThere) {
    mService.documentKind(3);
    mService.answer("/ppt getSlideCount", R"({"slidecnt": 7})");
    mArguments.slide = 8;
    EXPECT_EQ(run(), STATUS_MISUSE);
    EXPECT_EQ(complaints(), "lectern: there is no slide 8; use a number from 1 to 7\n");
    EXPECT_FALSE(std::filesystem::exists(mArguments.output));
}

TEST_F(OpenCommand, KnowsTheRangeOfSheetsWhoseListIsCut) {
    mService.documentKind(1);
    const std::string title(200, 'x');
    mService.answer("/excel getSheetList", ("{\"list\": [{\"data\":\"" + title).substr(0, 128));
    mArguments.sheet = 2;
    EXPECT_EQ(run(), STATUS_MISUSE);
    EXPECT_EQ(complaints(), "lectern: there is no sheet 2; the document has only one\n");
}

TEST_F(OpenCommand, HasNoSheetsOrSlidesForOtherKinds) {
    mArguments.sheet = 1;
    EXPECT_EQ(run(), STATUS_MISUSE);
    EXPECT_EQ(complaints(), "lectern: --sheet works with spreadsheets only\n");
    mArguments.sheet.reset();
    mArguments.slide = 1;
    EXPECT_EQ(run(), STATUS_MISUSE);
    EXPECT_EQ(complaints(), "lectern: --slide works with presentations only\n");
}

TEST_F(OpenCommand, GoesFromHitToHitAndPaintsTheOneAskedFor) {
    mArguments.search = "boat";
    mArguments.hit = 3;
    mService.answer("/common Search", R"({ "resultcount": 7 })");
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(mService.waitForCall("/common Search"), HasSubstr("boat"));
    EXPECT_THAT(steps(), testing::ElementsAre("/common Search", "/common nextResult", "/common nextResult"));
    EXPECT_EQ(mService.view().taken(), (std::vector<long>{_PAINT, _PAINT}));
}

TEST_F(OpenCommand, SaysWhenThereAreFewerHitsAndShowsTheLast) {
    mArguments.search = "boat";
    mArguments.hit = 3;
    mService.answer("/common Search", R"({ "resultcount": 2 })");
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "lectern: 'boat' was found 2 times\n");
    EXPECT_THAT(steps(), testing::ElementsAre("/common Search", "/common nextResult"));
}

TEST_F(OpenCommand, SaysWhenThereIsOneHitOrNone) {
    mArguments.search = "boat";
    mArguments.hit = 2;
    mService.answer("/common Search", R"({ "resultcount": 1 })");
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "lectern: 'boat' was found once\n");
    mArguments.hit = 1;
    mService.answer("/common Search", R"({ "resultcount": 0 })");
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "lectern: 'boat' was not found\n");
}

TEST_F(OpenCommand, StepsThroughAPresentationWhichCountsNoHits) {
    mService.documentKind(3);
    mArguments.search = "boat";
    mArguments.hit = 3;
    mService.answer("/common Search", R"({ "resultcount": 0 })");
    EXPECT_EQ(run(), STATUS_DONE);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(steps(), testing::ElementsAre("/common Search", "/common nextResult", "/common nextResult"));
}

TEST_F(OpenCommand, IsCalledOffByASignalAndSaysNothing) {
    mService.sendsOpened(false);
    Interrupt interrupt;
    std::thread user([this] {
        mService.waitForCall("/events create");
        kill(getpid(), SIGTERM);
    });
    EXPECT_EQ(runOpen(mArguments, interrupt), STATUS_FAILED);
    user.join();
    EXPECT_EQ(interrupt.signal(), SIGTERM);
    EXPECT_EQ(complaints(), "");
}

} // namespace
