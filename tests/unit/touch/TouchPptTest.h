// SPDX-License-Identifier: Apache-2.0
// Tests of presentations with touch manners on the fake module. Slides have 640 x 480
// units, the view 320 x 480 pixels, so the fit is half a pixel for each unit, and the slide
// then lies in rows 120 to 359. The screen has 144 dots per inch.
#pragma once

#include "TouchClock.h"
#include "tests/fakes/slides/FakeSlideModule.h"
#include "tests/unit/view/TestView.h"
#include "tests/unit/view/ViewTest.h"
#include "touch/TouchPpt.h"

#include <memory>
#include <string>
#include <vector>

class TestTouchPpt : public TestView<TouchPpt> {
public:
    TestTouchPpt(int width, int height, int docId, unsigned int store)
        : TestView(width, height, docId, store, 144.0) {}

    using TouchPpt::mCurrentSlide;
    using TouchPpt::mOptional;
    using TouchPpt::mSurface;

    static constexpr const char* DOCUMENT = "/d/deck.ppt";
    static constexpr const char* UNREADABLE = "/d/code-8.ppt";
    static FakeSlideControl& fake() { return fakeSlides(); }
};

class TouchPptTest : public ViewTest<TestTouchPpt> {
protected:
    static constexpr uint32_t BLACK = 0xFF000000;

    static std::unique_ptr<TestTouchPpt> openDeck(size_t slides, int width = 320, int height = 480) {
        fakeSlides().slides.resize(slides);
        return openView(width, height);
    }
    // The records for a view's client, as "id value extra".
    static std::vector<std::string> records(const TestTouchPpt& view) {
        const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
        ServerClientMessage message;
        std::vector<std::string> texts;
        while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE,
                      static_cast<long>(view.dataStoreShmId()), IPC_NOWAIT) >= 0) {
            texts.push_back(std::to_string(message.id) + " " + std::to_string(message.value) + " " +
                            std::to_string(message.extra));
        }
        return texts;
    }
    static CpPoint surfaceSize(const TestTouchPpt& view) {
        return {view.mSurface->Width(), view.mSurface->Height()};
    }
    // The value of a pixel of an upright view without marks.
    static uint32_t slidePixel(const TestTouchPpt& view, int column, int row) {
        const int x = column + view.mScroll.x;
        const int y = row + view.mScroll.y;
        const bool onSlide = x >= 0 && y >= 0 && x < view.mSurface->Width() && y < view.mSurface->Height();
        return onSlide ? fakeSlidePixel(view.mCurrentSlide, x, y) : BLACK;
    }
    static void expectSlide(const TestTouchPpt& view, const Frame& frame) {
        for (int row = 0; row < view.height(); ++row) {
            for (int column = 0; column < view.width(); ++column) {
                ASSERT_EQ(frame[row * view.width() + column], slidePixel(view, column, row))
                    << column << ", " << row;
            }
        }
    }
    static void drag(TestTouchPpt& view, const CpPoint& from, const CpPoint& to) {
        view.handlePenDown(from.x, from.y);
        view.handlePenMove(to.x, to.y);
        view.handlePenUp(to.x, to.y);
    }

public:
    static void pinch(TestTouchPpt& view, int x, int y, double factor, PinchPhase phase) {
        ClientServerMessage message(_PINCH, 0);
        message.x = x;
        message.y = y;
        message.setPinch(static_cast<float>(factor), phase);
        EXPECT_TRUE(view.handleRecord(message));
    }

protected:
    TouchClock clock;
};
