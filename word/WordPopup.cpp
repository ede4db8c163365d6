// SPDX-License-Identifier: Apache-2.0
// The pop-up: a secondary document, such as a footnote, over the darkened page. While
// it is shown, mScroll.y scrolls the pop-up. The page stays at mPageRow, and the
// stretch does not move.
#include "raster/Saturate.h"
#include "word/Word.h"

#include <algorithm>

namespace {

constexpr uint32_t WHITE = 0xFFFFFFFF;
constexpr unsigned int SHADE = 0x77333333;
constexpr int POPUP_TOP = 40; // rows of the frame above and below the pop-up
// The module leaves this many rows at the top of the pixmap empty. They are not shown.
constexpr int POPUP_HEADROOM = 50;
constexpr int POPUP_OVERLAP = 30; // rows added to the last scroll position of the pop-up

} // namespace

// The module has only one buffer at a time, so it gets the pop-up's pixmap and then the
// surface again.
bool Word::showPopup(const wtg_click_info& reference) {
    if (mPopup.Pixels() == nullptr) {
        return false; // the view is too narrow for a pop-up
    }
    std::fill_n(mPopup.Pixels(), mPopup.Area(), WHITE);
    if (mModule.wtg_set_offscreen_buffer(mDocument, 0, mPopup.Pixels(), mPopup.Width(), mPopup.Height()) !=
        0) {
        mStretch.useSurface();
        return false;
    }
    mModule.wtg_open_secondary_document(mDocument, reference.a, reference.b, reference.c,
                                        mPopup.Height() - POPUP_HEADROOM);
    mStretch.useSurface();
    mModule.wtg_close_secondary_document(mDocument);
    mScroller.Stop();
    mPopupShown = true;
    mPageRow = mScroll.y;
    if (mDataStore != nullptr) {
        mDataStore->scrollY = mPageRow;
    }
    mDrawMode = _WIDE;
    return true;
}

// Closes the pop-up and stops its glide. True if one was shown.
bool Word::closePopup() {
    if (!mPopupShown) {
        return false;
    }
    mPopupShown = false;
    mScroller.Stop();
    mScroll.y = mPageRow;
    mDrawMode = _NORMAL;
    return true;
}

// The number of rows by which the pop-up can be scrolled.
int Word::popupRange() const {
    return std::max(0, mPopup.Height() - mHeight + POPUP_OVERLAP - POPUP_HEADROOM);
}

void Word::clampToPopup() {
    mScroll.y = std::clamp(mScroll.y, mPageRow, saturatedSum(mPageRow, popupRange()));
}

void Word::handlePaintWide(unsigned int* frameBuffer) {
    MutexLock guard;
    if (guard.lock(&mMutex) != 0) {
        return;
    }
    const int pageTop = saturatedDifference(mPageRow, mDocPixmap->Top());
    eraseBuffer(frameBuffer, framePixels());
    mDocPixmap->CopyBits(CpRect(0, pageTop, mWidth, saturatedSum(pageTop, mHeight)), frameBuffer);

    long long offset = static_cast<long long>(mScroll.y) + POPUP_HEADROOM - mPageRow;
    if (offset < POPUP_HEADROOM) {
        offset = POPUP_HEADROOM;
        mScroll.y = mPageRow;
    }
    // Past the end of the pop-up: mScroll.y gets a fixed position, which differs from
    // the one that is shown.
    if (mHeight + offset - POPUP_OVERLAP > mPopup.Height()) {
        offset = std::max(POPUP_HEADROOM, mPopup.Height() - mHeight + POPUP_OVERLAP);
        mScroll.y = saturatedSum(mPageRow, mHeight - POPUP_OVERLAP);
        clampToPopup();
    }
    tick();

    CpPixmap frame(frameBuffer, mWidth, mHeight);
    CpRect everything(0, 0, mWidth, mHeight);
    frame.DrawAlphaRectOnPix(everything, SHADE);
    CpRect border(POPUP_LEFT - 1, POPUP_TOP - 1, mWidth - 10, mHeight - 30);
    frame.DrawAlphaRectOnPix(border, SHADE);
    const int top = static_cast<int>(offset);
    mPopup.CopyBitsTo(CpRect(0, top, mPopup.Width(), mHeight + top - 2 * POPUP_TOP), frameBuffer,
                      CpRect(POPUP_LEFT, POPUP_TOP, mWidth - POPUP_LEFT, mHeight - POPUP_TOP), mWidth);
}
