// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/WTGFunc.h"
#include "view/OfficeBase.h"
#include "word/HitBisection.h"
#include "word/TextStretch.h"

#include <cstdint>
#include <optional>
#include <string>

// The view of a word-processing document.
//
// The text is reflowed: a zoom changes the resolution for which the module lays it
// out. In wide mode it also changes the width, and the view can scroll sideways. A
// part of the text, the stretch, is rendered (see TextStretch). This class moves the
// stretch along with the view, so that the view never leaves it.
//
// If the document failed to open, there is no surface: all calls are allowed and do
// not call the module.
class Word : public OfficeBase {
public:
    // Width and height are in pixels, at least 1. dataStoreId is the identifier of a
    // state segment. If it is 0 or cannot be attached, creates a segment.
    Word(int width, int height, int docId, unsigned int dataStoreId);
    ~Word() override;

    void SaveStateToDataStore() override;
    void RestoreStateFromDataStore() override;
    // Also writes the module's code to standard output.
    int openFile(const char* path, const char* password) override;
    // Sets up the view after the module has opened the file. Returns 0, or the module's
    // code if it refuses the surface; then the view has no surface.
    virtual int initializeWord();

    void resizeDocument() override;
    // Does nothing, because a reflowed text has no centre.
    void recenterDocument() override {}
    // Sets the layout's width: twice the zoom times the view's width if on, else the
    // view's width. Sets mScroll to (0, 0).
    virtual void setWideMode(bool on);

    void handlePaintGesture(unsigned int* frameBuffer) override;
    // Paints the pop-up over the page. Locks mMutex.
    void handlePaintWide(unsigned int* frameBuffer) override;
    // Sets the pixels to white and writes a line to standard output.
    void eraseBuffer(unsigned int* frameBuffer, unsigned int count) const override;

    bool handlePenMove(int x, int y) override;
    bool handlePenUp(int x, int y) override;
    bool handleGestureEnd(double scale, double unused) override;
    bool handleDoubleClick(int x, int y) override;
    // Does not lock mMutex. REQUIRES: the caller has locked it.
    bool handleClick(int x, int y) override;
    bool tick() override;
    // Moves the stretch by a step if the view is near its end in that direction.
    void doCachingLogic(bool down);

    // Searches the whole text. Returns {"resultcount": n}.
    std::string doSearch(const char* text) override;
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    int clearSelection() override;
    int drawCurrentResult(CpPixmap* frame) override;
    int ReinitSearchRects() override;
    // Scrolls to the current hit. With keepVertical only sideways, in wide mode.
    void commonCenteringRoutine(bool keepVertical);
    std::string getDocProperties() override;

protected:
    // A place to return to: a character and the document row of its line.
    struct Place {
        uint32_t character = 0;
        int row = 0;
    };

    // The layout, and the position of the view after a new layout. False if that failed
    // and the picture before stays; then the caller restores scale and position.
    int layOut();
    double layoutWidth(double scale) const;
    double fittingScale(double scale) const;
    bool relayoutKeepingPlace(double ratio);
    void coverTappedPosition();
    void returnToSavedPlace();

    // Moving the stretch and the view.
    bool isTall() const;
    virtual void renumber(int rows);
    void drag(int x, int y);
    void glideInside();
    void follow(bool down);
    void moveStretchUnderView();
    void cover();
    void settle();
    virtual bool jumpToCharacter(int32_t story, uint32_t position);

    void* moduleDocument() const override { return mDocument; }
    std::vector<CpPixmap*> pictures() override;
    void releaseModuleMemory() override;

    // A hyperlink was tapped; `target` is its address and the module's.
    virtual void hyperlinkTapped(const uint16_t* target);

    // The pop-up.
    bool showsPopup() const override { return mPopupShown; }
    CpPoint pagePosition() const override { return {mScroll.x, mPopupShown ? mPageRow : mScroll.y}; }
    bool showPopup(const wtg_click_info& reference);
    bool closePopup();
    int popupRange() const;
    void clampToPopup();

    // Search.
    bool fetchRegions();
    void selectRegion(int index);
    bool jumpToHit(int result);
    void goToFirstHit();
    const wtg_find_region* currentRegion();
    std::optional<int> ownResult() const;
    int hitRow(const wtg_find_region& region) const;
    void centreHorizontally(int x);

    WTGFunc& mModule = Singleton<WTGFunc>::Instance();
    void* mDocument = nullptr;
    TextStretch mStretch;
    bool mWideMode = false;
    bool mRestored = false; // the state was restored from a given record
    Place mSavedPlace;      // the place in the state record, until the document is open

    // The module owns these arrays. mRegions belongs to the stretch with the generation
    // mRegionGeneration.
    const wtg_find_result* mResults = nullptr;
    const wtg_find_region* mRegions = nullptr;
    int32_t mResultCount = 0;
    int32_t mRegionCount = 0;
    unsigned mRegionGeneration = 0;
    uint32_t mHitPosition = 0; // character position of the current hit

    static constexpr int POPUP_LEFT = 20; // pixels between pop-up and frame on either side
    static constexpr int POPUP_HEIGHT = 1000;
    bool mPopupShown = false;
    int mPageRow = 0; // mScroll.y of the page below the pop-up
    CpPixmap mPopup;
};
