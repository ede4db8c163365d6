// SPDX-License-Identifier: Apache-2.0
// The worker's handling of single records.
#include "ClientSide.h"
#include "service/RenderWorker.h"
#include "tests/fakes/word/FakeWordModule.h"
#include "touch/TouchWord.h"

#include <utility>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::internal::CaptureStderr;
using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStderr;
using testing::internal::GetCapturedStdout;

class WorkerDispatchTest : public ClientSideTest {
protected:
    static ClientServerMessage record(long type, int docid, int x = 0, int y = 0) {
        ClientServerMessage message(type, docid);
        message.x = x;
        message.y = y;
        return message;
    }
    // Handles a record for the view; returns the trace.
    std::vector<std::string> traceOf(const ClientServerMessage& message) {
        trace.clear();
        view(message.docid).mDirty = false;
        EXPECT_TRUE(serveMessage(message));
        EXPECT_EQ(view(message.docid).mDirty, message.type != _PAINT);
        traceMessages();
        return trace;
    }
};

TEST_F(WorkerDispatchTest, InputReachesTheViewAndMarksItDirty) {
    const int docid = addView();
    EXPECT_THAT(traceOf(record(2, docid, 97, 1)), ElementsAre("handleKeyDown(97, 1)"));
    EXPECT_THAT(traceOf(record(3, docid, 97, 2)), ElementsAre("handleKeyUp(97, 2)"));
    EXPECT_THAT(traceOf(record(6, docid, -7, 8)), ElementsAre("handlePenMove(-7, 8)"));
}

TEST_F(WorkerDispatchTest, TheViewIsDirtyBeforeItSeesTheInput) {
    const int docid = addView();
    int calls = 0;
    view(docid).onCall = [&] {
        EXPECT_TRUE(view(docid).mDirty);
        EXPECT_TRUE(registryIsHeld());
        ++calls;
    };
    for (long type = _KEY_DOWN; type <= _GESTURE_END; ++type) {
        view(docid).mDirty = false;
        serveMessage(record(type, docid));
    }
    EXPECT_EQ(calls, 8);
    view(docid).onCall = nullptr;
}

TEST_F(WorkerDispatchTest, PenDownAndUpHoldTheViewsMutex) {
    const int docid = addView();
    EXPECT_THAT(traceOf(record(4, docid, 3, 4)), ElementsAre("handlePenDown(3, 4) locked"));
    EXPECT_THAT(traceOf(record(5, docid, 5, 6)), ElementsAre("handlePenUp(5, 6) locked"));
    EXPECT_EQ(pthread_mutex_trylock(view(docid).mutex()), 0);
    pthread_mutex_unlock(view(docid).mutex());
}

TEST_F(WorkerDispatchTest, GesturesCarryTwoDoubles) {
    const int docid = addView();
    ClientServerMessage gesture(7, docid);
    gesture.setReals(1.5, -0.25);
    EXPECT_THAT(traceOf(gesture), ElementsAre("handleGestureStart(1.5, -0.25)"));
    gesture.type = 8;
    EXPECT_THAT(traceOf(gesture), ElementsAre("handleGestureChange(1.5, -0.25)"));
    gesture.type = 9;
    EXPECT_THAT(traceOf(gesture), ElementsAre("handleGestureEnd(1.5, -0.25)"));
}

TEST_F(WorkerDispatchTest, UnknownTypesAreTold) {
    const int docid = addView();
    for (const long type : {0L, 11L, 42L, 99L}) {
        CaptureStdout();
        EXPECT_THAT(traceOf(record(type, docid)), IsEmpty());
        EXPECT_EQ(GetCapturedStdout(), "Unknown message type " + std::to_string(type) + "\n");
    }
}

// Views without touch manners do not hear them.
TEST_F(WorkerDispatchTest, RecordsForTouchViewsAreUnknownToOthers) {
    fakeWord().reset();
    const ClientFrame frame(SIZE);
    create("a.doc", frame);
    const int recording = addView();
    for (const int docid : {0, recording}) {
        for (const long type : {long{_PINCH}, long{_SCROLL_BY}}) {
            ClientServerMessage message = record(type, docid, 10, 20);
            message.setPinch(2.0F, _PINCH_BEGINS);
            trace.clear();
            CaptureStdout();
            EXPECT_TRUE(serveMessage(message));
            EXPECT_EQ(GetCapturedStdout(), "Unknown message type " + std::to_string(type) + "\n");
            EXPECT_THAT(trace, IsEmpty());
        }
    }
}

