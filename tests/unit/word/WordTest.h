// SPDX-License-Identifier: Apache-2.0
// Tests of views on the fake module; each test has its own queue and segments.
#pragma once

#include "channel/ServiceQueue.h"
#include "tests/unit/view/IpcTest.h"
#include "tests/unit/view/Notifications.h"
#include "tests/unit/view/TestClock.h"
#include "tests/unit/word/TestWord.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

class WordTest : public IpcTest {
protected:
    void SetUp() override {
        IpcTest::SetUp();
        fakeWord().reset();
        ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }
    void TearDown() override { g_msgQueue.Remove(); }

    static std::unique_ptr<TestWord> makeView(int width = 320, int height = 480, unsigned int store = 0) {
        return std::make_unique<TestWord>(width, height, 0, store);
    }
    // A view of a text of `rows` rows; the calls of the opening are cleared.
    static std::unique_ptr<TestWord> openView(int width, int height, int64_t rows) {
        fakeWord().rows = rows;
        auto view = makeView(width, height);
        EXPECT_EQ(view->openFile("/d/text.doc", nullptr), 0);
        fakeWord().calls.clear();
        return view;
    }
    static std::vector<std::string> calls() { return fakeWord().takeCalls(); }

    // Moves the pen from one row to another in steps of at most `step` rows.
    static void dragTo(TestWord& view, int& y, int targetY, int step = 50) {
        while (y != targetY) {
            y += std::clamp(targetY - y, -step, step);
            view.handlePenMove(100, y);
            view.tick();
        }
    }
    // Moves down the text by `rows` (up if negative), contact by contact.
    static void scrollBy(TestWord& view, int rows) {
        while (rows != 0) {
            const int part = std::clamp(rows, -200, 200);
            int y = 300;
            view.handlePenDown(100, y);
            dragTo(view, y, 300 - part);
            view.handlePenUp(100, y);
            rows -= part;
        }
    }

    static std::vector<int> notifications(const TestWord& view) { return takeNotifications(view); }

    static std::vector<uint32_t> paint(TestWord& view) {
        std::vector<uint32_t> frame(static_cast<size_t>(view.width()) * static_cast<size_t>(view.height()),
                                    1);
        view.setDirty();
        view.handlePaintRouter(frame.data());
        return frame;
    }
};
