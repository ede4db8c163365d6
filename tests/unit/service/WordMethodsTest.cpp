// SPDX-License-Identifier: Apache-2.0
#include "ServiceTest.h"

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class WideModeTest : public ServiceTest {
protected:
    // The record that the worker would read next.
    ClientServerMessage next() {
        ClientServerMessage message;
        EXPECT_EQ(g_msgQueue.ReadMessage(message), 20);
        return message;
    }
};

TEST_F(WideModeTest, IsLeftToTheWorker) {
    fakeHub.onReply = [](const std::string&) { EXPECT_EQ(waiting(), 1U) << "queued first"; };
    EXPECT_EQ(call("/word", "wideMode", R"({"docid": 4, "wideMode": true})"), DONE);
    const ClientServerMessage on = next();
    EXPECT_EQ(on.type, _WIDE_MODE);
    EXPECT_EQ(on.docid, 4);
    EXPECT_EQ(on.x, 1);
    EXPECT_EQ(call("/word", "wideMode", R"({"docid": 5, "wideMode": false})"), DONE);
    const ClientServerMessage off = next();
    EXPECT_EQ(off.docid, 5);
    EXPECT_EQ(off.x, 0);
}

TEST_F(WideModeTest, LooksAtNoDocumentAndLocksNothing) {
    const StuckRegistry stuck;
    CaptureStderr();
    EXPECT_EQ(call("/word", "wideMode", R"({"docid": 99, "wideMode": true})"), DONE);
    EXPECT_EQ(GetCapturedStderr(), "");
}

TEST_F(WideModeTest, BothParametersAreRequired) {
    EXPECT_EQ(call("/word", "wideMode", "{}"), NO_PARAMETER_TEXT);
    EXPECT_EQ(call("/word", "wideMode", R"({"docid": 0})"), NO_PARAMETER_TEXT);
    EXPECT_EQ(call("/word", "wideMode", R"({"wideMode": true})"), NO_PARAMETER_TEXT);
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(WideModeTest, AFailedPostHasNoReply) {
    g_msgQueue.Remove();
    CaptureStderr();
    EXPECT_EQ(call("/word", "wideMode", R"({"docid": 0, "wideMode": true})"), std::nullopt);
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\n");
}

} // namespace
