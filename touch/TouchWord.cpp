// SPDX-License-Identifier: Apache-2.0
// The touch view of a text: its moves, and its place in the text.
#include "touch/TouchWord.h"

#include "raster/Saturate.h"
#include "touch/Stretched.h"
#include "view/TextHelpers.h"

#include <algorithm>

namespace {

// A position so many stretches away is jumped to, because moving there would render
// everything in between.
constexpr int FAR_STRETCHES = 6;
// Seconds between two questions whether the module knows more of the text.
constexpr double SIZE_PAUSE = 0.25;
// Rows that a module may report; sums with sizes of views do not overflow.
constexpr int64_t MOST_ROWS = int64_t{1} << 30;

} // namespace

TouchWord::TouchWord(int width, int height, int docId, unsigned int dataStoreId, double dotsPerInch)
    : TouchHandling(width, height, docId, dataStoreId, dotsPerInch), mTouchModule(mModuleHandle) {
    limitZoom();
}

// The state record has the first line of the stretch, which may begin a little below its
// top. If that line has about the row that it had, the layout is the same, and so are the
// rows of the view.
int TouchWord::initializeWord() {
    const int row = mScroll.y;
    const int code = Word::initializeWord();
    learnSize();
    const int wrong = saturatedDifference(row, mScroll.y);
    if (mRestored && std::abs(wrong) < mDotsPerInch * mScale / 4.0) {
        moveTo({mScroll.x, row});
    }
    return code;
}

void TouchWord::renumber(int rows) {
    Word::renumber(rows);
    shiftDocument(0, rows);
    if (mHold) {
        mHold->scroll = saturatedSum(mHold->scroll, rows);
        mHold->documentRow = saturatedSum(mHold->documentRow, rows);
    }
}

// A text that is shorter than the view is at the view's top, and one that is as wide as
// the view does not move sideways.
bool TouchWord::clampPosition(int& x, int& y, int maxX, int maxY) const {
    return Word::clampPosition(x, y, mWideMode ? std::max(0, maxX) : 0, std::max(0, maxY));
}

CpPoint TouchWord::moveTo(const CpPoint& wanted) {
    if (mDocPixmap == nullptr) {
        return {0, 0};
    }
    if (mPopupShown) {
        mScroll.y = wanted.y;
        clampToPopup();
        return {0, saturatedDifference(wanted.y, mScroll.y)};
    }
    mScroll = wanted;
    if (isFar(wanted.y)) {
        jumpNear(wanted.y);
    } else {
        moveStretchUnderView(); // may renumber the rows, and with them mScroll
    }
    const CpPoint reached = mScroll;
    clampScroll();
    const CpPoint beyond(saturatedDifference(reached.x, mScroll.x),
                         saturatedDifference(reached.y, mScroll.y));
    learnSize();
    return beyond;
}

void TouchWord::cover() {
    if (!mPopupShown) {
        Word::cover();
        learnSize();
    }
}

void TouchWord::scrollTo(int x, int y) {
    closePopup();
    TouchHandling::scrollTo(x, y);
}

bool TouchWord::isFar(int row) const {
    const int reach = saturateToInt(static_cast<long long>(FAR_STRETCHES) * mStretch.size().height);
    return row < saturatedDifference(mStretch.top(), reach) || row > saturatedSum(mStretch.bottom(), reach);
}

// Moves the stretch to about this row, and to the text's start or end beyond them. If the
// module fails, everything stays where it is.
void TouchWord::jumpNear(int row) {
    const uint32_t count = mStretch.characterCount();
    const bool isEnd = row >= mRows - mHeight;
    const double share = std::clamp(row / std::max(1.0, static_cast<double>(mRows)), 0.0, 1.0);
    const auto character = isEnd ? std::max(count, 1U) - 1 : static_cast<uint32_t>(share * count);
    mHold.reset();
    if (!mStretch.jump(0, character)) {
        return;
    }
    mNumbered = false;
    if (character != 0) {
        mStretch.place(isEnd ? saturateToInt(mRows - mStretch.used()) : row);
    }
    // Beyond the ends it stays as far as it was, which tells the caller that they are reached.
    if (row >= 0 && !isEnd) {
        mScroll.y = mStretch.top();
    }
    moveStretchUnderView();
}

