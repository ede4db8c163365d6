// SPDX-License-Identifier: Apache-2.0
// A touch view of a plain sheet of paper without a module, for what all touch views share.
#pragma once

#include "raster/Saturate.h"
#include "touch/TouchHandling.h"
#include "view/OfficeBase.h"

#include <algorithm>
#include <string>

// The defined view that is missing under it.
class BlankView : public OfficeBase {
public:
    BlankView(int width, int height, int docId, unsigned int dataStoreId)
        : OfficeBase(width, height, docId, dataStoreId, _WORD) {
        attachStateRecord("/tmp");
    }
    int openFile(const char* /*path*/, const char* /*password*/) override { return 0; }
    void handlePaintGesture(unsigned int* /*frameBuffer*/) override {}
    std::string getDocProperties() override { return {}; }
    std::string doSearch(const char* /*text*/) override { return {}; }
    int nextResult() override { return 0; }
    int previousResult() override { return 0; }
    int stopFind() override { return 0; }
    int clearSelection() override { return 0; }
    int drawCurrentResult(CpPixmap* /*frame*/) override { return 0; }
    void resizeDocument() override {}
    int ReinitSearchRects() override { return 0; }
    void recenterDocument() override {}
};

class PaperView : public TouchHandling<BlankView> {
public:
    static constexpr int PAPER_WIDTH = 1000; // at a zoom of 1
    static constexpr int PAPER_HEIGHT = 3000;

    PaperView(int width, int height, unsigned int store = 0, double dotsPerInch = 160.0)
        : TouchHandling(width, height, 0, store, dotsPerInch) {}

    using BlankView::mClicked;
    using BlankView::mLastFrame;
    using BlankView::mPenDown;
    using BlankView::mScale;
    using BlankView::mScroll;

    ViewPlace place() const override { return {}; }
    // The paper's pixel at a zoom of 1 that lies under a point of the view.
    double paperX(double x) const { return (mScroll.x + x) / mScale; }
    double paperY(double y) const { return (mScroll.y + y) / mScale; }

    bool locksDrags = true;
    int covered = 0;
    int layouts = 0;

private:
    CpPoint moveTo(const CpPoint& wanted) override {
        const auto furthest = [this](int length, int view) {
            return std::max(0, saturateToInt(length * mScale) - view);
        };
        mScroll.set(std::clamp(wanted.x, 0, furthest(PAPER_WIDTH, mWidth)),
                    std::clamp(wanted.y, 0, furthest(PAPER_HEIGHT, mHeight)));
        return {saturatedDifference(wanted.x, mScroll.x), saturatedDifference(wanted.y, mScroll.y)};
    }
    void cover() override { ++covered; }
    void zoomAbout(double scale, const CpPoint& from, const CpPoint& to) override {
        const double x = paperX(from.x) * scale - to.x;
        const double y = paperY(from.y) * scale - to.y;
        mScale = scale;
        moveTo({saturateToInt(x), saturateToInt(y)});
    }
    void layOutForSize() override { ++layouts; }
    bool dragLocks() const override { return locksDrags; }
};
