// SPDX-License-Identifier: Apache-2.0
#include "Frame.h"
#include "IpcTest.h"
#include "ProbeView.h"
#include "TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr unsigned int BLACK = 0xFF000000U;

// A 40x60 view of a 100x150 document whose surface starts at (10, 500).
class Paint : public testing::Test {
protected:
    void SetUp() override {
        fillPattern(surface);
        view.mDocPixmap = &surface;
        view.mScroll.set(15, 507);
        view.mOffscreenDirty = false;
    }
    // A pixel that the view must show: the surface, and black around it.
    unsigned int expected(int x, int y) const {
        const long sx = view.mScroll.x - 10L + x;
        const long sy = view.mScroll.y - 500L + y;
        const bool onSurface = sx >= 0 && sx < 100 && sy >= 0 && sy < 150;
        return onSurface ? patternPixel(static_cast<int>(sx), static_cast<int>(sy)) : BLACK;
    }
    void expectPicture() {
        for (int y = 0; y < 60; ++y) {
            for (int x = 0; x < 40; ++x) {
                ASSERT_EQ(frame[y * 40 + x], expected(x, y)) << x << ',' << y;
            }
        }
        EXPECT_TRUE(frame.slackIsUntouched());
        expectLastFrame();
    }
    void expectLastFrame() {
        EXPECT_EQ(std::memcmp(view.mLastFrame.Pixels(), frame.pixels(), frame.size() * 4), 0);
    }

    TestClock clock;
    CpPixmap surface{CpRect(10, 500, 110, 650)};
    ProbeView view;
    Frame frame{40, 60};
};

TEST_F(Paint, NothingHappensWithoutASurface) {
    view.mDocPixmap = nullptr;
    view.handlePaintRouter(frame.pixels());
    EXPECT_TRUE(frame.isUntouched());
    EXPECT_TRUE(view.mDirty);
    EXPECT_THAT(view.calls, IsEmpty());
}

TEST_F(Paint, SecondPaintWithoutAChangeDoesNothing) {
    view.handlePaintRouter(frame.pixels());
    EXPECT_FALSE(view.mDirty);
    frame.fill(1);
    view.calls.clear();
    view.handlePaintRouter(frame.pixels());
    EXPECT_THAT(view.calls, IsEmpty());
    EXPECT_EQ(frame[0], 1U);
    view.setDirty();
    view.handlePaintRouter(frame.pixels());
    expectPicture();
}

TEST_F(Paint, ChoosesThePaintByGestureAndDrawMode) {
    const auto routed = [this](int mode, bool gesture) {
        view.mDrawMode = mode;
        view.mGestureActive = gesture;
        view.setDirty();
        view.calls.clear();
        view.handlePaintRouter(frame.pixels());
        return view.calls.front();
    };
    EXPECT_EQ(routed(_NORMAL, false), "handlePaint");
    EXPECT_EQ(routed(1, false), "handlePaint");
    EXPECT_EQ(routed(6, false), "handlePaint");
    for (const int mode : {_WIDE, _LEFT, _RIGHT, _DOWN}) {
        EXPECT_EQ(routed(mode, false), "handlePaintWide") << mode;
        EXPECT_EQ(routed(mode, true), "handlePaintGesture") << mode;
    }
    EXPECT_EQ(routed(_NORMAL, true), "handlePaintGesture");
}

TEST_F(Paint, GoesThroughItsStepsInOrderWithTheViewLocked) {
    view.mOffscreenDirty = true;
    view.mCurrentResult = 0;
    view.handlePaintRouter(frame.pixels());
    EXPECT_THAT(view.calls, ElementsAre("handlePaint", "tick locked", "clampPosition locked",
                                        "drawOffscreenBuffer locked", "eraseBuffer 1 locked",
                                        "drawCurrentResult locked"));
    EXPECT_TRUE(view.mOffscreenDirty); // the derived views clear it
    EXPECT_EQ(pthread_mutex_trylock(view.mutex()), 0);
    pthread_mutex_unlock(view.mutex());
}