bool TouchWord::jumpToCharacter(int32_t story, uint32_t position) {
    const int guess = estimatedRow(position);
    if (mDocPixmap == nullptr || !mStretch.jump(story, position)) {
        return false;
    }
    glide().stop();
    mHold.reset();
    mNumbered = false;
    if (position != 0) {
        mStretch.place(guess);
    }
    mScroll.y = mStretch.top();
    settle();
    learnSize();
    mPenDown = false;
    InvalidateScreen();
    return true;
}

// Learns the height of the whole text, and the number of the stretch's first row where that
// is a guess. Moves of the stretch keep the number right, so they need no call.
void TouchWord::learnSize() {
    if (mDocPixmap == nullptr) {
        return;
    }
    const bool isKnown =
        mTouchModule.textSize != nullptr ? mNumbered && mRowsExact : mSizeGeneration == mStretch.generation();
    const double now = touchTime();
    const bool isLate = mTouchModule.textSize == nullptr || !mNumbered || now >= mSizeTime + SIZE_PAUSE;
    if (isKnown || !isLate) {
        return;
    }
    mSizeGeneration = mStretch.generation();
    mSizeTime = now;
    int64_t top = 0;
    int64_t rows = 0;
    uint32_t characters = 0;
    const bool known = mTouchModule.textSize != nullptr &&
                       mTouchModule.textSize(mDocument, &top, &rows, &characters) == 0 && top >= 0 &&
                       top <= MOST_ROWS && rows > 0 && rows <= MOST_ROWS && characters > 0;
    if (!known) {
        estimateSize();
        return;
    }
    const uint32_t count = mStretch.characterCount();
    mNumbered = true;
    mRowsExact = characters >= count;
    mRows = mRowsExact ? rows : rows * count / characters;
    if (const int wrong = saturatedDifference(static_cast<int>(top), mStretch.top()); wrong != 0) {
        mStretch.place(static_cast<int>(top));
        renumber(wrong);
    }
}

// From the stretch's last character: as if lines were equally long everywhere.
void TouchWord::estimateSize() {
    const uint32_t count = mStretch.characterCount();
    uint32_t end = 0;
    if (mModule.wtg_get_bottom_right_character(mDocument, 0, &end) != 0 || end == 0) {
        mRows = std::max<long long>(mRows, mStretch.bottom());
    } else if (end >= count) {
        mRows = mStretch.bottom();
    } else {
        mRows = saturateToInt(static_cast<double>(mStretch.bottom()) * count / end);
    }
}

int TouchWord::estimatedRow(uint32_t character) const {
    const uint32_t count = std::max(1U, mStretch.characterCount());
    return saturateToInt(static_cast<double>(mRows) * std::min(character, count) / count);
}

void TouchWord::handlePaintGesture(unsigned int* frameBuffer) {
    eraseBuffer(frameBuffer, framePixels());
    copyStretched(mLastFrame, pinchAnchor().preview(CpRect(0, 0, mWidth, mHeight)), frameBuffer, mWidth,
                  mHeight);
}

ViewPlace TouchWord::place() const {
    ViewPlace place;
    const CpPoint page = pagePosition();
    if (mDocPixmap != nullptr) {
        place.documentWidth = mWideMode ? mDocPixmap->Width() : mWidth;
        place.documentHeight = std::max<long long>(mRows, mStretch.bottom());
    }
    place.view = CpRect(page.x, page.y, saturatedSum(page.x, mWidth), saturatedSum(page.y, mHeight));
    place.zoom = mScale;
    place.smallestZoom = mMinScale;
    place.largestZoom = mMaxScale;
    place.hit = hitPlace().hit;
    place.hits = hitPlace().hits;
    place.isMoving = glide().isMoving();
    return place;
}

CpRect TouchWord::onView(const module_rect& rectangle) const {
    const int left = saturatedSum(rectangle.x, saturatedDifference(mDocPixmap->Left(), pagePosition().x));
    const int top = saturatedSum(rectangle.y, saturatedDifference(mDocPixmap->Top(), pagePosition().y));
    return {left, top, saturatedSum(left, rectangle.width), saturatedSum(top, rectangle.height)};
}

void TouchWord::hyperlinkTapped(const uint16_t* target) {
    mLastLink = utf8OrEmpty(target);
    Word::hyperlinkTapped(target);
}
