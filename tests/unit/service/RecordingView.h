// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "view/OfficeBase.h"

#include <functional>
#include <string>
#include <vector>

// A view without a document that records the calls made to it.
class RecordingView : public OfficeBase {
public:
    // A call is recorded as "name(arguments)", with " locked" when the view's
    // mutex was held.
    RecordingView(std::vector<std::string>& trace, unsigned int dataStoreShmId, doctype_t kind = _EXCEL)
        : OfficeBase(4, 4, 0, dataStoreShmId, kind), mTrace(trace) {}
    ~RecordingView() override { record("deleted"); }

    using OfficeBase::mDirty;
    using OfficeBase::mDocPixmap;
    using OfficeBase::mMimeInfo;
    using OfficeBase::mRenderResult;

    bool clickResult = true;
    // Called by every recorded operation; may be empty.
    std::function<void()> onCall;

    void SaveStateToDataStore() override { record("SaveStateToDataStore"); }
    int openFile(const char* /*path*/, const char* /*password*/) override { return 0; }
    void handlePaint(unsigned int* frameBuffer) override;
    void handlePaintGesture(unsigned int* /*frameBuffer*/) override { record("handlePaintGesture"); }
    bool handleKeyDown(int key, int modifiers) override { return input("handleKeyDown", key, modifiers); }
    bool handleKeyUp(int key, int modifiers) override { return input("handleKeyUp", key, modifiers); }
    bool handlePenDown(int x, int y) override { return input("handlePenDown", x, y); }
    bool handlePenUp(int x, int y) override { return input("handlePenUp", x, y); }
    bool handlePenMove(int x, int y) override { return input("handlePenMove", x, y); }
    bool handleGestureStart(double a, double b) override { return gesture("handleGestureStart", a, b); }
    bool handleGestureChange(double a, double b) override { return gesture("handleGestureChange", a, b); }
    bool handleGestureEnd(double a, double b) override { return gesture("handleGestureEnd", a, b); }
    bool handleDoubleClick(int x, int y) override { return input("handleDoubleClick", x, y); }
    bool handleClick(int x, int y) override { return input("handleClick", x, y) && clickResult; }
    bool handleFlick(int vx, int vy) override { return input("handleFlick", vx, vy); }
    std::string getDocProperties() override;
    std::string doSearch(const char* text) override;
    int nextResult() override { return record("nextResult"); }
    int previousResult() override { return record("previousResult"); }
    int stopFind() override { return record("stopFind"); }
    int clearSelection() override { return record("clearSelection"); }
    int drawCurrentResult(CpPixmap* /*frame*/) override { return record("drawCurrentResult"); }
    void resizeDocument() override { record("resizeDocument"); }
    int ReinitSearchRects() override { return record("ReinitSearchRects"); }
    void recenterDocument() override { record("recenterDocument"); }

private:
    int record(const std::string& call);
    bool input(const char* name, int a, int b);
    bool gesture(const char* name, double a, double b);

    std::vector<std::string>& mTrace;
};
