// SPDX-License-Identifier: Apache-2.0
// Exit statuses and messages on standard error; the sub-command "call".
#include "tests/system/command/ServedCommandFixture.h"

#include <filesystem>

namespace {

using testing::HasSubstr;

class StatusTest : public CommandTest {
protected:
    void expect(const std::vector<std::string>& arguments, int status, const std::string& text) {
        const Outcome outcome = lectern(arguments);
        EXPECT_EQ(outcome.status, status) << arguments[0];
        EXPECT_THAT(outcome.errors, HasSubstr(text));
        EXPECT_EQ(outcome.errors.rfind("lectern: ", 0), 0U) << outcome.errors;
        EXPECT_EQ(outcome.output, "");
    }
    std::string picture() const { return folder.path() + "/out.png"; }
};

TEST_F(StatusTest, OneForWhatTheDocumentIsNot) {
    expect({"sheets", sample("tour.docx")}, 1, "Not an Excel document");
    expect({"slides", sample("tour.xlsx")}, 1, "Not a PowerPoint document");
    expect({"note", sample("tour.docx"), "--slide", "1"}, 1, "Not a PowerPoint document");
}

TEST_F(StatusTest, OneWithTheModulesCodeForADocumentThatDoesNotOpen) {
    expect({"info", folder.path() + "/none.xlsx"}, 1, "there is no such file; check the path (code 2)");
    expect({"sheets", sample("locked.xlsx")}, 1, "give one with --password (code 7)");
    expect({"sheets", sample("locked.xlsx"), "-p", "no"}, 1, "the password is wrong");
    expect({"info", folder.path() + "/a.xyz"}, 1, "must end in .doc, .docx");
}

TEST_F(StatusTest, TwoForASheetOrSlideThatIsNotThereAndNoPicture) {
    expect({"open", sample("tour.xlsx"), "-o", picture(), "--sheet", "6"}, 2, "use a number from 1 to 5");
    expect({"open", sample("tour.pptx"), "-o", picture(), "--slide", "8"}, 2, "use a number from 1 to 7");
    expect({"open", sample("tour.docx"), "-o", picture(), "--sheet", "1"}, 2, "works with spreadsheets only");
    expect({"open", sample("tour.xlsx"), "-o", picture(), "--slide", "1"}, 2,
           "works with presentations only");
    expect({"open", sample("tour.pptx"), "-o", picture(), "--wide"}, 2,
           "works with word-processing documents only");
    EXPECT_FALSE(std::filesystem::exists(picture()));
}

TEST_F(StatusTest, TwoForALineThatMakesNoSense) {
    expect({"sheets"}, 2, "FILE is missing");
    expect({"note", sample("tour.pptx")}, 2, "--slide N");
    expect({"fly", "away"}, 2, "unknown command 'fly'");
}

TEST_F(StatusTest, CallsReachTheServiceWhereTheDocumentIsOpen) {
    TestDocument document(*client, *queue, sample("tour.pptx"), 48, 80);
    EXPECT_EQ(done({"call", "/ppt", "getSlideCount", document.docidPayload()}), "{ \"slidecnt\": 7 }\n");
    const Outcome refused = lectern({"call", "/excel", "getSheetList", document.docidPayload()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.output,
              "{ \"errorCode\": \"errWrongType\", \"errorText\": \"Not an Excel document\" }\n");
    expect({"call", "/ppt", "nonsense", "{}"}, 1, "no method 'nonsense' in '/ppt'");
}

TEST_F(StatusTest, CallsThatAreNeverAnsweredEndAtOnce) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(done({"call", "/events", "ping", "{}"}), "");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << "the bus waits 25 s";
}

TEST_F(StatusTest, WithoutASessionAPrivateServiceAnswers) {
    const std::map<std::string, std::string> nowhere{{"DBUS_SESSION_BUS_ADDRESS", ""},
                                                     {"XDG_RUNTIME_DIR", ""}};
    EXPECT_EQ(lectern({"call", "/events", "ping", "{}"}, nowhere).status, 0);
    const Outcome unknown = lectern({"call", "/common", "getDocProperties", "{\"docid\": 0}"}, nowhere);
    EXPECT_EQ(unknown.status, 1);
    EXPECT_THAT(unknown.output, HasSubstr("errDoesNotExist"));
    EXPECT_THAT(lectern({"sheets", sample("tour.xlsx")}, nowhere).output, HasSubstr("1  Passengers\n"));
}

} // namespace
