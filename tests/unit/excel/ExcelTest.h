// SPDX-License-Identifier: Apache-2.0
// Tests of views on the fake module; each test has its own queue and segments.
//
// A new view has zoom 2: cells are 80 x 40 pixels, row headers 60 pixels wide,
// column headers 30 pixels high, and the sheet has 4000 x 8000 pixels.
#pragma once

#include "channel/ServiceQueue.h"
#include "tests/unit/excel/TestExcel.h"
#include "tests/unit/view/Frame.h"
#include "tests/unit/view/IpcTest.h"
#include "tests/unit/view/Notifications.h"
#include "tests/unit/view/TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
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
inline bool operator==(const CpRect& a, const CpRect& b) {
    return a.Left() == b.Left() && a.Top() == b.Top() && a.Right() == b.Right() && a.Bottom() == b.Bottom();
}
inline std::ostream& operator<<(std::ostream& out, const CpRect& r) {
    return out << '(' << r.Left() << ", " << r.Top() << ", " << r.Right() << ", " << r.Bottom() << ')';
}

class ExcelTest : public IpcTest {
protected:
    static constexpr int ROW_HEADER_WIDTH = 60;
    static constexpr int COLUMN_HEADER_HEIGHT = 30;

    void SetUp() override {
        IpcTest::SetUp();
        fakeSheet().reset();
        ASSERT_EQ(g_msgQueue.Open(DocAdapterMessageQueue::OPEN_FLAGS, DocAdapterMessageQueue::PROJECT_ID), 0);
    }
    void TearDown() override { g_msgQueue.Remove(); }

    static std::unique_ptr<TestExcel> makeView(int width = 320, int height = 480, unsigned int store = 0) {
        return std::make_unique<TestExcel>(width, height, 0, store);
    }
    // A view of an opened file; the calls of the opening are cleared.
    static std::unique_ptr<TestExcel> openView(int width = 320, int height = 480) {
        auto view = makeView(width, height);
        EXPECT_EQ(view->openFile("/d/book.xls", nullptr), 0);
        fakeSheet().calls.clear();
        return view;
    }
    // A view whose file did not open.
    static std::unique_ptr<TestExcel> failedView() {
        auto view = makeView();
        EXPECT_EQ(view->openFile("/d/code-8.xls", "x"), 8);
        fakeSheet().calls.clear();
        return view;
    }
    static std::vector<std::string> calls() { return fakeSheet().takeCalls(); }
    static std::vector<int> notifications(const TestExcel& view) { return takeNotifications(view); }

    static Frame paint(TestExcel& view) {
        Frame picture(view.width(), view.height());
        view.setDirty();
        view.handlePaintRouter(picture.pixels());
        return picture;
    }
    static Frame draw(TestExcel& view) {
        Frame picture(view.width(), view.height());
        view.drawScreen(picture.pixels());
        return picture;
    }
    static CpRect window(const TestExcel& view) {
        CpRect r;
        view.getOffscreenDocBounds(r);
        return r;
    }

    // Blends a translucent colour over a pixel.
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
    // The background beyond the sheet, at a document pixel.
    static uint32_t ground(int x, int y) { return (x >> 4 & 1) == (y >> 4 & 1) ? 0xFFFEDCBA : 0xFFABCDEF; }
    static constexpr uint32_t CORNER_BOX = 0xFFFEFEFE; // white as a fill leaves it

    // A screen pixel of a view whose window of cells covers it.
    static uint32_t sheetPixel(const TestExcel& view, int column, int row) {
        const int x = view.mScroll.x + column - ROW_HEADER_WIDTH;
        const int y = view.mScroll.y + row - COLUMN_HEADER_HEIGHT;
        if (column < ROW_HEADER_WIDTH && row < COLUMN_HEADER_HEIGHT) {
            return CORNER_BOX;
        }
        if (row < COLUMN_HEADER_HEIGHT) {
            return fakeColumnHeaderPixel(x, row);
        }
        return column < ROW_HEADER_WIDTH ? fakeRowHeaderPixel(column, y) : fakeCellPixel(x, y);
    }
    static void expectSheet(const TestExcel& view, const Frame& picture) {
        for (int row = 0; row < view.height(); ++row) {
            for (int column = 0; column < view.width(); ++column) {
                ASSERT_EQ(picture.at(column, row), sheetPixel(view, column, row)) << column << ", " << row;
            }
        }
    }
};
