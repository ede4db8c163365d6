// SPDX-License-Identifier: Apache-2.0
#include "Notifications.h"
#include "ProbeView.h"
#include "TestClock.h"

#include <unistd.h>

namespace {

// A view whose notifications are read by a client from a real queue.
class Notifications : public NotifiedTest {
protected:
    void SetUp() override {
        NotifiedTest::SetUp();
        ASSERT_EQ(client.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
        view.attachStateRecord("/usr");
        view.mDirty = false;
    }

    // Reads the next notification for the view; returns false when there is none.
    bool next(ServerClientMessage& message) {
        testing::internal::CaptureStderr(); // reading an empty queue prints a message
        const bool any = client.ReadMessage(static_cast<long>(view.dataStoreShmId()), message, 0) == 12;
        testing::internal::GetCapturedStderr();
        return any;
    }
    int countInvalidations() {
        int count = 0;
        for (ServerClientMessage message; next(message); ++count) {
            EXPECT_EQ(message.id, _INVALIDATED);
        }
        return count;
    }

    DocAdapterMessageQueue client;
    TestClock clock;
    ProbeView view;
};

TEST_F(Notifications, InvalidateScreenAsksForAPaint) {
    view.InvalidateScreen();
    EXPECT_TRUE(view.mDirty);
    ServerClientMessage message(1, _PAINT_DONE);
    ASSERT_TRUE(next(message));
    EXPECT_EQ(message.type, static_cast<long>(view.dataStoreShmId()));
    EXPECT_EQ(message.id, _INVALIDATED);
    EXPECT_EQ(message.value, 0);
    EXPECT_EQ(message.extra, 0);
    EXPECT_FALSE(next(message));
}

TEST_F(Notifications, SendDocMessageLeavesTheDirtyFlagAlone) {
    view.SendDocMessage(_HYPERLINK);
    EXPECT_FALSE(view.mDirty);
    ServerClientMessage message;
    ASSERT_TRUE(next(message));
    EXPECT_EQ(message.id, _HYPERLINK);
    EXPECT_EQ(message.value, 0);
    EXPECT_EQ(message.extra, 0);
}

TEST_F(Notifications, SendDocMessageCarriesAValue) {
    view.SendDocMessage(_SLIDE_CHANGED, 12);
    ServerClientMessage message;
    ASSERT_TRUE(next(message));
    EXPECT_EQ(message.id, _SLIDE_CHANGED);
    EXPECT_EQ(message.value, 12);
    EXPECT_EQ(message.extra, 0);
}

TEST_F(Notifications, SetDirtySendsNothing) {
    view.setDirty();
    EXPECT_TRUE(view.mDirty);
    EXPECT_EQ(countInvalidations(), 0);
}

TEST_F(Notifications, AViewWithoutASegmentSendsNothing) {
    ProbeView mute;
    for (const unsigned int id : {0U, 1U, 99U}) {
        mute.mDataStoreShmId = id;
        mute.mDirty = false;
        mute.InvalidateScreen();
        EXPECT_TRUE(mute.mDirty);
    }
    ClientServerMessage wrong;
    ASSERT_EQ(client.SendMessage(ClientServerMessage(_PEN_MOVE, 42)), 0);
    EXPECT_EQ(g_msgQueue.ReadMessage(wrong), 20);
    EXPECT_EQ(wrong.docid, 42); // not a misdirected notification
}

TEST_F(Notifications, FlickAsksForOnePaint) {
    view.handleFlick(0, -100);
    EXPECT_EQ(countInvalidations(), 1);
}

TEST_F(Notifications, FlickWithoutVelocityStillAsksForOne) {
    view.handleFlick(0, 0);
    EXPECT_EQ(countInvalidations(), 1);
    view.OfficeBase::tick();
    EXPECT_EQ(countInvalidations(), 0);
}

TEST_F(Notifications, EveryStepOfAGlideAsksForTheNextPaint) {
    view.handleFlick(0, -862);
    countInvalidations();
    clock.advance(0.5);
    EXPECT_TRUE(view.tick());
    EXPECT_EQ(countInvalidations(), 1);
    clock.advance(5.0);
    EXPECT_FALSE(view.tick()); // the last step is shown as well
    EXPECT_EQ(countInvalidations(), 1);
    EXPECT_FALSE(view.tick());
    EXPECT_EQ(countInvalidations(), 0);
}

TEST_F(Notifications, DoubleTapAsksForOnePaint) {
    view.handleDoubleClick(1, 1);
    EXPECT_EQ(countInvalidations(), 1);
}

TEST_F(Notifications, GestureAsksForAPaintOnlyWhenItChangedTheScale) {
    view.handleGestureStart(1.0, 0.0);
    view.handleGestureChange(2.0, 0.0);
    view.handleGestureEnd(2.0, 0.0);
    EXPECT_EQ(countInvalidations(), 0);
    view.handleGestureStart(1.0, 0.0);
    view.mGestureAppliedScale = 2.0;
    view.handleGestureEnd(2.0, 0.0);
    EXPECT_EQ(countInvalidations(), 1);
}

TEST_F(Notifications, PensClicksAndKeysSendNothing) {
    view.handlePenDown(1, 1);
    view.handlePenMove(5, 5);
    view.handlePenUp(9, 9);
    view.handleClick(1, 1);
    view.handleKeyDown('a', 0);
    view.handleKeyUp('a', 0);
    view.CenterAboutRect(CpRect(1000, 1000, 1010, 1010), true);
    EXPECT_EQ(countInvalidations(), 0);
    EXPECT_FALSE(view.mDirty);
}

TEST_F(Notifications, PaintingAViewAtRestSendsNothing) {
    CpPixmap surface(40, 60);
    std::vector<unsigned int> frame(40 * 60);
    view.mDocPixmap = &surface;
    view.setDirty();
    view.handlePaintRouter(frame.data());
    EXPECT_EQ(countInvalidations(), 0);
    EXPECT_FALSE(view.mDirty);
}

TEST_F(Notifications, PaintingAGlideLeavesTheViewDirty) {
    CpPixmap surface(40, 6000);
    std::vector<unsigned int> frame(40 * 60);
    view.mDocPixmap = &surface;
    view.handleFlick(0, -862);
    countInvalidations();
    clock.advance(0.1);
    view.handlePaintRouter(frame.data());
    EXPECT_EQ(countInvalidations(), 1);
    EXPECT_TRUE(view.mDirty);
}

} // namespace
