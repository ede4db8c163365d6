// SPDX-License-Identifier: Apache-2.0
// The layouts of a touch view's text, and what they hold at its place.
#include "raster/Saturate.h"
#include "touch/TouchWord.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// Modules need not lay out at a higher resolution, which is 8 times 300 dots per inch.
constexpr double MOST_DOTS_PER_INCH = 2400.0;
// The narrowest layout in inches. About four letters of 12 points fit into a line.
constexpr double LEAST_INCHES = 5.0 / 12.0;
// The zoom at which 12 points are a sixth of an inch, to which a double tap returns.
constexpr double FIT = 1.0;
// Lines of one row of a table, of which some begin above the view, may follow each other.
constexpr int LINES_TRIED = 4;
// How far in inches two taps at one place may be from each other.
constexpr double TAP_REACH = 0.15;
// A table or picture that is enlarged by less is as wide as the view already.
constexpr double LEAST_ENLARGEMENT = 1.1;

} // namespace

// The line at a document row, or the next one if that is all the module can tell.
std::optional<TouchWord::Line> TouchWord::lineAt(int x, int row) {
    if (mTouchModule.characterAt != nullptr) {
        uint32_t character = 0;
        module_rect line{};
        const int y = saturatedDifference(row, mStretch.top());
        if (mTouchModule.characterAt(mDocument, x, y, &character, &line) == 0 && line.height > 0) {
            return Line{character, saturatedSum(mStretch.top(), line.y), line.height};
        }
    }
    // The stretch's first character is that of the first line below its top. It moves down
    // past the text's end, but only while text lies below. A text that is all in the
    // stretch does not move; then the line is its first.
    const int onView = saturatedDifference(row, mScroll.y);
    if (row > mStretch.top() && !mStretch.textBelow()) {
        mStretch.moveUp(mStretch.size().height); // may renumber the rows, and with them mScroll
    }
    const int above = saturatedDifference(saturatedSum(mScroll.y, onView), mStretch.top());
    if (above > 0) {
        mStretch.moveDown(above);
    } else if (above < 0) {
        mStretch.moveUp(-above);
    }
    return Line{mStretch.topCharacter(), mStretch.top(), 0};
}

std::optional<TouchWord::Line> TouchWord::firstWholeLine() {
    const int last = saturatedSum(mScroll.y, mHeight - 1);
    std::optional<Line> line = lineAt(0, mScroll.y);
    for (int i = 0; i < LINES_TRIED && line && line->row < mScroll.y && line->height > 0; ++i) {
        const int below = saturatedSum(line->row, line->height);
        if (below > last || below >= mStretch.bottom()) {
            break; // it fills the view, or is the last one
        }
        line = lineAt(0, std::max(below, mScroll.y));
    }
    return line;
}

std::optional<TouchWord::Hold> TouchWord::holdFirstLine() {
    if (mHold && mHold->scroll == mScroll.y && mHold->offset == 0.0 && mHold->viewRow < mHeight) {
        return mHold;
    }
    const std::optional<Line> line = firstWholeLine();
    if (!line) {
        return std::nullopt;
    }
    return Hold{line->character, 0.0, true, saturatedDifference(line->row, mScroll.y), line->row, mScroll.y};
}

// Characters of one line may begin at different rows, if their sizes differ.
bool TouchWord::isInLine(const Hold& hold, const Line& line) {
    return std::abs(static_cast<long long>(hold.documentRow) - line.row) * 2 < line.height;
}

// What a zoom about a point of the view holds. That is the character that the last zoom
// has held as long as it is in the line at the point.
std::optional<TouchWord::Hold> TouchWord::holdAt(const CpPoint& point) {
    const bool wasHeld = mHold && mHold->scroll == mScroll.y;
    if (wasHeld && mTapsAgain) {
        return mHold;
    }
    const int row = saturatedSum(mScroll.y, std::clamp(point.y, 0, std::max(0, mHeight - 1)));
    const std::optional<Line> line = lineAt(std::clamp(bufferX(point.x), 0, mDocPixmap->Width() - 1), row);
    if (!line) {
        return std::nullopt;
    }
    const bool isSame = wasHeld && (line->height > 0 ? isInLine(*mHold, *line) : point.y == mHold->viewRow);
    if (isSame && point.y == mHold->viewRow) {
        return mHold;
    }
    const int top = isSame ? mHold->documentRow : line->row;
    const double offset = (saturatedSum(mScroll.y, point.y) - static_cast<double>(top)) / mScale;
    const bool isInside = offset >= 0.0 && offset * mScale < line->height;
    return Hold{isSame ? mHold->character : line->character, offset, isInside, point.y, top, mScroll.y};
}

void TouchWord::zoomAbout(double scale, const CpPoint& from, const CpPoint& to) {
    closePopup();
    if (mDocPixmap == nullptr) {
        mScale = fittingScale(scale);
        return;
    }
    const double oldScale = mScale;
    const std::optional<Hold> hold = from.y > 0 ? holdAt(from) : holdFirstLine();
    const CpPoint oldScroll = mScroll;
    mScale = scale;
    const double column = (static_cast<double>(mScroll.x) + from.x) * fittingScale(scale) / oldScale;
    mScroll.x = mWideMode ? saturateToInt(column - to.x) : 0;
    layOutHolding(hold, (hold ? hold->viewRow : from.y) + saturatedDifference(to.y, from.y), oldScale);
    if (mRenderResult != 0) {
        mScroll = oldScroll;
    }
}

