// SPDX-License-Identifier: Apache-2.0
#include "IpcTest.h"
#include "ProbeView.h"

#include <dlfcn.h>
#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

namespace {

class StateRecordIpc : public IpcTest {
protected:
    // A segment that a client brings from an earlier view.
    static unsigned int savedState(int x, int y, double scale, int level) {
        const unsigned int id = makeClientSegment(sizeof(StateRecord));
        auto* record = static_cast<StateRecord*>(shmat(static_cast<int>(id), nullptr, 0));
        *record = {x, y, scale, level, {11, 22}};
        shmdt(record);
        return id;
    }
    static void expectConstructorState(const ProbeView& view) {
        EXPECT_EQ(view.mScroll.x, 0);
        EXPECT_EQ(view.mScroll.y, 0);
        EXPECT_EQ(view.mScale, 1.0);
        EXPECT_EQ(view.mScaleLevel, 0);
    }
};

TEST_F(StateRecordIpc, MakesARecordOfTheInitialStateForANewDocument) {
    ProbeView view;
    view.attachStateRecord("/usr");
    ASSERT_NE(view.mDataStore, nullptr);
    EXPECT_GE(view.dataStoreShmId(), 4096U);
    EXPECT_EQ(view.mDataStore->scrollX, 0);
    EXPECT_EQ(view.mDataStore->scale, 1.0);
    EXPECT_EQ(segmentStatus(view.dataStoreShmId()).shm_nattch, 1U);
}

TEST_F(StateRecordIpc, KeysTheSegmentByPathAndAddress) {
    ProbeView view;
    view.attachStateRecord("/var");
    const auto lowAddress = static_cast<int>(reinterpret_cast<uintptr_t>(&view) & 0xFF);
    EXPECT_EQ(segmentStatus(view.dataStoreShmId()).shm_perm.__key, ftok("/var", lowAddress));
}

TEST_F(StateRecordIpc, GivesEveryViewASegmentOfItsOwn) {
    // More views than the key has project numbers.
    std::vector<std::unique_ptr<ProbeView>> views;
    for (int i = 0; i < 300; ++i) {
        views.push_back(std::make_unique<ProbeView>(1, 1));
        views.back()->attachStateRecord("/usr");
        ASSERT_GE(views.back()->dataStoreShmId(), 4096U);
        EXPECT_EQ(segmentStatus(views.back()->dataStoreShmId()).shm_nattch, 1U);
    }
    EXPECT_EQ(segmentsInUse(), 300);
    views.clear();
    EXPECT_EQ(segmentsInUse(), 0);
}

TEST_F(StateRecordIpc, RestoresTheStateItIsGiven) {
    const unsigned int id = savedState(-12, 3456, 2.5, 2);
    ProbeView view(40, 60, id);
    view.mDirty = false;
    view.attachStateRecord("/usr");
    EXPECT_EQ(view.dataStoreShmId(), id);
    EXPECT_EQ(view.mScroll.x, -12);
    EXPECT_EQ(view.mScroll.y, 3456);
    EXPECT_EQ(view.mScale, 2.5);
    EXPECT_EQ(view.mScaleLevel, 2);
    EXPECT_TRUE(view.mDirty);
    EXPECT_EQ(view.mDataStore->extra[0], 11);
    EXPECT_EQ(view.mDataStore->extra[1], 22);
}

TEST_F(StateRecordIpc, OnlyDetachesAGivenSegmentWhenTheViewGoes) {
    const unsigned int id = savedState(1, 2, 2.0, 1);
    {
        ProbeView view(40, 60, id);
        view.attachStateRecord("/usr");
        EXPECT_EQ(segmentStatus(id).shm_nattch, 1U);
    }
    EXPECT_EQ(segmentStatus(id).shm_nattch, 0U);
    EXPECT_EQ(segmentsInUse(), 1);
}

TEST_F(StateRecordIpc, SavesInTheWireFormat) {
    ProbeView view;
    view.attachStateRecord("/usr");
    view.mScroll.set(0x01020304, -2);
    view.mScale = 2.5;
    view.mScaleLevel = 2;
    view.mDataStore->extra[0] = 0x11111111;
    view.mDataStore->extra[1] = 0x22222222;
    view.SaveStateToDataStore();
    const std::array<unsigned char, 28> expected = {
        4,    3,    2,    1,                            // x
        0xFE, 0xFF, 0xFF, 0xFF,                         // y
        0,    0,    0,    0,    0,    0,    0x04, 0x40, // 2.5
        2,    0,    0,    0,                            // level
        0x11, 0x11, 0x11, 0x11, 0x22, 0x22, 0x22, 0x22, // not the base class's
    };
    EXPECT_EQ(std::memcmp(view.mDataStore, expected.data(), expected.size()), 0);
}

TEST_F(StateRecordIpc, ComesBackInALaterView) {
    unsigned int id = 0;
    void* client = nullptr;
    {
        ProbeView view;
        view.attachStateRecord("/usr");
        id = view.dataStoreShmId();
        client = shmat(static_cast<int>(id), nullptr, 0);
        view.mScroll.set(5, 700);
        view.mScale = 3.25;
        view.SaveStateToDataStore();
    }
    {
        ProbeView view(40, 60, id);
        view.attachStateRecord("/usr");
        EXPECT_EQ(view.dataStoreShmId(), id);
        EXPECT_EQ(view.mScroll.y, 700);
        EXPECT_EQ(view.mScale, 3.25);
    }
    shmdt(client);
    EXPECT_EQ(segmentsInUse(), 0);
}

TEST_F(StateRecordIpc, KeepsTheScaleWhenTheSavedOneMakesNoSense) {
    for (const double scale : {0.0, -1.0, 0.999, 4.001, 1e300, std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(), std::nan("")}) {
        ProbeView view(40, 60, savedState(7, 8, scale, 2));
        view.attachStateRecord("/usr");
        EXPECT_EQ(view.mScale, 1.0) << scale;
        EXPECT_EQ(view.mScroll.x, 7);
        EXPECT_EQ(view.mScroll.y, 8);
        EXPECT_EQ(view.mScaleLevel, 2);
    }
}

TEST_F(StateRecordIpc, TakesScalesAtTheLimits) {
    for (const double scale : {1.0, 4.0}) {
        ProbeView view(40, 60, savedState(0, 0, scale, 0));
        view.mScale = 2.0;
        view.attachStateRecord("/usr");
        EXPECT_EQ(view.mScale, scale);
    }
}

TEST_F(StateRecordIpc, KeepsTheLevelWhenTheSavedOneIsUnknown) {
    for (const int level : {-1, 3, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        ProbeView view(40, 60, savedState(0, 0, 2.0, level));
        view.attachStateRecord("/usr");
        EXPECT_EQ(view.mScaleLevel, 0) << level;
        EXPECT_EQ(view.mScale, 2.0);
    }
}

TEST_F(StateRecordIpc, KeepsPositionsThatLieOutOfReach) {
    constexpr int LIMIT = 1 << 30;
    for (const int position : {LIMIT + 1, -LIMIT - 1, std::numeric_limits<int>::max()}) {
        ProbeView view(40, 60, savedState(position, 9, 1.0, 0));
        view.attachStateRecord("/usr");
        EXPECT_EQ(view.mScroll.x, 0) << position;
        EXPECT_EQ(view.mScroll.y, 9);
        ProbeView other(40, 60, savedState(9, position, 1.0, 0));
        other.attachStateRecord("/usr");
        EXPECT_EQ(other.mScroll.x, 9);
        EXPECT_EQ(other.mScroll.y, 0) << position;
    }
    ProbeView view(40, 60, savedState(LIMIT, -LIMIT, 1.0, 0));
    view.attachStateRecord("/usr");
    EXPECT_EQ(view.mScroll.x, LIMIT);
    EXPECT_EQ(view.mScroll.y, -LIMIT);
}

TEST_F(StateRecordIpc, TreatsAnUnusableSegmentAsNone) {
    const unsigned int removed = makeClientSegment(28);
    shmctl(static_cast<int>(removed), IPC_RMID, nullptr);
    for (const unsigned int id : {removed, makeClientSegment(27), 0xFFFFFFFFU}) {
        ProbeView view(40, 60, id);
        view.attachStateRecord("/usr");
        expectConstructorState(view);
        EXPECT_NE(view.dataStoreShmId(), id);
        EXPECT_GE(view.dataStoreShmId(), 4096U);
        EXPECT_NE(view.mDataStore, nullptr);
    }
}

TEST_F(StateRecordIpc, TreatsAReservedIdentifierAsNone) {
    const unsigned int first = makeSegment(28);
    const unsigned int second = makeSegment(28);
    ASSERT_EQ(second, 1U);
    auto* record = static_cast<StateRecord*>(shmat(static_cast<int>(second), nullptr, 0));
    *record = {1, 2, 2.0, 1, {0, 0}};
    for (const unsigned int id : {first, second}) {
        ProbeView view(40, 60, id);
        view.attachStateRecord("/usr");
        expectConstructorState(view);
        EXPECT_GE(view.dataStoreShmId(), 4096U);
    }
    EXPECT_EQ(record->scrollX, 1);
    shmdt(record);
}

TEST_F(StateRecordIpc, WorksWithoutARecordWhenTheSystemHasNone) {
    while (makeSegment(28) != static_cast<unsigned int>(-1)) {
    }
    ProbeView view(40, 60, 12345678);
    view.attachStateRecord("/usr");
    EXPECT_EQ(view.mDataStore, nullptr);
    EXPECT_EQ(view.dataStoreShmId(), 0U);
    view.mScroll.set(4, 5);
    view.SaveStateToDataStore();
    view.RestoreStateFromDataStore();
    EXPECT_EQ(view.mScroll.x, 4);
}

TEST_F(StateRecordIpc, CanBeDoneInHalves) {
    ProbeView fresh;
    EXPECT_FALSE(fresh.attachGivenStateRecord());
    EXPECT_EQ(fresh.mDataStore, nullptr);
    fresh.makeStateRecord("/tmp");
    EXPECT_NE(fresh.mDataStore, nullptr);
    ProbeView again(40, 60, fresh.dataStoreShmId());
    EXPECT_TRUE(again.attachGivenStateRecord());
    EXPECT_EQ(again.dataStoreShmId(), fresh.dataStoreShmId());
}

TEST(ViewWithoutStateRecord, RestoresNothing) {
    ProbeView view;
    view.mDirty = false;
    view.mScroll.set(3, 4);
    view.RestoreStateFromDataStore();
    EXPECT_FALSE(view.mDirty);
    EXPECT_EQ(view.mScroll.x, 3);
    view.SaveStateToDataStore();
    EXPECT_EQ(view.mDataStore, nullptr);
}

TEST(ViewConstruction, SetsTheInitialState) {
    const ProbeView view(40, 60, 777);
    EXPECT_EQ(view.docType(), _WORD);
    EXPECT_EQ(view.dataStoreShmId(), 777U);
    EXPECT_EQ(view.mDocId, 0);
    EXPECT_EQ(view.mWidth, 40);
    EXPECT_EQ(view.mHeight, 60);
    EXPECT_EQ(view.mMinScale, 1.0);
    EXPECT_EQ(view.mMaxScale, 4.0);
    EXPECT_EQ(view.mBaseScale, 1.0);
    EXPECT_EQ(view.mScale, 1.0);
    EXPECT_EQ(view.mScaleLevel, 0);
    for (const CpPoint& point :
         {view.mScroll, view.mPenDownPoint, view.mPenDownScroll, view.mGestureScroll}) {
        EXPECT_EQ(point.x, 0);
        EXPECT_EQ(point.y, 0);
    }
    EXPECT_FALSE(view.mPenDown || view.mFlicking || view.mClicked || view.mTapStoppedScroll ||
                 view.mFlickUp || view.mGestureActive);
    EXPECT_EQ(view.mDataStore, nullptr);
    EXPECT_EQ(view.mGestureAppliedScale, 1.0);
    EXPECT_EQ(view.mGestureRequestScale, 1.0);
    EXPECT_EQ(view.mDocPixmap, nullptr);
    EXPECT_EQ(view.mLastFrame.Width(), 40);
    EXPECT_EQ(view.mLastFrame.Height(), 60);
    EXPECT_EQ(view.mDrawMode, _NORMAL);
    EXPECT_EQ(view.mCurrentResult, -1);
    EXPECT_EQ(view.mModuleHandle, nullptr);
    EXPECT_FALSE(view.mScroller.isMoving());
    EXPECT_TRUE(view.mDirty);
    EXPECT_TRUE(view.mOffscreenDirty);
    EXPECT_EQ(view.getMimeInfo(), "");
}

TEST(ViewConstruction, KindsAndDrawModesHaveTheirNumbers) {
    EXPECT_THAT((std::array<int, 4>{_UNKNOWN, _EXCEL, _WORD, _PPT}), testing::ElementsAre(0, 1, 2, 3));
    EXPECT_THAT((std::array<int, 5>{_NORMAL, _WIDE, _LEFT, _RIGHT, _DOWN}),
                testing::ElementsAre(0, 2, 3, 4, 5));
}

TEST(ViewConstruction, SurvivesSizesBelowOne) {
    for (const auto& [width, height] : {std::pair{0, 0}, {-5, 10}, {10, -5}, {-1, -1}}) {
        ProbeView view(width, height);
        CpPixmap surface(8, 8);
        view.mDocPixmap = &surface;
        view.handlePaintRouter(nullptr);
        EXPECT_THAT(view.calls, testing::Contains("eraseBuffer 1 locked"));
    }
}

TEST(ViewDestruction, ClosesItsModule) {
    const char* const library = "libanl.so.1"; // small, and not loaded otherwise
    ASSERT_EQ(dlopen(library, RTLD_LAZY | RTLD_NOLOAD), nullptr);
    {
        ProbeView view;
        view.mModuleHandle = dlopen(library, RTLD_LAZY);
        ASSERT_NE(view.mModuleHandle, nullptr);
    }
    EXPECT_EQ(dlopen(library, RTLD_LAZY | RTLD_NOLOAD), nullptr);
}

TEST(ViewDestruction, LeavesTheSurfaceToItsKind) {
    CpPixmap surface(4, 4);
    {
        ProbeView view;
        view.mDocPixmap = &surface;
    }
    surface.Pixels()[0] = 1;
    EXPECT_EQ(surface.Pixels()[0], 1U);
}

TEST(ViewMimeInfo, IsACopyOfTheField) {
    ProbeView view;
    view.mMimeInfo = "text/plain";
    EXPECT_EQ(view.getMimeInfo(), "text/plain");
}

} // namespace
