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
// The text is reflowed: a zoom changes the resolution that the module lays it
// out for, and in wide mode the width as well, which then scrolls sideways. What
// is rendered is a stretch of the text (see TextStretch); this class moves it
// along with the view, so that the view never leaves it.
//
// A document that failed to open has no surface: every call is survived and
// asks the module nothing.
class Word : public OfficeBase {
public:
    // Width and height in pixels, at least 1. A data store of 0 has one made.
    Word(int width, int height, int docId, unsigned int dataStoreId);
    ~Word() override;

    void SaveStateToDataStore() override;
    void RestoreStateFromDataStore() override;
    // Also writes the module's code to standard output.
    int openFile(const char* path, const char* password) override;
    // Everything after the module has opened the file; 0, or the module's code
    // when it refuses the surface. Then there is none, as before.
    int initializeWord();

    void resizeDocument() override;
    // A reflowed text has no centre.
    void recenterDocument() override {}
    // Twice the zoom times the view's width, or the view's width. Goes to the
    // stretch's top.
    void setWideMode(bool on);

    void handlePaintGesture(unsigned int* frameBuffer) override;
    // Paints the pop-up over the page.
    void handlePaintWide(unsigned int* frameBuffer) override;
    // White, and a line on standard output.
    void eraseBuffer(unsigned int* frameBuffer, unsigned int count) const override;

    bool handlePenMove(int x, int y) override;
    bool handlePenUp(int x, int y) override;
    bool handleGestureEnd(double scale, double unused) override;
    bool handleDoubleClick(int x, int y) override;
    // Does not take mMutex: callers hold it.
    bool handleClick(int x, int y) override;
    bool tick() override;
    // Moves the stretch by a step when the view is near its end in that direction.
    void doCachingLogic(bool down);

    // {"resultcount": n}
    std::string doSearch(const char* text) override;
    int nextResult() override;
    int previousResult() override;
    int stopFind() override;
    int clearSelection() override;
    int drawCurrentResult(CpPixmap* frame) override;
    int ReinitSearchRects() override;
    // Brings the current hit into view.
    void commonCenteringRoutine(bool keepVertical);
    std::string getDocProperties() override;

protected:
    // A place to return to: a character and the row that its line had.
    struct Place {
        uint32_t character = 0;
        int row = 0;
    };

    // The layout, and where a new one leaves the view.
    int layOut();
    double layoutWidth(double scale) const;
    double fittingScale(double scale) const;
    void relayoutKeepingPlace(double ratio);
    void coverTappedPosition();
    void returnToSavedPlace();

    // The stretch and the view moving along each other.
    bool isTall() const;
    void renumber(int rows);
    void drag(int x, int y);
    void glideInside();
    void follow(bool down);
    void moveStretchUnderView();
    void cover();
    void settle();
    bool jumpToCharacter(int32_t story, uint32_t position);

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
    bool mRestored = false; // the state record was there before the view
    Place mSavedPlace;      // of the state record, until the document is open

    // Arrays belong to the module. Regions are those of the stretch as it was
    // when they were fetched.
    const wtg_find_result* mResults = nullptr;
    const wtg_find_region* mRegions = nullptr;
    int32_t mResultCount = 0;
    int32_t mRegionCount = 0;
    unsigned mRegionGeneration = 0;
    uint32_t mHitPosition = 0; // of the current hit, wherever the stretch is

    static constexpr int POPUP_LEFT = 20; // columns of the frame on either side
    static constexpr int POPUP_HEIGHT = 1000;
    bool mPopupShown = false;
    int mPageRow = 0; // scroll y of the page below the pop-up
    CpPixmap mPopup;
};