// Types 13 to 98 are free.
TEST_F(WorkerDispatchTest, OtherTypesAreUnknownToTouchViewsToo) {
    fakeWord().reset();
    Documents document;
    document.view = std::make_unique<TouchWord>(WIDTH, HEIGHT, 0, 0U, double{DOTS_PER_INCH});
    ASSERT_EQ(document.view->openFile("/d/a.doc", nullptr), 0);
    gDocuments.push_back(std::move(document));
    const auto& view = dynamic_cast<const TouchView&>(*gDocuments.back().view);
    const CpRect shown = view.place().view;
    for (long type = _SCROLL_BY + 1; type < DocAdapterMessageQueue::HIGHEST_CLIENT_TYPE; ++type) {
        CaptureStdout();
        EXPECT_TRUE(serveMessage(record(type, 0, 10, 20)));
        EXPECT_EQ(GetCapturedStdout(), "Unknown message type " + std::to_string(type) + "\n");
    }
    EXPECT_EQ(view.place().view.Top(), shown.Top());
    EXPECT_EQ(view.place().view.Left(), shown.Left());
    EXPECT_EQ(view.place().zoom, 1.0);
}

TEST_F(WorkerDispatchTest, WideModeIsForWordsOnly) {
    for (const doctype_t kind : {_EXCEL, _PPT}) {
        ClientServerMessage wide(_WIDE_MODE, addView(kind));
        wide.setFlag(true);
        CaptureStderr();
        EXPECT_THAT(traceOf(wide), IsEmpty());
        EXPECT_EQ(GetCapturedStderr(), "Only Word supports wide mode: " + std::to_string(kind) + "\n");
    }
}

TEST_F(WorkerDispatchTest, WideModeLaysAWordDocumentOutAnew) {
    fakeWord().reset();
    const ClientFrame frame(SIZE);
    create("a.doc", frame);
    const int width = fakeWord().layout.width;
    ClientServerMessage wide(_WIDE_MODE, 0);
    wide.setFlag(true);
    EXPECT_TRUE(serveMessage(wide));
    EXPECT_GT(fakeWord().layout.width, width);
    wide.setFlag(false);
    EXPECT_TRUE(serveMessage(wide));
    EXPECT_EQ(fakeWord().layout.width, width);
}

TEST_F(WorkerDispatchTest, APaintFillsTheFrameAndThenAnswers) {
    const int docid = addView();
    CpPixmap surface(4, 4);
    view(docid).mDocPixmap = &surface;
    view(docid).mDirty = true;
    view(docid).onCall = [&] {
        EXPECT_EQ(*gDocuments[static_cast<size_t>(docid)].status, 0);
        EXPECT_EQ(waiting(), 0U);
    };
    systemCalls.onSend = [&](long type) {
        EXPECT_EQ(type, docid + 101);
        EXPECT_EQ(*gDocuments[static_cast<size_t>(docid)].status, 1) << "before the answer";
        EXPECT_TRUE(registryIsHeld());
    };
    EXPECT_TRUE(serveMessage(record(_PAINT, docid)));
    systemCalls.onSend = nullptr;
    view(docid).onCall = nullptr;
    EXPECT_THAT(trace, ElementsAre("handlePaint", "SaveStateToDataStore")); // the first locks by itself
    EXPECT_EQ(frameOf(docid)[0], 0xFF123456U);
    EXPECT_EQ(*gDocuments[static_cast<size_t>(docid)].status, 1);
    EXPECT_FALSE(view(docid).mDirty);
    const auto answers = takeMessages(docid + 101);
    ASSERT_THAT(answers, SizeIs(1));
    EXPECT_EQ(answers[0].id, _PAINT_DONE);
    EXPECT_EQ(answers[0].value, 0);
    EXPECT_EQ(answers[0].extra, 0);
}

TEST_F(WorkerDispatchTest, APaintOfAViewThatHasNotChangedIsAnsweredToo) {
    const int docid = addView();
    CpPixmap surface(4, 4);
    view(docid).mDocPixmap = &surface;
    view(docid).mDirty = false;
    EXPECT_TRUE(serveMessage(record(_PAINT, docid)));
    EXPECT_THAT(trace, IsEmpty());
    EXPECT_THAT(takeMessages(docid + 101), SizeIs(1));
    EXPECT_EQ(*gDocuments[static_cast<size_t>(docid)].status, 1);
}

