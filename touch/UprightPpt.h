// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ppt/PPT.h"
#include "touch/SlideFunctions.h"
#include "touch/SlideText.h"
#include "touch/TouchHandling.h"

#include <optional>
#include <string>

// A presentation with touch manners whose slides are shown upright.
//
// A jump shows the whole slide, in the middle of the view: that is the fit. Searches and
// their steps keep the zoom. mScale is in pixels for each 1/72 inch of the slide, so a zoom
// of 1 is a scale of mDotsPerInch / 72.
class UprightPpt : public TouchHandling<PPT> {
public:
    UprightPpt(int width, int height, int docId, unsigned int dataStoreId, double dotsPerInch);

    int initializePPT() override;
    void handlePaint(unsigned int* frameBuffer) override;
    void handlePaintGesture(unsigned int* frameBuffer) override;
    int drawOffscreenBuffer() override;

    bool handlePenDown(int x, int y) override;
    bool handlePenUp(int x, int y) override;
    bool handleFlick(int vx, int vy) override;
    bool handleClick(int x, int y) override;

    // Shows the whole slide.
    int jumpToSlide(int index) override;

    // The reply counts the hits.
    std::string doSearch(const char* text) override;
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    int clearSelection() override;
    // Paints draw all marks themselves.
    int drawCurrentResult(CpPixmap* /*frame*/) override { return 0; }
    // A hit keeps its place when the zoom changes.
    int ReinitSearchRects() override { return 0; }

    ViewPlace place() const override;
    void zoomTo(double zoom, const CpPoint& about) override;
    void resize(int width, int height) override;
    std::string lastLink() const override { return mLastLink; }
    TouchResult search(const char* text, const SearchOptions& options, HitPlace& hit) override;
    TouchResult stepToHit(int step, HitPlace& hit) override;
    TouchResult select(SelectUnit unit, const CpPoint& point) override;
    TouchResult moveSelectionEnd(SelectEnd end, const CpPoint& point) override;
    TouchResult selection(Selection& selection) override;
    TouchResult visibleText(std::vector<TextLine>& lines) override;
    TouchResult outline(std::vector<OutlineEntry>& entries) override;
    TouchResult goTo(int entry) override;
    TouchResult thumbnail(int part, uint32_t* pixels, int width, int height) override;

protected:
    // Goes to the fit.
    void showWhole();

    SlideFunctions mOptional;

private:
    // A place of the slide: the bounds of its surface in pixels of the view.
    struct Placing {
        CpPoint size{0, 0};
        CpPoint scroll{0, 0};

        CpRect inView() const;
    };

    CpPoint moveTo(const CpPoint& wanted) override;
    void cover() override {}
    void zoomAbout(double scale, const CpPoint& from, const CpPoint& to) override;
    void layOutForSize() override;
    double fit() const override { return mBaseScale; }
    double smallestZoom() const override { return mBaseScale; }
    TapTarget tapTarget(const CpPoint& point) override;

    // The pixels for each 1/72 inch at a zoom of 1.
    double scaleOfOne() const { return mDotsPerInch / DOTS_PER_INCH; }
    void setLimits();
    // Lays the slide out at a scale inside the limits.
    void setScale(double scale);
    // Where zoomAbout() would place the slide.
    Placing placingAbout(double scale, const CpPoint& from, const CpPoint& to) const;
    // What is under a point of the view, in pixels of the surface.
    CpPoint onSurface(const CpPoint& point) const;
    CpRect onView(CpRect r) const;
    bool hasPicture() const { return mSurface != nullptr && mSurface->Pixels() != nullptr; }
    // Paints what of the view lies around the slide.
    void eraseAround(const CpRect& slide, unsigned int* frameBuffer) const;
    // Ends what a finger, a pinch or a glide is doing.
    void endContact();
    void changeSlide(int slide);
    void turnPage(int step);
    bool followLink(const CpPoint& point);

    // Search. Hits count through all slides; hits in notes do not count.
    void forgetHits();
    void find(const char* text);
    int firstHit();
    void goToHit(int hit);
    void fetchCurrentRegions();
    HitPlace hitPlace() const { return {mHit, mHits, mCurrentSlide}; }
    // Marks the current hit and the selection in a frame that shows the slide in a rectangle.
    void drawMarks(CpPixmap& frame, const CpRect& slide);

    // Null without text lines, because the module lacks them or fails.
    const SlideText* slideText();

    std::string mLastLink;
    bool mTurnedByDrag = false;    // a drag in this contact has turned the page
    bool mRenderedAnother = false; // the module has rendered another picture than the surface
    int mHit = -1;                 // the current hit
    int mHits = 0;
    SlideText mText;
    Rendering mTextOf; // the rendering that mText belongs to
    int mSelectedSlide = -1;
    UnitRange mSelected;
};
