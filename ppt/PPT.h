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
// It shows one slide at a time. The surface holds the whole slide at the current
// zoom; pens and pinches move the visible part. All slides are shown at the size of
// the first. In the fit-wide modes, for a device held on its side, the slide is as
// wide as the view is high; input coordinates still count as if the device were
// upright.
//
// If the document failed to open, there is no surface: all calls are allowed and do
// not call the module. A document without slides shows what the module paints as
// slide 0; it is black if the module tells no size.
//
// None of the operations below locks mMutex.
class PPT : public OfficeBase {
public:
    // Width and height are in pixels, at least 1. dataStoreId is the identifier of a
    // state segment. If it is 0 or cannot be attached, creates a segment.
    PPT(int width, int height, int docId, unsigned int dataStoreId);
    ~PPT() override;

    // Also save and restore the current slide, whose number is not checked. The zoom
    // limits are unknown until the document is open, so restoring accepts every
    // finite and positive zoom.
    void SaveStateToDataStore() override;
    void RestoreStateFromDataStore() override;
    // Also writes the module's code to standard output. Ignores the password.
    int openFile(const char* path, const char* password) override;
    // Sets up the view after the module has opened the file. Always returns 0.
    virtual int initializePPT();

    // Creates a new surface. Lowers mScale if the surface would exceed 64 MiB.
    void resizeDocument() override;
    // Does nothing, because the surface always holds the whole slide.
    void recenterDocument() override {}
    // Renders the current slide. Returns 0 or the module's code. Without a surface,
    // writes a line to standard error and returns 0.
    int drawOffscreenBuffer() override;
    // A slide smaller than the view is centred in it; that axis counts as changed.
    bool clampPosition(int& x, int& y) const override;
    bool clampPosition(int& x, int& y, int maxX, int maxY) const override;
    // Sets how the device is turned: "left", "right", "down", or any other text for
    // upright. Null changes from upright to _WIDE, in which paints are black, and from
    // every other mode to upright.
    virtual void setFitWideMode(const char* mode);

    // Starts a glide. Does not request a paint: callers do.
    bool handleFlick(int vx, int vy) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;

    // Makes a slide current and notifies the client. Limits the index to the slides
    // of the document. Returns the slide's number, from 0.
    virtual int jumpToSlide(int index);
    int slideCount() const { return mSlideCount; }
    // {"list": [...]}, see view/DocumentList.h.
    std::string getSlideList();
    // {"note": ...} for the current slide; empty if it has none.
    std::string getSlideNote();
    std::string getDocProperties() override;

    // Searches all slides. Always returns {"resultcount": 0}: users see hits by their
    // marks.
    std::string doSearch(const char* text) override;
    // Go to the next or previous hit, on the same or another slide; after the last
    // comes the first. Return 0.
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    // There is no selection.
    int clearSelection() override { return 0; }
    int drawCurrentResult(CpPixmap* frame) override;
    int ReinitSearchRects() override;

protected:
    // A slide and the size at which it was rendered. The module returns regions for
    // its last rendering.
    struct Rendering {
        int slide = -1;
        int width = 0;
        int height = 0;
        bool operator==(const Rendering&) const = default;
    };

    void* moduleDocument() const override { return mDocument; }
    // The size of the surface at a zoom, in pixels. Both sides are even.
    CpPoint surfaceSize(double scale) const;
    // The wanted zoom, or the largest lower zoom whose surface fits into 64 MiB.
    double possibleScale(double wanted) const;
    // The zoom at which the slide is `pixels` wide.
    double scaleForWidth(int pixels) const;

    // Search.
    Rendering rendering() const;
    bool fetchRegions();
    void goToHitSlide(size_t info);
    bool isHitSlideShown() const;
    void returnToHitSlide();
    size_t infoOfSlideShown() const;
    bool isSearching() const { return mCurrentResult >= 0 && !mResults.empty(); }
    // Null if the current hit is not on the current slide, or has no rectangles.
    const sstg_find_region* currentRegion() const;
    void centreOnCurrentRegion(bool flag);

    void releaseModuleMemory() override;

    SSTGFunc& mModule = Singleton<SSTGFunc>::Instance();
    void* mDocument = nullptr;
    std::unique_ptr<CpPixmap> mSurface; // mDocPixmap points to it
    int mCurrentSlide = 0;
    int32_t mSlideCount = 0;
    int32_t mSlideWidth = 0; // of the first slide, in pixels at a zoom of 1; both 0 without one
    int32_t mSlideHeight = 0;
    bool mScaleRestored = false; // mScale was restored from an earlier view

    // The module owns these arrays. While a search has hits, mHitSlide is the index in
    // mResults of the slide with the current hit, and mCurrentResult is the index of
    // the hit in that slide's regions.
    std::span<const sstg_find_info> mResults;
    std::span<const sstg_find_region> mRegions;
    Rendering mRegionsOf; // the rendering that mRegions belongs to
    size_t mHitSlide = 0;
};