TEST_F(Paint, RendersOnlyAStaleSurface) {
    view.handlePaintRouter(frame.pixels());
    EXPECT_THAT(view.calls, Not(Contains("drawOffscreenBuffer locked")));
}

TEST_F(Paint, ShowsTheVisiblePart) {
    view.handlePaintRouter(frame.pixels());
    expectPicture();
}

TEST_F(Paint, KeepsColumnsLeftOfTheDocumentBlack) {
    view.mScroll.set(3, 507);
    view.handlePaintRouter(frame.pixels());
    EXPECT_EQ(frame[6], BLACK);
    EXPECT_EQ(frame[7], patternPixel(0, 7));
    expectPicture();
}

TEST_F(Paint, KeepsEverythingOutsideTheDocumentBlack) {
    // The view's clamp would move these positions, so the surface is smaller instead.
    CpPixmap small(CpRect(10, 500, 30, 520));
    fillPattern(small);
    view.mDocPixmap = &small;
    view.mScroll.set(0, 490);
    view.OfficeBase::handlePaint(frame.pixels());
    const CpPoint& s = view.mScroll;
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 40; ++x) {
            const int sx = s.x - 10 + x;
            const int sy = s.y - 500 + y;
            const bool inside = sx >= 0 && sx < 20 && sy >= 0 && sy < 20;
            ASSERT_EQ(frame[y * 40 + x], inside ? patternPixel(sx, sy) : BLACK);
        }
    }
    expectLastFrame();
}

TEST_F(Paint, AWhollyHiddenDocumentGivesABlackFrame) {
    CpPixmap far(CpRect(INT_MAX - 10, INT_MAX - 10, INT_MAX, INT_MAX));
    view.mDocPixmap = &far;
    view.mScroll.set(INT_MIN, INT_MIN);
    view.OfficeBase::handlePaint(frame.pixels());
    for (size_t i = 0; i < frame.size(); ++i) {
        ASSERT_EQ(frame[static_cast<long>(i)], BLACK);
    }
    EXPECT_TRUE(frame.slackIsUntouched());
}

TEST_F(Paint, SurvivesASurfaceWithoutPixels) {
    for (const CpRect& bounds : {CpRect(0, 0, 0, 0), CpRect(10, 500, 10, 600), CpRect(5, 5, -5, -5)}) {
        CpPixmap empty(bounds);
        ASSERT_EQ(empty.Pixels(), nullptr);
        view.mDocPixmap = &empty;
        frame.fill(1);
        view.OfficeBase::handlePaint(frame.pixels());
        EXPECT_EQ(frame[0], BLACK);
        EXPECT_EQ(frame[2399], BLACK);
        EXPECT_TRUE(frame.slackIsUntouched());
        expectLastFrame();
    }
}

TEST_F(Paint, HighlightIsPartOfTheLastFrame) {
    view.mCurrentResult = 0;
    view.onDrawResult = [this](CpPixmap& target) {
        EXPECT_EQ(target.Pixels(), frame.pixels());
        EXPECT_EQ(target.Width(), 40);
        EXPECT_EQ(target.Height(), 60);
        EXPECT_EQ(target.Pixels()[0], expected(0, 0)); // drawn over the picture
        target.Pixels()[0] = 0x12345678U;
    };
    view.handlePaintRouter(frame.pixels());
    EXPECT_EQ(frame[0], 0x12345678U);
    expectLastFrame();
}

TEST_F(Paint, DrawsNoHighlightWithoutACurrentHit) {
    for (const int result : {-1, -2}) {
        view.mCurrentResult = result;
        view.setDirty();
        view.handlePaintRouter(frame.pixels());
    }
    EXPECT_THAT(view.calls, Not(Contains("drawCurrentResult locked")));
    expectPicture();
}

TEST_F(Paint, ShowsAGlideWhereItIsNow) {
    view.handleFlick(0, -100);
    clock.advance(0.1);
    view.handlePaintRouter(frame.pixels());
    EXPECT_EQ(view.mScroll.y, 507 + 3); // 50 * 0.1 - 107.8 * 0.01
    expectPicture();
}

