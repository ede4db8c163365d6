// SPDX-License-Identifier: Apache-2.0
// The rules for good clients of views with classic manners, which a document follows by
// itself.
#include "tests/unit/client/FakeService.h"
#include <lectern/Document.h>

#include <gmock/gmock.h>

#include <chrono>

namespace {

using namespace lectern;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

class Manners : public testing::Test {
protected:
    Manners() : mBus(std::move(*Bus::connect(mService.address()))) {}

    std::unique_ptr<Document> open(DocumentKind kind) {
        mService.documentKind(static_cast<int>(kind));
        return std::move(
            *Document::open(mBus, "/a", {.width = 48, .height = 80, .manners = lectern::Manners::Classic}));
    }
    std::vector<std::string> flicks() const {
        std::vector<std::string> payloads;
        for (const auto& call : mService.calls()) {
            if (call.place == "/events handleFlick") {
                payloads.push_back(call.payload);
            }
        }
        return payloads;
    }

    FakeService mService;
    Bus mBus;
};

TEST_F(Manners, ADragOfASheetEndsInTheSlowestFlickBeforeThePenUp) {
    const auto document = open(DocumentKind::Spreadsheet);
    ASSERT_FALSE(document->penDown(10, 60));
    ASSERT_FALSE(document->penUp(10, 20));
    document->settle();
    ASSERT_FALSE(document->paint());
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PEN_DOWN, _PEN_MOVE, _PEN_UP, _PAINT));
    EXPECT_THAT(flicks(), ElementsAre(HasSubstr(R"("xCoord": 0, "yCoord": -1)")));
}

TEST_F(Manners, ATapOfASheetAndADragOfAnythingElseNeedNoFlick) {
    auto document = open(DocumentKind::Spreadsheet);
    ASSERT_FALSE(document->penDown(10, 60));
    ASSERT_FALSE(document->penUp(10, 60));
    document = open(DocumentKind::WordProcessing);
    ASSERT_FALSE(document->penDown(10, 60));
    ASSERT_FALSE(document->penUp(10, 20));
    document->settle();
    EXPECT_THAT(flicks(), ElementsAre());
}

TEST_F(Manners, AFlickThatEndsADragOfASheetGoesOn) {
    const auto document = open(DocumentKind::Spreadsheet);
    ASSERT_FALSE(document->penDown(10, 60));
    ASSERT_FALSE(document->penMove(10, 50));
    ASSERT_FALSE(document->flick(0, -800));
    ASSERT_FALSE(document->penUp(10, 45));
    mService.view().waitForTaken(3);
    EXPECT_THAT(flicks(), ElementsAre(HasSubstr("-800")));
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PEN_DOWN, _PEN_MOVE, _PEN_UP));
}

TEST_F(Manners, AFlickOutsideOfAContactIsEndedByAPenUp) {
    const auto document = open(DocumentKind::WordProcessing);
    ASSERT_FALSE(document->flick(0, -800));
    mService.view().waitForTaken(1);
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PEN_UP));
}

TEST_F(Manners, AFlickIsNeverPurelySideways) {
    const auto document = open(DocumentKind::WordProcessing);
    ASSERT_FALSE(document->flick(500, 0));
    EXPECT_THAT(flicks(), ElementsAre(HasSubstr(R"("xCoord": 500, "yCoord": 1)")));
}

TEST_F(Manners, AJumpToAnotherSheetComesToRest) {
    const auto document = open(DocumentKind::Spreadsheet);
    ASSERT_FALSE(document->comeToRest());
    mService.view().waitForTaken(1);
    EXPECT_THAT(flicks(), ElementsAre(HasSubstr(R"("yCoord": -1)")));
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PEN_UP));
}

// The service takes the lowest type first.
TEST_F(Manners, AContactDoesNotOvertakeTheEndOfTheLast) {
    const auto document = open(DocumentKind::WordProcessing);
    std::thread letGo;
    {
        auto held = mService.view().holdUp();
        ASSERT_FALSE(document->keyUp(1, 0)); // taken; the view is busy with it
        ASSERT_FALSE(document->gestureEnd(1.0));
        letGo = std::thread([inHere = std::move(held)] { std::this_thread::sleep_for(20ms); });
    }
    ASSERT_FALSE(document->penDown(1, 1));
    letGo.join();
    mService.view().waitForTaken(3);
    EXPECT_THAT(mService.view().taken(), ElementsAre(_KEY_UP, _GESTURE_END, _PEN_DOWN));
}

TEST_F(Manners, InputWaitsForRoomInAFullQueueAndNotificationsAreReadMeanwhile) {
    const auto document = open(DocumentKind::WordProcessing);
    constexpr int MOVES = 2'000; // more than the queue holds
    for (int i = 0; i < MOVES; ++i) {
        ASSERT_FALSE(document->penMove(i, i));
        mService.view().notify(_INVALIDATED, 0, 0);
    }
    mService.view().waitForTaken(MOVES);
}

TEST_F(Manners, DestroyGoesToTheProcessThatHasTheDocument) {
    auto document = open(DocumentKind::WordProcessing);
    const auto reply = mBus.request("/events", "handleClick", "{}", {});
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->sender.front(), ':');
    document.reset();
    EXPECT_EQ(mService.waitForCall("/events destroy"), R"({ "docid": 3 })");
    EXPECT_EQ(mService.lastDestination("/events destroy"), reply->sender);
}

} // namespace
