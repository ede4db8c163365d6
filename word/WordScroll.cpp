// SPDX-License-Identifier: Apache-2.0
// The view and the stretch moving along each other, so that nothing white is
// seen where there is text and every row can be reached.
//
// Input moves the view; the stretch follows by whole steps. With a surface of
// more than two steps and a view there is always room ahead: the stretch moves
// as soon as the view enters its last or first third, and the view can be held
// to the stretch (clampScroll) without anybody noticing. That is the rule for
// phones upright and not in wide mode.
//
// The larger the view, the less is left of that room, until those thresholds
// can't be reached any more (isTall()). Then the stretch moves when the wanted
// position leaves it, by half of what the surface has more than the view, and
// the view is held to it only when that is done.
//
// The thresholds do not notice every move: not a drag that reverses in one
// contact, a glide faster than the steps, a hit, a jump or a new layout. cover()
// corrects these at the next paint at the latest.
#include "raster/Saturate.h"
#include "word/Word.h"

#include <algorithm>

bool Word::isTall() const {
    const TextStretch::Size& size = mStretch.size();
    return size.height - 2 * size.step < mHeight;
}

// Shifts every stored document row. The picture does not change.
void Word::renumber(int rows) {
    mScroll.y = saturatedSum(mScroll.y, rows);
    mPenDownScroll.y = saturatedSum(mPenDownScroll.y, rows);
    mGestureScroll.y = saturatedSum(mGestureScroll.y, rows);
    mPageRow = saturatedSum(mPageRow, rows);
    mScroller.Offset(0, rows);
}

bool Word::handlePenMove(int x, int y) {
    if (mPenDown && !mGestureActive) {
        drag(x, y);
    }
    return true;
}

bool Word::handlePenUp(int x, int y) {
    if (mPenDown && !mGestureActive && !mClicked && !mFlicking) {
        drag(x, y);
        glideInside();
        InvalidateScreen();
        mPenDown = false;
    }
    mFlicking = false;
    mClicked = false;
    return true;
}

void Word::drag(int x, int y) {
    const CpPoint wanted = draggedPosition(x, y);
    mScroll.y = wanted.y;
    if (mPopupShown) {
        clampToPopup();
        return;
    }
    if (mWideMode) {
        mScroll.x = wanted.x;
    }
    follow(saturatedDifference(y, mPenDownPoint.y) < 1);
}

// Asks the scroller to bring a view outside the text back to it.
void Word::glideInside() {
    if (mDocPixmap == nullptr || mPopupShown || mScroller.isMoving()) {
        return;
    }
    CpPoint target(std::max(0, mScroll.x), std::max(0, mScroll.y));
    if (target.x >= 1 && saturatedSum(target.x, mWidth) > mDocPixmap->Right()) {
        target.x = saturatedDifference(mDocPixmap->Right(), mWidth);
    }
    if (target.y >= 1 && saturatedSum(target.y, mHeight) > mDocPixmap->Bottom()) {
        target.y = saturatedDifference(mDocPixmap->Bottom(), mHeight);
    }
    if (target.x != mScroll.x || target.y != mScroll.y) {
        mScroller.ScrollTo(target.x, target.y);
    }
}

bool Word::tick() {
    if (mScroller.isMoving()) {
        if (mPopupShown) {
            int ignored = mScroll.x;
            mScroller.tick(ignored, mScroll.y);
            clampToPopup();
        } else {
            mScroller.tick(mScroll.x, mScroll.y);
            follow(mFlickUp);
        }
        InvalidateScreen();
    }
    if (!mPopupShown) {
        cover();
    }
    return mScroller.isMoving();
}

void Word::doCachingLogic(bool down) {
    if (mDocPixmap == nullptr) {
        return;
    }
    const int step = mStretch.size().step;
    if (down) {
        if (mScroll.y >= saturatedSum(mStretch.top(), 2 * step) && mStretch.askTextBelow()) {
            mStretch.advance(step);
        }
    } else if (mScroll.y <= saturatedSum(mStretch.top(), step) && mStretch.askTextAbove()) {
        mStretch.moveUp(step);
    }
}

// Moves stretch and view towards mScroll, the position that input wants, as far as
// there is text.
void Word::follow(bool down) {
    if (mDocPixmap == nullptr) {
        return;
    }
    if (isTall()) {
        moveStretchUnderView();
        clampScroll();
        return;
    }
    const int wanted = mScroll.y;
    clampScroll();
    const int cut = saturatedDifference(wanted, mScroll.y);
    const unsigned before = mStretch.generation();
    doCachingLogic(down);
    // The pen may have reversed during the drag: then `down` is false, although the view
    // has reached the stretch's lower end and text lies below.
    if (cut > 0 && mStretch.generation() == before && mStretch.textBelow() &&
        mStretch.moveDown(mStretch.size().step)) {
        mScroll.y = saturatedSum(mScroll.y, cut);
    }
    clampScroll();
}

void Word::moveStretchUnderView() {
    const TextStretch::Size& size = mStretch.size();
    const int amount = isTall() ? std::max(1, (size.height - mHeight) / 2) : size.step;
    while (mStretch.used() < mHeight && mStretch.textAbove() && mStretch.moveUp(amount)) {
    }
    while (mScroll.y < mStretch.top() && mStretch.textAbove() && mStretch.moveUp(amount)) {
    }
    while (saturatedSum(mScroll.y, mHeight) > mStretch.bottom() && mStretch.textBelow() &&
           mStretch.moveDown(amount)) {
    }
}

// Called by each paint. Does not call the module while the stretch covers the view.
void Word::cover() {
    if (mDocPixmap == nullptr) {
        return;
    }
    const unsigned before = mStretch.generation();
    moveStretchUnderView();
    if (mStretch.generation() != before) {
        clampScroll();
    }
}

// Called after the view was moved to another place: like cover(), but always clamps
// the view to the stretch.
void Word::settle() {
    if (mDocPixmap != nullptr) {
        moveStretchUnderView();
        clampScroll();
    }
}

bool Word::jumpToCharacter(int32_t story, uint32_t position) {
    if (mDocPixmap == nullptr || !mStretch.jump(story, position)) {
        return false;
    }
    mScroller.Stop();
    mScroll.y = 0;
    mPenDownScroll.y = 0;
    settle();
    return true;
}
