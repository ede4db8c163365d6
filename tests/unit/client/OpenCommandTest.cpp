// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <png.h>

#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "client/command/Commands.h"
#include "tests/unit/client/FakeService.h"

namespace {

using namespace lectern;
using testing::HasSubstr;

// The sub-commands against a fake service on the session's bus.
class OpenCommand : public testing::Test {
protected:
    OpenCommand() {
        std::string pattern = testing::TempDir() + "lectern-open-XXXXXX";
        mFolder = mkdtemp(pattern.data());
        mArguments.file = "/letter.docx";
        mArguments.output = mFolder / "out.png";
        mArguments.width = 48;
        mArguments.height = 80;
        setenv("DBUS_SESSION_BUS_ADDRESS", mService.address().c_str(), 1);
        testing::internal::CaptureStderr();
    }
    ~OpenCommand() override {
        unsetenv("DBUS_SESSION_BUS_ADDRESS");
        std::filesystem::remove_all(mFolder);
    }

    int run() {
        Interrupt interrupt;
        return runOpen(mArguments, interrupt);
    }
    // The calls of the search, in order.
    std::vector<std::string> steps() const {
        std::vector<std::string> places;
        for (const FakeService::Call& call : mService.calls()) {
            if (call.place.rfind("/common", 0) == 0) {
                places.push_back(call.place);
            }
        }
        return places;
    }
    static std::string complaints() { return testing::internal::GetCapturedStderr(); }

    FakeService mService;
    std::filesystem::path mFolder;
    OpenArguments mArguments;
};

TEST_F(OpenCommand, WritesAPictureOfTheViewsSize) {
    EXPECT_EQ(run(), statusDone);
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
    EXPECT_EQ(run(), statusFailed);
    EXPECT_EQ(complaints(), "lectern: cannot open '/letter.docx': the password is wrong; "
                            "give the right one with --password (code 8)\n");
    EXPECT_FALSE(std::filesystem::exists(mArguments.output));
}

TEST_F(OpenCommand, OpensNothingWhenThePictureCannotBeWritten) {
    mArguments.output = mFolder / "none" / "out.png";
    EXPECT_EQ(run(), statusFailed);
    EXPECT_THAT(complaints(), HasSubstr("cannot write"));
    EXPECT_TRUE(mService.calls().empty());
}

TEST_F(OpenCommand, ZoomsAndComesBackToTheStart) {
    mArguments.zoom = 1.5;
    EXPECT_EQ(run(), statusDone);
    EXPECT_EQ(complaints(), "");
    const std::vector<long> taken = mService.view().taken();
    EXPECT_THAT(std::vector<long>(taken.begin(), taken.begin() + 7),
                testing::ElementsAre(1, 1, 7, 8, 1, 9, 1));
    EXPECT_THAT(taken, testing::Contains(_PEN_UP));
}

TEST_F(OpenCommand, SaysWhenAZoomOrAPlaceIsOutOfReach) {
    mArguments.zoom = 9.0;
    mArguments.scroll = {0, 1'000'000};
    EXPECT_EQ(run(), statusDone);
    const std::string text = complaints();
    EXPECT_THAT(text, HasSubstr("zoomed by 4,"));
    EXPECT_THAT(text, HasSubstr("scrolled to 0,5000,"));
}

TEST_F(OpenCommand, LaysOutWideOnlyWhatIsWordProcessing) {
    mArguments.wide = true;
    EXPECT_EQ(run(), statusDone);
    EXPECT_THAT(mService.view().taken(), testing::Contains(_WIDE_MODE));
    mService.documentKind(1);
    EXPECT_EQ(run(), statusMisuse);
    EXPECT_THAT(complaints(), HasSubstr("--wide is for word-processing documents only"));
}

TEST_F(OpenCommand, GoesFromHitToHitAndPaintsTheOneAskedFor) {
    mArguments.search = "boat";
    mArguments.hit = 3;
    mService.answer("/common Search", R"({ "resultcount": 7 })");
    EXPECT_EQ(run(), statusDone);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(mService.waitForCall("/common Search"), HasSubstr("boat"));
    EXPECT_THAT(steps(), testing::ElementsAre("/common Search", "/common nextResult", "/common nextResult"));
    EXPECT_EQ(mService.view().taken(), (std::vector<long>{_PAINT, _PAINT}));
}

TEST_F(OpenCommand, SaysWhenThereAreFewerHitsAndShowsTheLast) {
    mArguments.search = "boat";
    mArguments.hit = 3;
    mService.answer("/common Search", R"({ "resultcount": 2 })");
    EXPECT_EQ(run(), statusDone);
    EXPECT_EQ(complaints(), "lectern: 'boat' is found 2 times\n");
    EXPECT_THAT(steps(), testing::ElementsAre("/common Search", "/common nextResult"));
}

TEST_F(OpenCommand, StepsThroughAPresentationWhichCountsNoHits) {
    mService.documentKind(3);
    mArguments.search = "boat";
    mArguments.hit = 3;
    mService.answer("/common Search", R"({ "resultcount": 0 })");
    EXPECT_EQ(run(), statusDone);
    EXPECT_EQ(complaints(), "");
    EXPECT_THAT(steps(), testing::ElementsAre("/common Search", "/common nextResult", "/common nextResult"));
}

TEST_F(OpenCommand, SearchPrintsTheNumberOfHits) {
    mService.answer("/common Search", R"({ "resultcount": 12 })");
    testing::internal::CaptureStdout();
    Interrupt interrupt;
    EXPECT_EQ(runSearch({"/letter.docx", "boat", "secret"}, interrupt), statusDone);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "{ \"resultcount\": 12 }\n");
    EXPECT_EQ(complaints(), "");
}

TEST_F(OpenCommand, SearchFailsWithTheDocument) {
    mService.openResult(2);
    Interrupt interrupt;
    EXPECT_EQ(runSearch({"/letter.docx", "boat", {}}, interrupt), statusFailed);
    EXPECT_THAT(complaints(), HasSubstr("(code 2)"));
}

TEST_F(OpenCommand, InfoPrintsTheServicesText) {
    mService.answer("/common getDocProperties", R"({ "name": "Letter", "wordcnt": 5 })");
    testing::internal::CaptureStdout();
    Interrupt interrupt;
    EXPECT_EQ(runInfo({"/letter.docx", "secret"}, interrupt), statusDone);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "{ \"name\": \"Letter\", \"wordcnt\": 5 }\n");
    EXPECT_THAT(mService.calls().front().payload, HasSubstr("secret"));
    EXPECT_EQ(complaints(), "");
}

TEST_F(OpenCommand, IsCalledOffByASignalAndSaysNothing) {
    mService.sendsOpened(false);
    Interrupt interrupt;
    std::thread user([this] {
        mService.waitForCall("/events create");
        kill(getpid(), SIGTERM);
    });
    EXPECT_EQ(runOpen(mArguments, interrupt), statusFailed);
    user.join();
    EXPECT_EQ(interrupt.signal(), SIGTERM);
    EXPECT_EQ(complaints(), "");
}

} // namespace
