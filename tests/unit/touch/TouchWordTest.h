// SPDX-License-Identifier: Apache-2.0
// A touch view of a text on the fake module, whose members tests can read, and tests
// with a clock of their own.
#pragma once

#include "tests/fakes/word/FakeWordModule.h"
#include "tests/unit/touch/TouchClock.h"
#include "tests/unit/view/Frame.h"
#include "tests/unit/view/Notifications.h"
#include "tests/unit/view/TestView.h"
#include "touch/Clock.h"
#include "touch/TouchWord.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

class TestTouchWord : public TestView<TouchWord> {
public:
    TestTouchWord(int width, int height, unsigned int store = 0, double dpi = 72.0)
        : TestView(width, height, 0, store, dpi) {}
    using TouchWord::currentRegion;
    using TouchWord::glide;
    using TouchWord::mDotsPerInch;
    using TouchWord::mHitPosition;
    using TouchWord::mPopupShown;
    using TouchWord::mStretch;
    using TouchWord::mTouchModule;
    using TouchWord::mWideMode;

    // As on a module that has no optional function.
    void forgetOptional() { mTouchModule = TouchWordModule(nullptr); }

    // The text row at the view's top, according to the module's position of the stretch.
    int64_t firstTextRow() const { return fakeWord().layout.top + mScroll.y - mStretch.top(); }
    // The lowest row that the view can have at its top.
    static int64_t lastTop(int height) { return std::max<int64_t>(0, fakeWord().layout.rows - height); }
    // Number of rows of the view that should show text and do not.
    int64_t whiteRows() const {
        const FakeWordLayout& text = fakeWord().layout;
        const int64_t textTop = mStretch.top() - text.top; // document rows of the text
        const int64_t viewTop = std::max<int64_t>(mScroll.y, textTop);
        const int64_t viewBottom = std::min<int64_t>(int64_t{mScroll.y} + mHeight, textTop + text.rows);
        const int64_t above = std::min(viewBottom, int64_t{mStretch.top()}) - viewTop;
        const int64_t below = viewBottom - std::max(viewTop, int64_t{mStretch.bottom()});
        return std::max<int64_t>(0, above) + std::max<int64_t>(0, below);
    }
};

inline ClientServerMessage pinchRecord(int x, int y, float factor, PinchPhase phase) {
    ClientServerMessage record(_PINCH, 0);
    record.x = x;
    record.y = y;
    record.setPinch(factor, phase);
    return record;
}

class TouchWordTest : public NotifiedTest {
protected:
    void SetUp() override {
        NotifiedTest::SetUp();
        fakeWord().reset();
        fakeWord().lineHeight = 17;
        fakeWord().characters = 20000;
    }

    static std::unique_ptr<TestTouchWord> openView(int width = 360, int height = 640, double dpi = 72.0) {
        auto view = std::make_unique<TestTouchWord>(width, height, 0U, dpi);
        EXPECT_EQ(view->openFile("/d/text.doc", nullptr), 0);
        fakeWord().calls.clear();
        return view;
    }
    static Frame paint(TestTouchWord& view) {
        Frame frame(view.width(), view.height());
        view.setDirty();
        view.handlePaintRouter(frame.pixels());
        return frame;
    }
    // The character at the start of the first line that is whole in the view.
    static uint32_t firstWhole(const TestTouchWord& view) {
        const FakeWordLayout& text = fakeWord().layout;
        const int64_t line = (view.firstTextRow() + text.lineRows - 1) / text.lineRows;
        const int64_t lines = text.rows / text.lineRows;
        return static_cast<uint32_t>((line * fakeWord().characters + lines - 1) / lines);
    }
    static int64_t lineOf(uint32_t character) {
        const FakeWordLayout& text = fakeWord().layout;
        const int64_t lines = text.rows / text.lineRows;
        return std::min(lines - 1, int64_t{character} * lines / fakeWord().characters);
    }
    // The row of the view at which a character's line begins.
    static int64_t viewRow(const TestTouchWord& view, uint32_t character) {
        return lineOf(character) * fakeWord().layout.lineRows - view.firstTextRow();
    }
    static void pinch(TestTouchWord& view, int x, int y, float factor, int toX, int toY) {
        view.handleRecord(pinchRecord(x, y, 1.0F, _PINCH_BEGINS));
        view.handleRecord(pinchRecord(toX, toY, factor, _PINCH_MOVES));
        view.handleRecord(pinchRecord(toX, toY, factor, _PINCH_ENDS));
    }

    TouchClock mClock;
};
