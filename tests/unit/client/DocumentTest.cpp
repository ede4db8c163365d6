// SPDX-License-Identifier: Apache-2.0
#include "client/lib/ClientQueue.h"
#include "client/lib/DocumentNumber.h"
#include "client/lib/Json.h"
#include "tests/unit/client/FakeService.h"
#include <lectern/Document.h>

#include <gmock/gmock.h>
#include <sys/shm.h>

#include <filesystem>

namespace {

using namespace lectern;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

int segmentsInNamespace() {
    shm_info info{};
    shmctl(0, SHM_INFO, reinterpret_cast<shmid_ds*>(&info));
    return info.used_ids;
}

class DocumentTest : public testing::Test {
protected:
    DocumentTest() : mBus(std::move(*Bus::connect(mService.address()))) {}

    Result<std::unique_ptr<Document>> open(const OpenOptions& options = {}) {
        return Document::open(mBus, "/letter.docx", options);
    }

    FakeService mService;
    Bus mBus;
};

TEST_F(DocumentTest, OpensWithAFrameBufferThatTheServiceCanAttach) {
    const auto document = open({.width = 32, .height = 48});
    ASSERT_TRUE(document) << document.error().text;
    EXPECT_EQ(DocumentNumber::of(**document), 3);
    EXPECT_EQ((*document)->kind(), DocumentKind::WordProcessing);
    EXPECT_TRUE(mService.view().attached());
    EXPECT_EQ((*document)->stateIdentifier(), mService.view().stateIdentifier());
    const auto sent = JsonMembers::parse(mService.calls().front().payload);
    EXPECT_EQ(sent->integer("size"), 32 * 48 * 4 + 4);
    EXPECT_EQ(sent->string("datastoreshmid"), "0");
}

TEST_F(DocumentTest, OpensARelativePathFromTheWorkingFolder) {
    ASSERT_TRUE(Document::open(mBus, "a b.doc"));
    const auto sent = JsonMembers::parse(mService.calls().front().payload);
    EXPECT_EQ(sent->string("filename"), (std::filesystem::current_path() / "a b.doc").string());
}

TEST_F(DocumentTest, HandsBackTheStateOfAnEarlierView) {
    ASSERT_TRUE(open({.restoreFrom = 40'000}));
    EXPECT_EQ(JsonMembers::parse(mService.calls().front().payload)->string("datastoreshmid"), "40000");
}

TEST_F(DocumentTest, ThatDoesNotOpenSaysWhyAndIsDestroyed) {
    mService.openResult(7);
    const auto document = open();
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().kind, Error::Kind::Document);
    EXPECT_EQ(document.error().code, 7);
    EXPECT_THAT(document.error().text, HasSubstr("'/letter.docx'"));
    EXPECT_EQ(mService.waitForCall("/events destroy"), R"({ "docid": 3 })");
}

TEST_F(DocumentTest, OfAnUnknownKindIsRefused) {
    mService.answer("/events create", R"({"errorCode": "errDocType", "errorText": "doctype is unkown"})");
    const auto document = open();
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().name, "errDocType");
}

TEST_F(DocumentTest, IsDestroyedWithTheObjectAndLeavesNothing) {
    const int before = segmentsInNamespace();
    { ASSERT_TRUE(open()); }
    EXPECT_EQ(mService.waitForCall("/events destroy"), R"({ "docid": 3 })");
    EXPECT_EQ(segmentsInNamespace(), before + 2) << "the fake holds its two attachments";
}

TEST_F(DocumentTest, WaitsForTheOpenedRecordNoLongerThanStopped) {
    mService.sendsOpened(false);
    std::stop_source stop;
    std::thread stopper([&] {
        mService.waitForCall("/events create");
        stop.request_stop();
    });
    const auto document = open({.stop = stop.get_token()});
    stopper.join();
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().kind, Error::Kind::Cancelled);
}

TEST_F(DocumentTest, PaintReturnsWhenThePictureIsThere) {
    const auto document = open({.width = 20, .height = 10});
    ASSERT_TRUE(document);
    ASSERT_FALSE((*document)->paint());
    for (int i = 0; i < 200; ++i) {
        ASSERT_EQ((*document)->frame().pixels()[i], FakeView::COLOUR);
    }
}

TEST_F(DocumentTest, PaintFailsWhenTheServiceNoLongerKnowsTheDocument) {
    const auto document = open();
    ASSERT_TRUE(document);
    mService.view().paintResult = -4;
    const auto failure = (*document)->paint();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->name, "errDoesNotExist");
}

