// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/SSTGFunc.h"
#include "modules/Singleton.h"
#include "ppt/SlideHits.h"
#include "view/OfficeBase.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

// The view of a presentation.
//
// It shows one slide at a time, rendered whole into a surface of the slide's size
// at the current zoom, which pens and pinches move about. Every slide is shown at
// the size of the first. In the fit-wide modes the slide lies as wide as the view
// is high, for a device that is held on its side, and input still counts as if it
// were upright.
//
// A document that failed to open has no surface: every call is survived and asks
// the module nothing. One without slides has nothing to show: its view is black.
//
// None of the operations below takes mMutex.
class PPT : public OfficeBase {
public:
    // Width and height in pixels, at least 1. A data store of 0 has one made.
    PPT(int width, int height, int docId, unsigned int dataStoreId);
    ~PPT() override;

    // With the slide shown, which is restored whatever its number. Until the
    // document is open, the limits of its zoom are not known: any zoom is restored
    // that could be one.
    void SaveStateToDataStore() override;
    void RestoreStateFromDataStore() override;
    // Also writes the module's code to standard output. There is no password.
    int openFile(const char* path, const char* password) override;
    // Everything after the module has opened the file; 0.
    int initializePPT();

    // Makes the surface anew. Lowers a zoom at which it would have more than 64 MiB.
    void resizeDocument() override;
    // Surfaces are whole slides and stay where they are.
    void recenterDocument() override {}
    // 0 or the module's code; 0, after a line on standard error, without a surface.
    int drawOffscreenBuffer() override;
    // A slide smaller than the view stays in its middle; that axis counts as moved.
    bool clampPosition(int& x, int& y) const override;
    bool clampPosition(int& x, int& y, int maxX, int maxY) const override;
    // "left", "right" and "down" say how the device is turned; any other text is
    // upright. Null turns back, or from upright to _WIDE, which shows nothing.
    void setFitWideMode(const char* mode);

    // Starts a glide, and asks for no paint: callers do.
    bool handleFlick(int vx, int vy) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;

    // Shows a slide, or the first or last for a number beyond, and tells the
    // client; its number, from 0.
    int jumpToSlide(int index);
    int slideCount() const { return mSlideCount; }
    // {"list": [...]}, cut after 128 bytes a slide; titles are not escaped.
    std::string getSlideList();
    // {"note": ...} of the slide shown; empty when it has none.
    std::string getSlideNote();
    std::string getDocProperties() override;

    // On all slides. {"resultcount": 0}, always: clients see hits by their marks.
    std::string doSearch(const char* text) override;
    // From hit to hit and from slide to slide, round and round.
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    // There is no selection.
    int clearSelection() override { return 0; }
    int drawCurrentResult(CpPixmap* frame) override;
    int ReinitSearchRects() override;

protected:
    // What regions belong to: the module reports those of what it rendered last.
    struct Rendering {
        int slide = -1;
        int width = 0;
        int height = 0;
        bool operator==(const Rendering&) const = default;
    };

    // The slide's size at a zoom, as the surface has it: in even pixels.
    CpPoint surfaceSize(double scale) const;
    // The zoom wanted, or the largest below it that there can be a surface for.
    double possibleScale(double wanted) const;
    // The zoom at which the slide is so many pixels wide.
    double scaleForWidth(int pixels) const;

    // Search.
    Rendering rendering() const;
    bool fetchRegions();
    void goToHitSlide(size_t info);
    bool isHitSlideShown() const;
    void returnToHitSlide();
    size_t infoOfSlideShown() const;
    bool isSearching() const { return mCurrentResult >= 0 && !mResults.empty(); }
    // Null when there is none on the slide shown.
    const sstg_find_region* currentRegion() const;
    void centreOnCurrentRegion(bool flag);

    SSTGFunc& mModule = Singleton<SSTGFunc>::Instance();
    void* mDocument = nullptr;
    std::unique_ptr<CpPixmap> mSurface; // what mDocPixmap is
    int mCurrentSlide = 0;
    int32_t mSlideCount = 0;
    int32_t mSlideWidth = 0; // of the first slide, at a zoom of 1; both 0 without one
    int32_t mSlideHeight = 0;
    bool mScaleRestored = false; // the zoom is that of an earlier view

    // Arrays belong to the module. While a search has hits, mCurrentResult is the
    // index of the current one among the regions of its slide, mHitSlide that of
    // the slide among the results.
    std::span<const sstg_find_info> mResults;
    std::span<const sstg_find_region> mRegions;
    Rendering mRegionsOf; // what the regions were fetched for
    size_t mHitSlide = 0;
};
