// SPDX-License-Identifier: Apache-2.0
#include "Frame.h"
#include "ProbeView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <functional>
#include <tuple>

namespace {

using testing::ElementsAre;

constexpr unsigned int BLACK = 0xFF000000U;

// Paints a surface turned and compares every pixel with the formula, including
// pixels outside of the frame. Parameters: view size, surface bounds.
class TurnedPaint : public testing::TestWithParam<std::tuple<int, int, CpRect>> {
protected:
    // The frame index of source column x (from the first one read) and row y; W and
    // H are the source's width and height, which are the view's height and width.
    using Formula = std::function<long(long x, long y, long W, long H)>;

    void expectPaint(int mode, const Formula& formula) {
        const auto& [width, height, bounds] = GetParam();
        ProbeView view(width, height);
        CpPixmap surface(bounds);
        fillPattern(surface);
        view.mDocPixmap = &surface;
        view.mDrawMode = mode;
        view.mScroll.set(5, 7); // has no effect
        view.mCurrentResult = 0;

        Frame expected(width, height);
        expected.fill(BLACK);
        const int left = bounds.Left();
        const int top = bounds.Top();
        const int right = std::min(left + height, bounds.Width());
        const int bottom = std::min(top + width, bounds.Height());
        for (int y = std::max(top, 0); y < bottom; ++y) {
            for (int x = std::max(left, 0); x < right; ++x) {
                const long index = mode == _DOWN
                                       ? formula(x - left, y - top, height, width)
                                       : formula(x - std::max(left, 0), y - std::max(top, 0), height, width);
                expected[index] = patternPixel(x, y);
            }
        }

        Frame frame(width, height);
        view.handlePaintRouter(frame.pixels());
        EXPECT_TRUE(frame == expected);
        EXPECT_EQ(std::memcmp(view.mLastFrame.Pixels(), frame.pixels(), frame.size() * 4), 0);
        EXPECT_EQ(view.mScroll.x, 5);
        EXPECT_THAT(view.calls, ElementsAre("handlePaintWide", "drawOffscreenBuffer locked",
                                            "eraseBuffer " + std::to_string(width * height) + " locked"));
    }
};

TEST_P(TurnedPaint, DeviceOnItsRightSide) {
    expectPaint(_RIGHT, [](long x, long y, long W, long H) { return (W - x) * H + y; });
}

TEST_P(TurnedPaint, DeviceOnItsLeftSide) {
    expectPaint(_LEFT, [](long x, long y, long W, long H) { return x * H + (W - y); });
}

TEST_P(TurnedPaint, DeviceUpsideDown) {
    expectPaint(_DOWN, [](long x, long y, long W, long H) { return (H - y) * W + (W - x); });
}

TEST_P(TurnedPaint, WideModeIsTheKindsToPaint) {
    const auto& [width, height, bounds] = GetParam();
    ProbeView view(width, height);
    CpPixmap surface(bounds);
    view.mDocPixmap = &surface;
    view.mDrawMode = _WIDE;
    Frame frame(width, height);
    view.handlePaintRouter(frame.pixels());
    Frame erased(width, height);
    erased.fill(BLACK);
    EXPECT_TRUE(frame == erased);
    EXPECT_EQ(view.mLastFrame.Pixels()[0], BLACK);
    EXPECT_EQ(view.mLastFrame.Pixels()[width * height - 1], BLACK);
}

INSTANTIATE_TEST_SUITE_P(Sizes, TurnedPaint,
                         testing::Values(std::tuple{40, 60, CpRect(0, 0, 60, 40)},   // fills the frame
                                         std::tuple{40, 60, CpRect(0, 0, 200, 300)}, // larger
                                         std::tuple{40, 60, CpRect(0, 0, 31, 17)},   // smaller
                                         std::tuple{40, 60, CpRect(7, 9, 107, 109)}, // placed in its document
                                         std::tuple{40, 60, CpRect(-4, -6, 90, 90)}, // extends beyond it
                                         std::tuple{40, 60, CpRect(95, 0, 155, 200)}, // nothing in range
                                         std::tuple{50, 50, CpRect(0, 0, 80, 80)},
                                         std::tuple{60, 40,
                                                    CpRect(0, 0, 80, 80)}, // also lands before the frame

                                         std::tuple{37, 53, CpRect(1, 2, 90, 91)}));

TEST(TurnedPaintOfAnUnusualSurface, RendersOnlyAStaleOne) {
    ProbeView view;
    CpPixmap surface(60, 40);
    view.mDocPixmap = &surface;
    view.mDrawMode = _LEFT;
    view.mOffscreenDirty = false;
    Frame frame(40, 60);
    view.handlePaintRouter(frame.pixels());
    EXPECT_THAT(view.calls, ElementsAre("handlePaintWide", "eraseBuffer 2400 locked"));
}

TEST(TurnedPaintOfAnUnusualSurface, SurvivesNoPixelsAndTheEndsOfInt) {
    ProbeView view;
    for (const CpRect& bounds : {CpRect(0, 0, 0, 0), CpRect(INT_MAX - 5, INT_MAX - 5, INT_MAX, INT_MAX),
                                 CpRect(INT_MIN, INT_MIN, INT_MIN + 5, INT_MIN + 5)}) {
        CpPixmap surface(bounds);
        view.mDocPixmap = &surface;
        for (const int mode : {_LEFT, _RIGHT, _DOWN}) {
            view.mDrawMode = mode;
            view.setDirty();
            Frame frame(40, 60);
            view.handlePaintRouter(frame.pixels());
            Frame erased(40, 60);
            erased.fill(BLACK);
            EXPECT_TRUE(frame == erased) << mode;
        }
    }
}

} // namespace