// Lays out for mScale and the size of the view. If that fails, the picture and the scale
// are as before.
void TouchWord::layOutHolding(const std::optional<Hold>& hold, int viewRow, double oldScale) {
    const double ratio = fittingScale(mScale) / oldScale;
    if (!relayoutKeepingPlace(ratio)) {
        mScale = oldScale;
        return;
    }
    if (hold) {
        show(*hold, viewRow, saturateToInt(hold->documentRow * ratio));
    } else {
        settle();
    }
    learnSize();
}

// Shows the character's line so that the held place of it is at a row of the view.
// `documentRow` is about the row that the line has now.
void TouchWord::show(const Hold& hold, int viewRow, int documentRow) {
    if (!mStretch.jump(0, hold.character)) {
        settle();
        return;
    }
    if (hold.character != 0) {
        mStretch.place(documentRow);
    }
    const int line = mStretch.top();
    mHold = hold; // so that renumberings reach it
    mHold->viewRow = viewRow;
    mHold->documentRow = line;
    mScroll.y = saturatedDifference(saturatedSum(line, offsetInLine(hold)), viewRow);
    mHold->scroll = mScroll.y;
    settle();
    mHold->scroll = mScroll.y;
}

// How far below the top of its line a hold is. A picture that was higher before may be a
// lower line now.
int TouchWord::offsetInLine(const Hold& hold) {
    const int offset = saturateToInt(std::round(hold.offset * mScale));
    const bool isUsual = offset <= mDotsPerInch * mScale / 6.0;
    if (isUsual || !hold.isInside || mTouchModule.characterAt == nullptr) {
        return offset;
    }
    const std::optional<Line> line = lineAt(0, mStretch.top());
    return line ? std::min(offset, std::max(0, line->height - 1)) : offset;
}

// Every layout makes places in the text those of another one.
void TouchWord::resizeDocument() {
    mHold.reset();
    mNumbered = false;
    mRowsExact = false;
    Word::resizeDocument();
}

void TouchWord::layOutForSize() {
    closePopup();
    const double oldScale = mScale;
    limitZoom();
    if (mPopup.Width() != mWidth - 2 * POPUP_LEFT) {
        mPopup = CpPixmap(mWidth - 2 * POPUP_LEFT, POPUP_HEIGHT);
    }
    if (mDocPixmap == nullptr) {
        return;
    }
    const std::optional<Hold> hold = holdFirstLine();
    layOutHolding(hold, hold ? hold->viewRow : 0, oldScale);
    settle();
}

void TouchWord::setWideMode(bool on) {
    closePopup();
    const std::optional<Hold> hold = mDocPixmap != nullptr ? holdFirstLine() : std::nullopt;
    glide().stop();
    Word::setWideMode(on);
    limitZoom();
    if (hold && mRenderResult == 0) {
        show(*hold, hold->viewRow, hold->documentRow);
        learnSize();
    }
}

// The zoom ends where a module need not lay out any more, and where not even a short word
// fits into a line.
void TouchWord::limitZoom() {
    double largest = std::min(LARGEST_ZOOM, MOST_DOTS_PER_INCH / mDotsPerInch);
    if (!mWideMode) {
        largest = std::min(largest, mWidth / mDotsPerInch / LEAST_INCHES);
    }
    mMaxScale = std::max(mMinScale, fittingScale(std::max(1.0, largest)));
    mScale = std::min(mScale, mMaxScale);
}

// A table or picture as wide as the view. A table's columns keep room for four letters;
// if they have less at the fit, the text becomes smaller until they have it.
TapTarget TouchWord::tapTarget(const CpPoint& point) {
    double zoom = FIT * TapTarget::ZOOM;
    module_rect area{};
    int32_t mostDpi = 0;
    if (mDocPixmap != nullptr && !mPopupShown && mTouchModule.tapArea != nullptr &&
        mTouchModule.tapArea(mDocument, bufferX(point.x), bufferY(point.y), &area, &mostDpi) == 0) {
        const CpRect shown(area.x, area.y, saturatedSum(area.x, area.width),
                           saturatedSum(area.y, area.height));
        const double whole = TapTarget::widthOf(shown, point, mScale, mWidth).zoom;
        zoom = whole >= FIT * LEAST_ENLARGEMENT ? whole : zoom;
        zoom = mostDpi > 0 ? std::min(zoom, mostDpi / mDotsPerInch) : zoom;
    }
    return {zoom, point, point};
}

bool TouchWord::handleDoubleClick(int x, int y) {
    if (!mGestureActive && closePopup()) {
        mClicked = true;
        settle();
        InvalidateScreen();
        return true;
    }
    // A second double tap goes back to the place before the first, also if that has led to
    // an end of the text and its line is not under the finger now.
    const double away = mHold ? std::abs(static_cast<double>(y) - mHold->viewRow) : 0.0;
    mTapsAgain = mHold && mHold->scroll == mScroll.y && away <= TAP_REACH * mDotsPerInch;
    TouchHandling::handleDoubleClick(x, y);
    mTapsAgain = false;
    return true;
}

bool TouchWord::handleGestureStart(double scale, double unused) {
    closePopup();
    return TouchHandling::handleGestureStart(scale, unused);
}

bool TouchWord::handleRecord(const ClientServerMessage& message) {
    if (message.type == _PINCH && message.pinchPhase() == _PINCH_BEGINS) {
        closePopup();
    }
    return TouchHandling::handleRecord(message);
}
