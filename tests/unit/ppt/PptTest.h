// SPDX-License-Identifier: Apache-2.0
// Tests of views on the fake module; each test has its own queue and segments.
//
// Slides have 640 x 480 units, the view 320 x 480 pixels. So the fitting zoom
// is 0.5, and the surface then has 320 x 240 pixels.
#pragma once

#include "channel/ServiceQueue.h"
#include "tests/unit/ppt/TestPpt.h"
#include "tests/unit/view/Frame.h"
#include "tests/unit/view/IpcTest.h"
#include "tests/unit/view/TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ipc.h>
#include <sys/msg.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

inline bool operator==(const CpPoint& a, const CpPoint& b) {
    return a.x == b.x && a.y == b.y;
}
inline std::ostream& operator<<(std::ostream& out, const CpPoint& p) {
    return out << '(' << p.x << ", " << p.y << ')';
}

class PptTest : public IpcTest {
protected:
    static constexpr uint32_t BLACK = 0xFF000000;

    void SetUp() override {
        IpcTest::SetUp();
        fakeSlides().reset();
        ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }
    void TearDown() override { g_msgQueue.Remove(); }

    static std::unique_ptr<TestPpt> makeView(int width = 320, int height = 480, unsigned int store = 0) {
        return std::make_unique<TestPpt>(width, height, 0, store);
    }
    // A view of an opened file; the calls of the opening are cleared.
    static std::unique_ptr<TestPpt> openView(int width = 320, int height = 480) {
        auto view = makeView(width, height);
        EXPECT_EQ(view->openFile("/d/deck.ppt", nullptr), 0);
        fakeSlides().calls.clear();
        return view;
    }
    static std::unique_ptr<TestPpt> openDeck(size_t slides, int width = 320, int height = 480) {
        fakeSlides().slides.resize(slides);
        return openView(width, height);
    }
    // A view whose file did not open.
    static std::unique_ptr<TestPpt> failedView() {
        auto view = makeView();
        EXPECT_EQ(view->openFile("/d/code-8.ppt", "x"), 8);
        fakeSlides().calls.clear();
        return view;
    }
    static std::vector<std::string> calls() { return fakeSlides().takeCalls(); }

    // Takes the records for a view's client, as "id value".
    static std::vector<std::string> notifications(const TestPpt& view) {
        const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
        ServerClientMessage message;
        std::vector<std::string> records;
        while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE,
                      static_cast<long>(view.dataStoreShmId()), IPC_NOWAIT) >= 0) {
            EXPECT_EQ(message.extra, 0);
            records.push_back(std::to_string(message.id) + " " + std::to_string(message.value));
        }
        return records;
    }

    static Frame paint(TestPpt& view) {
        Frame frame(view.width(), view.height());
        view.setDirty();
        view.handlePaintRouter(frame.pixels());
        return frame;
    }
    static CpPoint surfaceSize(const TestPpt& view) {
        return {view.mSurface->Width(), view.mSurface->Height()};
    }
    // The value of a view pixel in an upright paint without marks.
    static uint32_t slidePixel(const TestPpt& view, int column, int row) {
        const int x = column + view.mScroll.x;
        const int y = row + view.mScroll.y;
        const bool onSlide = x >= 0 && y >= 0 && x < view.mSurface->Width() && y < view.mSurface->Height();
        return onSlide ? fakeSlidePixel(view.mCurrentSlide, x, y) : BLACK;
    }
    static void expectSlide(const TestPpt& view, Frame& frame) {
        for (int row = 0; row < view.height(); ++row) {
            for (int column = 0; column < view.width(); ++column) {
                ASSERT_EQ(frame[row * view.width() + column], slidePixel(view, column, row))
                    << column << ", " << row;
            }
        }
    }
    static uint32_t blended(uint32_t pixel, uint32_t colour) {
        const uint32_t alpha = colour >> 24;
        uint32_t result = pixel & 0xFF000000;
        for (const int shift : {0, 8, 16}) {
            const uint32_t old = pixel >> shift & 0xFF;
            const uint32_t over = colour >> shift & 0xFF;
            result |= ((old * (255 - alpha) >> 8) + (over * alpha >> 8)) << shift;
        }
        return result;
    }
};
