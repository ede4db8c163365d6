// SPDX-License-Identifier: Apache-2.0
// Touch views of spreadsheets on the fake module.
//
// A new view has zoom 1 at 72 dots per inch: cells are 40 x 20 pixels, row headers 30
// pixels wide, column headers 15 pixels high, and the sheet has 2000 x 4000 pixels.
#pragma once

#include "modules/ModuleResults.h"
#include "tests/fakes/sheet/FakeSheetModule.h"
#include "tests/unit/touch/TouchClock.h"
#include "tests/unit/view/TestView.h"
#include "tests/unit/view/ViewTest.h"
#include "touch/TouchExcel.h"

#include <memory>
#include <string>
#include <vector>

class TestTouchExcel : public TestView<TouchExcel> {
public:
    static constexpr double DOTS_PER_INCH = 72.0;

    using TestView::TestView;
    TestTouchExcel(int width, int height, int docId, unsigned int store)
        : TestView(width, height, docId, store, DOTS_PER_INCH) {}

    using TouchExcel::corner;
    using TouchExcel::documentPoint;
    using TouchExcel::functions;
    using TouchExcel::isOnSheet;
    using TouchExcel::mCells;
    using TouchExcel::mCurrentSheet;
    using TouchExcel::mSelection;
    using TouchExcel::mSelectionActive;
    using TouchExcel::mSheetHeight;
    using TouchExcel::mSheetWidth;
    using TouchExcel::mStroke;
    using TouchExcel::shownCells;

    static constexpr const char* DOCUMENT = "/d/book.xls";
    static constexpr const char* UNREADABLE = "/d/code-8.xls";
    static FakeSheetControl& fake() { return fakeSheet(); }

    // What the module may lack.
    void loseOptionalFunctions() { functions() = SheetFunctions(nullptr); }
};

// What a frame shows where nothing is marked.
constexpr uint32_t TOUCH_CORNER = 0xFFCCCCCC;
inline uint32_t touchSheetPixel(const TestTouchExcel& view, int x, int y) {
    const CpPoint header = view.corner();
    const CpPoint place = view.documentPoint({x, y});
    const bool besideX = place.x >= view.mSheetWidth;
    const bool besideY = place.y >= view.mSheetHeight;
    if (x < header.x && y < header.y) {
        return TOUCH_CORNER;
    }
    if (y < header.y) {
        return besideX ? FAKE_BESIDE_SHEET : fakeColumnHeaderPixel(place.x, y, view.mCurrentSheet);
    }
    if (x < header.x) {
        return besideY ? FAKE_BESIDE_SHEET : fakeRowHeaderPixel(x, place.y, view.mCurrentSheet);
    }
    return besideX || besideY ? FAKE_BESIDE_SHEET : fakeCellPixel(place.x, place.y, view.mCurrentSheet);
}

struct TouchRecord {
    int id;
    int value;
    int extra;
    bool operator==(const TouchRecord&) const = default;
};

class TouchExcelTest : public ViewTest<TestTouchExcel> {
protected:
    static void expectSheet(const TestTouchExcel& view, const Frame& picture, int step = 1) {
        for (int y = 0; y < view.height(); y += step) {
            for (int x = 0; x < view.width(); x += step) {
                ASSERT_EQ(picture.at(x, y), touchSheetPixel(view, x, y)) << x << ", " << y;
            }
        }
    }
    // The records that wait for the view's client, but those that ask for a paint.
    static std::vector<TouchRecord> records(const OfficeBase& view) {
        const int queue = msgget(ftok("/tmp", DocAdapterMessageQueue::PROJECT_ID), 0);
        ServerClientMessage message;
        std::vector<TouchRecord> taken;
        while (msgrcv(queue, &message, ServerClientMessage::TEXT_SIZE,
                      static_cast<long>(view.dataStoreShmId()), IPC_NOWAIT) >= 0) {
            if (message.id != _INVALIDATED) {
                taken.push_back({message.id, message.value, message.extra});
            }
        }
        return taken;
    }
    static void tap(TestTouchExcel& view, int x, int y) {
        view.handlePenDown(x, y);
        view.handleClick(x, y);
        view.handlePenUp(x, y);
    }
    static void doubleTap(TestTouchExcel& view, int x, int y) {
        view.handlePenDown(x, y);
        view.handleDoubleClick(x, y);
        view.handlePenUp(x, y);
    }
    static void pinch(TestTouchExcel& view, int x, int y, double factor, int phase) {
        ClientServerMessage message(_PINCH, 0);
        message.x = x;
        message.y = y;
        message.setPinch(static_cast<float>(factor), phase);
        view.handleRecord(message);
    }
    static stg_region cellRegion(int column, int row) { return {0, 40 * column, 20 * row, 40, 20}; }
    static std::vector<int> edges(const CpRect& r) { return {r.Left(), r.Top(), r.Right(), r.Bottom()}; }

    TouchClock mClock;
};
