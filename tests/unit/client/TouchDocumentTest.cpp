// SPDX-License-Identifier: Apache-2.0
// Documents that are opened with touch manners.
#include "client/lib/Json.h"
#include "tests/unit/client/FakeService.h"
#include "tests/unit/client/Told.h"
#include <lectern/Document.h>
#include <lectern/Navigation.h>

#include <gmock/gmock.h>

#include <chrono>

namespace {

using namespace lectern;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr char REFUSED[] = R"({"errorCode": "errWrongType", "errorText": "Not a touch view"})";

class TouchDocument : public testing::Test {
protected:
    TouchDocument() : mBus(std::move(*Bus::connect(mService.address()))) {
        mOptions.width = 48;
        mOptions.height = 80;
    }

    std::unique_ptr<Document> open(const std::string& path = "/letter.docx") {
        auto document = Document::open(mBus, path, mOptions);
        EXPECT_TRUE(document) << document.error().text;
        return std::move(*document);
    }
    JsonMembers sent(int count = 1) {
        return std::move(*JsonMembers::parse(mService.waitForCall("/events create", count)));
    }

    Told mTold; // outlives the documents
    FakeService mService;
    Bus mBus;
    OpenOptions mOptions;
};

TEST_F(TouchDocument, AsksForTouchMannersUnlessTold) {
    mOptions.dpi = 264;
    EXPECT_EQ(open()->manners(), Manners::Touch);
    EXPECT_EQ(sent().string("manners"), "touch");
    EXPECT_EQ(sent().real("dpi"), 264.0);
    EXPECT_FALSE(sent().has("kind")) << "there is no such file: the service reads the extension";
    mOptions.manners = Manners::Classic;
    EXPECT_EQ(open()->manners(), Manners::Classic);
    EXPECT_FALSE(sent(2).has("manners"));
    EXPECT_FALSE(sent(2).has("dpi"));
    EXPECT_FALSE(sent(2).has("kind"));
}

TEST_F(TouchDocument, NamesTheKindThatTheFileOrTheProgramTells) {
    const std::string samples = LECTERN_SOURCE_DIR "/samples/";
    open(samples + "tour.xlsx");
    EXPECT_EQ(sent(1).string("kind"), "excel");
    open(samples + "tour.ppt");
    EXPECT_EQ(sent(2).string("kind"), "ppt");
    open(samples + "tour.txt");
    EXPECT_EQ(sent(3).string("kind"), "word");
    mOptions.kind = DocumentKind::Spreadsheet;
    open(samples + "tour.txt");
    EXPECT_EQ(sent(4).string("kind"), "excel");
}

TEST_F(TouchDocument, APinchTellsItsPointFactorAndPhase) {
    const auto document = open();
    ASSERT_FALSE(document->pinchAt(10, 20, 1.0, PinchStep::Begins));
    ASSERT_FALSE(document->pinchAt(11, 22, 1.5, PinchStep::Moves));
    ASSERT_FALSE(document->pinchAt(11, 22, 1.5, PinchStep::GivenUp));
    document->settle();
    mService.view().waitForTaken(3);
    const auto pinches = mService.view().takenOf(_PINCH);
    ASSERT_EQ(pinches.size(), 3U);
    EXPECT_EQ(pinches[0].docid, 3);
    EXPECT_EQ(pinches[0].pinchPhase(), _PINCH_BEGINS);
    EXPECT_EQ(pinches[1].x, 11);
    EXPECT_EQ(pinches[1].y, 22);
    EXPECT_EQ(pinches[1].pinchFactor(), 1.5F);
    EXPECT_EQ(pinches[1].pinchPhase(), _PINCH_MOVES);
    EXPECT_EQ(pinches[2].pinchPhase(), _PINCH_GIVEN_UP);
}

TEST_F(TouchDocument, AScrollTellsItsWay) {
    const auto document = open();
    ASSERT_FALSE(document->scrollBy(-3, 40));
    mService.view().waitForTaken(1);
    const auto scrolls = mService.view().takenOf(_SCROLL_BY);
    ASSERT_EQ(scrolls.size(), 1U);
    EXPECT_EQ(scrolls[0].x, -3);
    EXPECT_EQ(scrolls[0].y, 40);
}

TEST_F(TouchDocument, WhatOnlyTouchViewsHearIsNotSentToOthers) {
    mOptions.manners = Manners::Classic;
    const auto document = open();
    for (const Failure& failure :
         {document->pinchAt(1, 1, 1.0, PinchStep::Begins), document->scrollBy(1, 1)}) {
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->kind, Error::Kind::Argument);
    }
    ASSERT_FALSE(document->paint());
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PAINT));
}

TEST_F(TouchDocument, TheRecordsOfTouchViewsAreTold) {
    mOptions.events.onOverscroll = [&](int x, int y) {
        mTold.add("over " + std::to_string(x) + "," + std::to_string(y));
    };
    mOptions.events.onCellTapped = [&](int column, int row) {
        mTold.add("cell " + std::to_string(column) + "," + std::to_string(row));
    };
    mOptions.events.onOpenProgress = [&](int percent) { mTold.add(std::to_string(percent) + "%"); };
    const auto document = open();
    mService.view().notify(_OVERSCROLL, 0, -12);
    mService.view().notify(_PROGRESS, 3, 40);
    mService.view().notify(_CELL_TAPPED, 1, 6);
    EXPECT_THAT(mTold.waitFor(3), ElementsAre("over 0,-12", "40%", "cell 1,6"));
}

