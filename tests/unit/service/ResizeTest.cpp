// SPDX-License-Identifier: Apache-2.0
// The method "resize" of "/touch".
#include "ClientSide.h"
#include "service/Limits.h"
#include "service/Opening.h"
#include "service/RenderWorker.h"
#include "tests/fakes/word/FakeWordModule.h"

#include <thread>

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

class ResizeTest : public ClientSideTest {
protected:
    void SetUp() override {
        ClientSideTest::SetUp();
        fakeWord().reset();
        limitsBefore = limits();
    }
    void TearDown() override {
        limits() = limitsBefore;
        ClientSideTest::TearDown();
    }
    void open(const ClientFrame& frame) {
        create(payloadOf("a.doc", frame) + R"(, "manners": "touch")");
        while (hasOpenings()) {
            std::this_thread::yield();
        }
        takeMessages(static_cast<long>(dataStoreOf(0)));
    }
    std::optional<std::string> resize(const ClientFrame& frame, int width, int height) {
        return call("/touch", "resize",
                    R"({"docid": 0, "width": )" + std::to_string(width) + R"(, "height": )" +
                        std::to_string(height) + R"(, "shmid": )" + std::to_string(frame.id()) +
                        R"(, "size": )" + std::to_string(frame.size()) + "}");
    }
    void expectRefused(const ClientFrame& frame, int width, int height, const std::string& reason) {
        CaptureStderr();
        EXPECT_EQ(resize(frame, width, height), NO_PARAMETER_TEXT);
        EXPECT_EQ(GetCapturedStderr(), "Frame buffer refused: " + reason + ".\n");
        EXPECT_EQ(frame.attachments(), 1U);
    }

    Limits limitsBefore;
};

TEST_F(ResizeTest, PaintsGoToTheNewFrameInItsSize) {
    const ClientFrame first(SIZE);
    open(first);
    const ClientFrame second(HEIGHT * WIDTH * 4 + 4);
    EXPECT_EQ(resize(second, HEIGHT, WIDTH), DONE);
    EXPECT_EQ(first.attachments(), 1U) << "the one before is detached";
    EXPECT_EQ(second.attachments(), 2U);
    const auto messages = takeMessages(static_cast<long>(dataStoreOf(0)));
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].id, _INVALIDATED);
    EXPECT_TRUE(serveMessage(ClientServerMessage(_PAINT, 0)));
    EXPECT_EQ(second.status(), 1);
    EXPECT_NE(second.pixel(HEIGHT * WIDTH - 1), 0U) << "the last pixel is painted";
    destroy(0);
    EXPECT_EQ(second.attachments(), 1U);
}

TEST_F(ResizeTest, ARefusedFrameChangesNothing) {
    const ClientFrame first(SIZE);
    open(first);
    const ClientFrame small(64);
    expectRefused(small, 5, 4, "frame larger than size");
    expectRefused(small, 0, 4, "width or height out of range");
    limits().bytes = 1;
    expectRefused(small, 4, 4, "all pictures take too much memory");
    EXPECT_EQ(first.attachments(), 2U);
    EXPECT_TRUE(serveMessage(ClientServerMessage(_PAINT, 0)));
    EXPECT_EQ(first.status(), 1);
}

TEST_F(ResizeTest, TheDocumentItselfDoesNotCountAgainstTheLimits) {
    const ClientFrame first(SIZE);
    open(first);
    limits().documents = 1;
    limits().documentsPerClient = 1;
    const ClientFrame second(SIZE);
    EXPECT_EQ(resize(second, WIDTH, HEIGHT), DONE);
}

TEST_F(ResizeTest, OtherViewsCannotBeResized) {
    addView();
    const ClientFrame frame(64);
    EXPECT_EQ(resize(frame, 4, 4), R"({ "errorCode": "errWrongType", "errorText": "Not a touch view" })");
    EXPECT_EQ(frame.attachments(), 1U);
    gDocuments.clear();
    EXPECT_EQ(resize(frame, 4, 4), NO_DOCUMENT);
}

TEST_F(ResizeTest, APinchAndAGlideEndWithTheOldSize) {
    const ClientFrame first(SIZE);
    const ClientFrame second(HEIGHT * WIDTH * 4);
    open(first);
    ClientServerMessage pinch(_PINCH, 0);
    pinch.x = WIDTH - 1;
    pinch.y = HEIGHT - 1;
    pinch.setPinch(1.0F, _PINCH_BEGINS);
    EXPECT_TRUE(serveMessage(pinch));
    EXPECT_EQ(resize(second, HEIGHT, WIDTH), DONE);
    pinch.setPinch(2.0F, _PINCH_ENDS);
    EXPECT_TRUE(serveMessage(pinch));
    EXPECT_TRUE(serveMessage(ClientServerMessage(_PAINT, 0)));
    EXPECT_EQ(call("/events", "handleFlick", R"({"docid": 0, "xCoord": 0, "yCoord": -3000})"), DONE);
    EXPECT_TRUE(serveMessage(ClientServerMessage(_PAINT, 0)));
    EXPECT_EQ(resize(first, WIDTH, HEIGHT), DONE);
    EXPECT_TRUE(serveMessage(ClientServerMessage(_PAINT, 0)));
    EXPECT_NE(call("/touch", "getView", R"({"docid": 0})").value_or("").find("\"moving\": false"),
              std::string::npos);
}

} // namespace