TEST_F(DocumentTest, PaintFailsWhileTheModuleCannotRender) {
    const auto document = open();
    ASSERT_TRUE(document);
    mService.view().renderResult = 9;
    const auto failure = (*document)->paint();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, Error::Kind::Document);
    EXPECT_EQ(failure->code, 9);
    EXPECT_THAT(failure->text, HasSubstr("cannot paint the document: its layout takes too long"));
    mService.view().renderResult = 0;
    EXPECT_FALSE((*document)->paint());
}

TEST_F(DocumentTest, TheAnswerToAnEarlierViewsPaintIsNotTakenForItsOwn) {
    ClientQueue queue;
    ASSERT_FALSE(queue.connect());
    ServerClientMessage old(3 + DocAdapterMessageQueue::PAINT_DONE_BASE, _PAINT_DONE);
    old.value = -4;
    ASSERT_TRUE(queue.tryPost(old));
    const auto document = open({.width = 20, .height = 10});
    ASSERT_TRUE(document);
    ASSERT_EQ(DocumentNumber::of(**document), 3);
    EXPECT_FALSE((*document)->paint());
    EXPECT_EQ((*document)->frame().pixels()[199], FakeView::COLOUR);
}

TEST_F(DocumentTest, PaintIsWaitedForNoLongerThanTold) {
    const auto document = open();
    ASSERT_TRUE(document);
    mService.view().answersPaints = false;
    const auto failure = (*document)->paint({.timeout = 1ms});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->kind, Error::Kind::TimedOut);
}

TEST_F(DocumentTest, InputCrossesTheQueueInTheRecordsOfItsTypes) {
    const auto document = open();
    ASSERT_TRUE(document);
    Document& view = **document;
    const std::vector<std::function<Failure()>> inputs = {
        [&] { return view.keyDown(97, 0); },     [&] { return view.keyUp(97, 0); },
        [&] { return view.penDown(1, 2); },      [&] { return view.penMove(3, 4); },
        [&] { return view.penUp(5, 6); },        [&] { return view.gestureStart(1.0); },
        [&] { return view.gestureChange(1.5); }, [&] { return view.gestureEnd(1.5); },
        [&] { return view.wideMode(true); }};
    for (const auto& input : inputs) {
        ASSERT_FALSE(input());
        view.settle();
    }
    ASSERT_FALSE(view.paint());
    EXPECT_THAT(mService.view().taken(), ElementsAre(2, 3, 4, 6, 5, 7, 8, 9, 10, 1));
}

TEST_F(DocumentTest, StateIsThatOfTheLastPaint) {
    const auto document = open();
    ASSERT_TRUE(document);
    ASSERT_FALSE((*document)->penDown(0, 500));
    ASSERT_FALSE((*document)->penUp(0, 200));
    (*document)->settle();
    ASSERT_FALSE((*document)->paint());
    EXPECT_EQ((*document)->state().scrollY, 300);
}

TEST_F(DocumentTest, FailsToOpenOnALostBus) {
    Bus lost = [] {
        const auto privateBus = PrivateBus::start();
        return std::move(*Bus::connect(privateBus->address()));
    }();
    const auto document = Document::open(lost, "/letter.docx");
    ASSERT_FALSE(document);
    EXPECT_EQ(document.error().kind, Error::Kind::Bus);
}

} // namespace