TEST_F(WorkerDispatchTest, ADocumentOfTheClientIsPaintedIntoItsSegment) {
    fakeWord().reset();
    ClientFrame frame(SIZE + 4);
    create("a.doc", frame);
    frame.setStatus(77);
    EXPECT_TRUE(serveMessage(record(_PAINT, 0)));
    EXPECT_EQ(frame.pixel(0), fakeWordPixel(0, 0));
    EXPECT_EQ(frame.pixel(WIDTH * (HEIGHT - 1) + 1), fakeWordPixel(HEIGHT - 1, 1));
    EXPECT_EQ(frame.status(), 1);
}

TEST_F(WorkerDispatchTest, PaintsOfUnknownDocumentsAreAnsweredMinusFour) {
    addView();
    addView();
    doDestroy(0);
    trace.clear();
    systemCalls.onSend = [](long) { EXPECT_FALSE(registryIsHeld()); };
    for (const int docid : {0, 2, 5000, -1}) {
        EXPECT_TRUE(serveMessage(record(_PAINT, docid)));
        const auto answers = takeMessages(docid + 101);
        ASSERT_THAT(answers, SizeIs(1)) << docid;
        EXPECT_EQ(answers[0].id, _PAINT_DONE);
        EXPECT_EQ(answers[0].value, -4);
        EXPECT_EQ(answers[0].extra, 0);
    }
    EXPECT_THAT(trace, IsEmpty());
}

TEST_F(WorkerDispatchTest, PaintsThatCannotBeAnsweredDoNotEndTheWorker) {
    CaptureStderr();
    for (const int docid : {-2, -102, -2147483647 - 1, 2147483647, 2147483547}) {
        EXPECT_TRUE(serveMessage(record(_PAINT, docid)));
    }
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(WorkerDispatchTest, InputForUnknownDocumentsIsDropped) {
    addView();
    addView();
    doDestroy(0);
    trace.clear();
    CaptureStderr();
    CaptureStdout();
    for (const int docid : {0, 2, -1}) {
        for (const long type : {2L, 5L, 8L, 10L, 42L, 99L}) {
            EXPECT_TRUE(serveMessage(record(type, docid)));
        }
    }
    EXPECT_EQ(GetCapturedStdout(), "");
    EXPECT_EQ(GetCapturedStderr(), "");
    EXPECT_THAT(trace, IsEmpty());
    EXPECT_EQ(waiting(), 0U);
}

TEST_F(WorkerDispatchTest, WithoutTheRegistryTheWorkerEnds) {
    const StuckRegistry stuck;
    for (const long type : {1L, 6L}) {
        CaptureStderr();
        EXPECT_FALSE(serveMessage(record(type, 0)));
        EXPECT_EQ(GetCapturedStderr(), "Unable to acquire mutex: 35.");
    }
}

TEST_F(WorkerDispatchTest, APaintThatCannotBeReportedEndsTheWorkerAndFreesTheRegistry) {
    addView();
    g_msgQueue.Remove();
    for (const int docid : {0, 1}) {
        ASSERT_EQ(g_msgQueue.isOpen(), false);
        CaptureStderr();
        EXPECT_FALSE(serveMessage(record(_PAINT, docid)));
        EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\n");
        EXPECT_EQ(pthread_mutex_trylock(&gDocumentsMutex), 0);
        pthread_mutex_unlock(&gDocumentsMutex);
    }
}

TEST_F(WorkerDispatchTest, ARegistryThatCannotBeUnlockedIsReportedAndTheWorkerGoesOn) {
    const int docid = addView();
    systemCalls.failingUnlock = &gDocumentsMutex;
    CaptureStderr();
    EXPECT_TRUE(serveMessage(record(_PEN_MOVE, docid)));
    EXPECT_EQ(GetCapturedStderr(), "Unable to release mutex: 1.");
    CaptureStderr();
    EXPECT_TRUE(serveMessage(record(_PAINT, 7)));
    EXPECT_EQ(GetCapturedStderr(), "Unable to release mutex: 1.");
    EXPECT_THAT(takeMessages(7 + 101), SizeIs(1)) << "who asked is answered all the same";
}

TEST_F(WorkerDispatchTest, ARegistryThatCannotBeUnlockedAfterAFailedReportIsReportedToo) {
    addView();
    g_msgQueue.Remove();
    systemCalls.failingUnlock = &gDocumentsMutex;
    CaptureStderr();
    EXPECT_FALSE(serveMessage(record(_PAINT, 0)));
    EXPECT_EQ(GetCapturedStderr(), "Failure sending messages: Invalid argument\nUnable to release mutex: 1.");
}

} // namespace
