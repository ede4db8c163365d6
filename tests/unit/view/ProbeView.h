// SPDX-License-Identifier: Apache-2.0
// A view without a document that records the calls made to it.
#pragma once

#include "tests/unit/view/TestView.h"

#include <cerrno>
#include <functional>
#include <string>
#include <vector>

class ProbeView : public TestView<OfficeBase> {
public:
    explicit ProbeView(int width = 40, int height = 60, unsigned int dataStoreShmId = 0)
        : TestView(width, height, 0, dataStoreShmId, _WORD) {}

    using OfficeBase::attachGivenStateRecord;
    using OfficeBase::attachStateRecord;
    using OfficeBase::makeStateRecord;
    using OfficeBase::mDataStoreShmId;
    using OfficeBase::mDocId;
    using OfficeBase::mHeight;
    using OfficeBase::mMimeInfo;
    using OfficeBase::mModuleHandle;
    using OfficeBase::mWidth;

    bool popupShown = false;
    bool showsPopup() const override { return popupShown; }

    int openFile(const char* /*path*/, const char* /*password*/) override { return 0; }
    void handlePaint(unsigned int* frameBuffer) override {
        record("handlePaint");
        OfficeBase::handlePaint(frameBuffer);
    }
    void handlePaintGesture(unsigned int* /*frameBuffer*/) override { record("handlePaintGesture"); }
    void handlePaintWide(unsigned int* frameBuffer) override {
        record("handlePaintWide");
        OfficeBase::handlePaintWide(frameBuffer);
    }
    bool tick() override {
        record("tick");
        return OfficeBase::tick();
    }
    int drawOffscreenBuffer() override {
        record("drawOffscreenBuffer");
        return 0;
    }
    std::string getDocProperties() override { return {}; }
    std::string doSearch(const char* /*text*/) override { return {}; }
    int nextResult() override { return 0; }
    int previousResult() override { return 0; }
    int stopFind() override { return 0; }
    int clearSelection() override { return 0; }
    int drawCurrentResult(CpPixmap* frame) override {
        record("drawCurrentResult");
        if (onDrawResult) {
            onDrawResult(*frame);
        }
        return 0;
    }
    using OfficeBase::clampPosition;
    bool clampPosition(int& x, int& y) const override {
        record("clampPosition");
        return clamps && OfficeBase::clampPosition(x, y);
    }
    void resizeDocument() override { record("resizeDocument"); }
    int ReinitSearchRects() override {
        record("ReinitSearchRects");
        return 0;
    }
    void recenterDocument() override {
        record("recenterDocument");
        scaleAtLayout = mScale;
        scrollAtLayout = mScroll;
    }
    void eraseBuffer(unsigned int* frameBuffer, unsigned int count) const override {
        record("eraseBuffer " + std::to_string(count));
        OfficeBase::eraseBuffer(frameBuffer, count);
    }

    // The calls as "name", or as "name locked" when the view's mutex was held.
    mutable std::vector<std::string> calls;
    std::function<void(CpPixmap&)> onDrawResult;
    double scaleAtLayout = 0.0; // at the last new layout
    CpPoint scrollAtLayout{0, 0};
    bool clamps = true; // with false a test can put the view anywhere

private:
    void record(const std::string& name) const {
        auto* lock = const_cast<ProbeView*>(this)->mutex();
        const bool held = pthread_mutex_trylock(lock) == EBUSY;
        if (!held) {
            pthread_mutex_unlock(lock);
        }
        calls.push_back(held ? name + " locked" : name);
    }
};

// A pixel that encodes its position on its surface.
inline unsigned int patternPixel(int x, int y) {
    return 0x40000000U + static_cast<unsigned int>(y) * 0x1000U + static_cast<unsigned int>(x);
}

inline void fillPattern(CpPixmap& surface) {
    for (int y = 0; y < surface.Height(); ++y) {
        for (int x = 0; x < surface.Width(); ++x) {
            surface.Pixels()[y * surface.Width() + x] = patternPixel(x, y);
        }
    }
}