TEST_F(TouchDocument, OpensWhenTheRecordComesHoweverLateAndTellsTheProgress) {
    mService.sendsOpened(false);
    mOptions.events.onOpenProgress = [&](int percent) { mTold.add(std::to_string(percent) + "%"); };
    int told = 0;
    mOptions.onProgress = [&](std::chrono::milliseconds) { // on this thread, while the open goes on
        if (++told == 1) {
            mService.view().notify(_PROGRESS, 3, 50);
        }
        if (told == 2) {
            mService.view().notify(_OPENED, 3, 0);
        }
    };
    const auto document = open();
    EXPECT_EQ(told, 2);
    EXPECT_THAT(mTold.waitFor(1), ElementsAre("50%"));
    EXPECT_FALSE(document->paint());
}

TEST_F(TouchDocument, AnOpenThatIsCancelledIsGivenUpInTheServiceToo) {
    mService.sendsOpened(false);
    mService.answer("/touch cancel", std::nullopt);
    std::stop_source stop;
    mOptions.stop = stop.get_token();
    mOptions.onProgress = [&](std::chrono::milliseconds) { stop.request_stop(); }; // "create" is answered
    const auto document = Document::open(mBus, "/letter.docx", mOptions);
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().kind, Error::Kind::Cancelled);
    EXPECT_EQ(mService.waitForCall("/touch cancel"), R"({ "docid": 3 })");
    EXPECT_EQ(mService.waitForCall("/events destroy"), R"({ "docid": 3 })");
}

TEST_F(TouchDocument, APasswordOpensAPresentationToo) {
    mService.documentKind(static_cast<int>(DocumentKind::Presentation));
    mService.openResult(7);
    const auto document = Document::open(mBus, "/a.pptx", mOptions);
    ASSERT_FALSE(document);
    EXPECT_THAT(document.error().text, HasSubstr("give one with --password"));
}

TEST_F(TouchDocument, AResizeReplacesTheFrameBuffer) {
    const auto document = open();
    const unsigned int before = document->frame().identifier();
    ASSERT_FALSE(document->resize(80, 48));
    EXPECT_EQ(document->frame().width(), 80);
    EXPECT_EQ(document->frame().height(), 48);
    EXPECT_NE(document->frame().identifier(), before);
    const auto told = JsonMembers::parse(mService.waitForCall("/touch resize"));
    EXPECT_EQ(told->identifier("shmid"), document->frame().identifier());
    EXPECT_EQ(told->integer("docid"), 3);
    mService.vanish();
    mService.comeBack();
    ASSERT_FALSE(document->reopen());
    EXPECT_EQ(sent(2).integer("width"), 80) << "a reopen keeps the size";
    EXPECT_EQ(sent(2).identifier("shmid"), document->frame().identifier());
}

TEST_F(TouchDocument, AResizeThatFailsLeavesTheFrameBuffer) {
    const auto document = open();
    const unsigned int before = document->frame().identifier();
    EXPECT_EQ(document->resize(0, 48)->kind, Error::Kind::Argument);
    mService.answer("/touch resize", REFUSED);
    EXPECT_EQ(document->resize(80, 48)->name, "errWrongType");
    EXPECT_EQ(document->frame().identifier(), before);
    EXPECT_EQ(document->frame().width(), 48);
}

TEST_F(TouchDocument, TheFirstPictureAfterAResizeHasItsSize) {
    mOptions.events.onFrame = [&](const FrameBuffer& frame) {
        mTold.add(std::to_string(frame.width()) + "x" + std::to_string(frame.height()));
    };
    const auto document = open();
    EXPECT_THAT(mTold.waitFor(1), ElementsAre("48x80"));
    ASSERT_FALSE(document->resize(80, 48));
    EXPECT_EQ(mTold.waitFor(2).at(1), "80x48");
}

TEST_F(TouchDocument, ADragOrAJumpOfASheetNeedsNoFlick) {
    mService.documentKind(static_cast<int>(DocumentKind::Spreadsheet));
    const auto document = open();
    ASSERT_FALSE(document->penDown(10, 60));
    ASSERT_FALSE(document->penUp(10, 20));
    ASSERT_FALSE(document->comeToRest());
    mService.view().waitForTaken(2);
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PEN_DOWN, _PEN_UP));
    for (const auto& call : mService.calls()) {
        EXPECT_NE(call.place, "/events handleFlick");
    }
}

TEST_F(TouchDocument, ProgramsZoomAndScrollByCalls) {
    mService.answer("/touch getView", R"({"zoom": 1.5})");
    const auto document = open();
    ASSERT_FALSE(pinch(*document, 2.0));
    EXPECT_EQ(JsonMembers::parse(mService.waitForCall("/touch zoomTo"))->real("zoom"), 3.0);
    const auto arrived = scrollTo(*document, {0, 0});
    ASSERT_TRUE(arrived);
    EXPECT_TRUE(*arrived);
    const auto beyond = scrollTo(*document, {0, 300});
    ASSERT_TRUE(beyond);
    EXPECT_FALSE(*beyond) << "the fake does not move";
    EXPECT_EQ(JsonMembers::parse(mService.waitForCall("/touch scrollTo", 2))->integer("y"), 300);
    EXPECT_THAT(mService.view().taken(), ElementsAre(_PAINT, _PAINT, _PAINT));
}

} // namespace
