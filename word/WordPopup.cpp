// SPDX-License-Identifier: Apache-2.0
// The pop-up: a secondary document, such as a footnote, over the darkened page.
// While it is shown mScroll.y scrolls it and not the page, whose own row is
// mPageRow, and the stretch stays where it is.
#include "raster/Saturate.h"
#include "word/Word.h"

#include <algorithm>

namespace {

constexpr uint32_t WHITE = 0xFFFFFFFF;
constexpr unsigned int SHADE = 0x77333333;
constexpr int POPUP_TOP = 40; // rows of the frame above and below the pop-up
// The module leaves the first rows of the pixmap empty; they are never shown.
constexpr int POPUP_HEADROOM = 50;
constexpr int POPUP_OVERLAP = 30; // how far the last offset shows past what the view would

} // namespace

// The module paints into one buffer at a time: it is lent the pop-up's.
bool Word::showPopup(const wtg_click_info& reference) {
    if (mPopup.Pixels() == nullptr) {
        return false; // the view is too narrow for one
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

// True when one was shown. Its scrolling ends with it.
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

// How far the view can be scrolled in the pop-up.
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
    // Past the end; from there scrolling goes on at a row of its own.
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
