// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/client/CommandFixture.h"

namespace {

using namespace lectern;
using testing::HasSubstr;

class CallCommand : public CommandTest {
protected:
    int run(const CallArguments& arguments) {
        testing::internal::CaptureStdout();
        Interrupt interrupt;
        const int status = runCall(arguments, interrupt);
        mPrinted = testing::internal::GetCapturedStdout();
        return status;
    }

    std::string mPrinted;
};

TEST_F(CallCommand, PrintsTheReplyAsItIs) {
    mService.answer("/ppt getSlideCount", R"({"slidecnt":   7})");
    EXPECT_EQ(run({"/ppt", "getSlideCount", R"({"docid": 0})"}), STATUS_DONE);
    EXPECT_EQ(mPrinted, "{\"slidecnt\":   7}\n");
    EXPECT_EQ(mService.waitForCall("/ppt getSlideCount"), R"({"docid": 0})");
    EXPECT_EQ(complaints(), "");
}

TEST_F(CallCommand, PrintsAnErrorAndFails) {
    const std::string reply = R"({"errorCode": "errDoesNotExist", "errorText": "Document does not exist"})";
    mService.answer("/ppt getSlideCount", reply);
    EXPECT_EQ(run({"/ppt", "getSlideCount", R"({"docid": 9})"}), STATUS_FAILED);
    EXPECT_EQ(mPrinted, reply + "\n");
    EXPECT_THAT(complaints(), HasSubstr("errDoesNotExist"));
}

TEST_F(CallCommand, PrintsNothingForAMethodWithoutReply) {
    mService.fail("/events ping", "org.freedesktop.DBus.Error.NoReply");
    EXPECT_EQ(run({"/events", "ping", "{}"}), STATUS_DONE);
    EXPECT_EQ(mPrinted, "");
    EXPECT_EQ(complaints(), "");
}

TEST_F(CallCommand, SaysWhichCategoriesThereAre) {
    mService.fail("/none at", "org.freedesktop.DBus.Error.UnknownMethod");
    EXPECT_EQ(run({"/none", "at", "{}"}), STATUS_FAILED);
    EXPECT_THAT(complaints(), HasSubstr("no method 'at' in '/none'; its categories are /common, /events"));
}

} // namespace
