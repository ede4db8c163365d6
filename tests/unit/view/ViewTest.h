// SPDX-License-Identifier: Apache-2.0
// Views of one kind on its fake module, each test with a queue and segments of its own.
#pragma once

#include "tests/unit/view/Frame.h"
#include "tests/unit/view/Notifications.h"
#include "tests/unit/view/Points.h"
#include "tests/unit/view/TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

// `Tested` is a TestView of a kind with
//   DOCUMENT, UNREADABLE   paths that the fake opens, and that it refuses with code 8
//   fake()                 the fake module's control
template<typename Tested>
class ViewTest : public NotifiedTest {
protected:
    using View = Tested;

    void SetUp() override {
        NotifiedTest::SetUp();
        View::fake().reset();
    }

    static std::unique_ptr<View> makeView(int width = 320, int height = 480, unsigned int store = 0) {
        return std::make_unique<View>(width, height, 0, store);
    }
    // With the calls of the opening forgotten.
    static std::unique_ptr<View> openView(int width = 320, int height = 480) {
        auto view = makeView(width, height);
        EXPECT_EQ(view->openFile(View::DOCUMENT, nullptr), 0);
        View::fake().calls.clear();
        return view;
    }
    // One whose file did not open.
    static std::unique_ptr<View> failedView() {
        auto view = makeView();
        EXPECT_EQ(view->openFile(View::UNREADABLE, "x"), 8);
        View::fake().calls.clear();
        return view;
    }
    // A view on the segment of another, which stays open for the segment's sake.
    static std::unique_ptr<View> reopen(const View& old, const char* path = View::DOCUMENT) {
        auto view = makeView(old.width(), old.height(), old.dataStoreShmId());
        View::fake().calls.clear();
        view->openFile(path, nullptr);
        return view;
    }
    static std::vector<std::string> calls() { return View::fake().takeCalls(); }

    static Frame paint(View& view) {
        Frame frame(view.width(), view.height());
        view.setDirty();
        view.handlePaintRouter(frame.pixels());
        return frame;
    }
    // A translucent colour over a pixel.
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