TEST_F(Paint, ErasesWhatTheSurfaceDoesNotCover) {
    for (const auto& [x, y] : {std::pair{10, 500}, {70, 590}, {9, 500}, {10, 499}, {71, 590}, {70, 591}}) {
        view.clamps = false;
        view.mScroll.set(x, y);
        view.setDirty();
        frame.fill(0x55555555U);
        view.handlePaintRouter(frame.pixels());
        expectPicture();
    }
}

TEST_F(Paint, ErasesTheWholeFrameAtPositionsThatNoSurfaceReaches) {
    for (const int far : {INT_MAX, INT_MAX - 20, INT_MIN}) {
        view.clamps = false;
        view.mScroll.set(far, far);
        view.setDirty();
        frame.fill(0x55555555U);
        view.handlePaintRouter(frame.pixels());
        expectPicture();
    }
}

TEST_F(Paint, ErasesWhatTheFrameHeldBefore) {
    frame.fill(0x55555555U);
    view.mScroll.set(0, 0);
    view.handlePaintRouter(frame.pixels());
    expectPicture();
}

TEST(EraseBuffer, BlackensExactlyThePixelsAskedFor) {
    const ProbeView view;
    for (const unsigned int count : {0U, 1U, 1023U, 1024U, 1025U, 2049U, 5000U}) {
        std::vector<unsigned int> pixels(5001, 7U);
        view.OfficeBase::eraseBuffer(pixels.data(), count);
        EXPECT_EQ(std::count(pixels.begin(), pixels.begin() + count, BLACK), count);
        EXPECT_EQ(std::count(pixels.begin() + count, pixels.end(), 7U), 5001 - static_cast<long>(count));
    }
}

// Each paint updates the record, so that a crash does not lose the place.
class PaintedState : public IpcTest {
protected:
    void SetUp() override {
        IpcTest::SetUp();
        view.attachStateRecord("/usr");
        view.mDocPixmap = &surface;
        view.mScroll.set(33, 44);
        view.mScale = 2.0;
        view.mScaleLevel = 2;
    }
    CpPixmap surface{400, 600};
    ProbeView view;
    Frame frame{40, 60};
};

TEST_F(PaintedState, IsSavedAfterEveryPaint) {
    for (const bool gesture : {false, true}) {
        for (const int mode : {_NORMAL, _WIDE, _LEFT, _RIGHT, _DOWN}) {
            *view.mDataStore = {-1, -1, -1.0, -1, {}};
            view.mDrawMode = mode;
            view.mGestureActive = gesture;
            view.setDirty();
            view.handlePaintRouter(frame.pixels());
            EXPECT_EQ(view.mDataStore->scrollX, 33) << mode;
            EXPECT_EQ(view.mDataStore->scrollY, 44) << mode;
            EXPECT_EQ(view.mDataStore->scale, 2.0);
            EXPECT_EQ(view.mDataStore->scaleLevel, 2);
        }
    }
}

TEST_F(PaintedState, IsThePositionThatWasPainted) {
    view.mScroll.set(-5, 10); // clamped by the paint
    view.handlePaintRouter(frame.pixels());
    EXPECT_EQ(view.mDataStore->scrollX, 0);
    EXPECT_EQ(view.mDataStore->scrollY, 10);
}

TEST_F(PaintedState, IsLeftAloneInAPopUp) {
    view.mDrawMode = _WIDE;
    view.popupShown = true;
    view.mDataStore->scrollY = 777;
    view.handlePaintRouter(frame.pixels());
    view.mGestureActive = true;
    view.setDirty();
    view.handlePaintRouter(frame.pixels());
    EXPECT_EQ(view.mDataStore->scrollY, 777);
}

TEST_F(PaintedState, IsNotSavedWhereNothingIsPainted) {
    view.mDirty = false;
    view.mDataStore->scrollY = 777;
    view.handlePaintRouter(frame.pixels());
    EXPECT_EQ(view.mDataStore->scrollY, 777);
}

} // namespace
