// SPDX-License-Identifier: Apache-2.0
// The sheets, their layout, and the position of the view.
#include "touch/TouchExcel.h"

#include "raster/Saturate.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr size_t TITLE_CAPACITY = 1024; // UTF-16 units
constexpr int MOST_SHEETS = 65535;      // no suite has more; a broken module may say anything

constexpr double MOST_DOTS = 2400.0; // per inch: modules need take no more

// How much of the spare length of a window lies behind a view that moves.
constexpr int BEHIND = 8; // 1 / 8

// The first pixel of a window of this length, on one axis of the sheet, that covers
// `shown` pixels from `from` on. It stays if it does so already: then what the module has
// rendered can be used. `way` is how the view has moved.
int prvWindowEdge(int edge, int length, int from, int shown, int way, int sheetLength) {
    const int spare = std::max(0, length - shown);
    if (edge <= from && static_cast<long long>(from) - edge <= spare) {
        return edge;
    }
    const int behind = way == 0 ? spare / 2 : way > 0 ? spare / BEHIND : spare - spare / BEHIND;
    return std::clamp(saturatedDifference(from, behind), 0,
                      std::max(0, saturatedDifference(sheetLength, length)));
}

} // namespace

int TouchExcel::initializeExcel() {
    mScale = wholeZoom(mScale);
    const int code = Excel::initializeExcel();
    limitZoom();
    // The number comes from the client's record.
    if (isOpen() && !between(0, mCurrentSheet, mSheetCount - 1)) {
        jumpToSheet(0);
    }
    return code;
}

double TouchExcel::wholeZoom(double zoom) const {
    const double dots =
        std::clamp(std::round(mDotsPerInch * bearableScale(zoom)), std::ceil(mDotsPerInch * SMALLEST_ZOOM),
                   std::floor(std::min(mDotsPerInch * LARGEST_ZOOM, MOST_DOTS)));
    double whole = dots / mDotsPerInch;
    while (mDotsPerInch * whole < dots) { // the product is truncated for the module
        whole = std::nextafter(whole, LARGEST_ZOOM * 2.0);
    }
    return whole;
}

double TouchExcel::smallestZoom() const {
    if (!isOpen() || mSheetWidth < 1) {
        return SMALLEST_ZOOM;
    }
    // The headers' width changes with the zoom too.
    const double width = static_cast<double>(mSheetWidth) + corner().x;
    return std::clamp(mScale * mWidth / width, SMALLEST_ZOOM, fit());
}

// The headers grow with the zoom. They leave at least half of the view to the cells.
void TouchExcel::limitZoom() {
    const CpPoint header = corner();
    const auto half = [this](int length, int headerLength) {
        return mScale * length / (2.0 * std::max(1, headerLength));
    };
    const double largest =
        std::min({half(mWidth, header.x), half(mHeight, header.y), LARGEST_ZOOM, MOST_DOTS / mDotsPerInch});
    mMaxScale = std::max(fit(), largest);
}

CpRect TouchExcel::shownCells() const {
    const CpPoint header = corner();
    return {mScroll.x, mScroll.y, saturateToInt(static_cast<long long>(mScroll.x) + mWidth - header.x),
            saturateToInt(static_cast<long long>(mScroll.y) + mHeight - header.y)};
}

CpPoint TouchExcel::moveTo(const CpPoint& wanted) {
    mScroll = wanted;
    clampPosition(mScroll.x, mScroll.y);
    return {saturatedDifference(wanted.x, mScroll.x), saturatedDifference(wanted.y, mScroll.y)};
}

void TouchExcel::cover() {
    if (!isOpen()) {
        return;
    }
    takeChanges();
    const CpRect shown = shownCells();
    const int left = prvWindowEdge(mCells->Left(), mCells->Width(), shown.Left(), shown.Width(),
                                   saturatedDifference(mScroll.x, mCovered.x), mSheetWidth);
    const int top = prvWindowEdge(mCells->Top(), mCells->Height(), shown.Top(), shown.Height(),
                                  saturatedDifference(mScroll.y, mCovered.y), mSheetHeight);
    mCovered = mScroll;
    placeWindow(left, top);
}

void TouchExcel::placeWindow(int left, int top) {
    if (left != mCells->Left() || top != mCells->Top()) {
        const CpPoint size(mCells->Width(), mCells->Height());
        mCells->Set(left, top, saturatedSum(left, size.x), saturatedSum(top, size.y));
        mIsStale = true;
    }
}

void TouchExcel::takeChanges() {
    if (isOpen() && mOffscreenDirty) {
        resizeDocument();
        layOutAnew();
        mOffscreenDirty = false;
    }
}

void TouchExcel::layOutAnew() {
    findPlace(mTapped);
    findPlace(mSelected);
    findSelectedTracks();
    limitZoom();
    ReinitSearchRects();
    moveTo(mScroll);
    mIsStale = true;
}

void TouchExcel::zoomAbout(double scale, const CpPoint& from, const CpPoint& to) {
    takeChanges();
    const double whole = wholeZoom(scale);
    const double ratio = whole / mScale;
    const CpPoint before = documentPoint(from);
    const CellPoint kept = cellPoint(before);
    mScale = whole;
    if (!isOpen()) {
        return;
    }
    resizeDocument();
    const CpPoint estimate(saturateToInt(before.x * ratio), saturateToInt(before.y * ratio));
    const CpPoint after = documentPointOf(kept, estimate);
    const CpPoint header = corner();
    mScroll.set(saturateToInt(static_cast<long long>(after.x) - to.x + header.x),
                saturateToInt(static_cast<long long>(after.y) - to.y + header.y));
    mRendered.setEmpty();
    layOutAnew();
}

void TouchExcel::layOutForSize() {
    if (!isOpen()) {
        return;
    }
    replaceSurface();
    mOffscreenDirty = true;
    takeChanges();
}

// Keeps the surface that there is if the module refuses another one.
void TouchExcel::replaceSurface() {
    const CpPoint size = cellsSize(mWidth, mHeight);
    if (size.x == mCells->Width() && size.y == mCells->Height()) {
        return;
    }
    auto cells = std::make_unique<CpPixmap>(size.x, size.y);
    if (cells->Pixels() == nullptr) {
        return;
    }
    mCells.swap(cells);
    if (layOut() != 0) {
        mCells.swap(cells);
        layOut();
    }
    mDocPixmap = mCells.get();
    mRendered.setEmpty();
}

ViewPlace TouchExcel::place() const {
    ViewPlace place;
    place.documentWidth = mSheetWidth;
    place.documentHeight = mSheetHeight;
    place.view = shownCells();
    place.zoom = mScale;
    place.smallestZoom = smallestZoom();
    place.largestZoom = mMaxScale;
    place.fit = fit();
    place.part = mCurrentSheet;
    place.parts = mSheetCount;
    const HitPlace hit = currentHit();
    place.hit = hit.hit;
    place.hits = hit.hits;
    place.isMoving = glide().isMoving();
    return place;
}

int TouchExcel::jumpToSheet(int sheet) {
    if (!isOpen() || sheet == mCurrentSheet) {
        return Excel::jumpToSheet(sheet);
    }
    takeChanges();
    glide().stop();
    if (between(0, mCurrentSheet, mSheetCount - 1)) {
        mScrolls[mCurrentSheet] = {mScroll, mScale};
    }
    const int result = Excel::jumpToSheet(sheet);
    const SheetScroll before = mScrolls.contains(sheet) ? mScrolls[sheet] : SheetScroll();
    const double ratio = mScale / before.scale;
    mScroll.set(saturateToInt(before.position.x * ratio), saturateToInt(before.position.y * ratio));
    mRendered.setEmpty();
    takeChanges();
    recenterDocument();
    return result;
}

TouchResult TouchExcel::outline(std::vector<OutlineEntry>& entries) {
    if (!isOpen()) {
        return TouchResult::Failed;
    }
    for (int sheet = 0; sheet < std::min(mSheetCount, MOST_SHEETS); ++sheet) {
        uint16_t title[TITLE_CAPACITY] = {};
        int32_t length = 0;
        mModule.stg_get_sheet_title(mDocument, sheet, title, TITLE_CAPACITY, &length);
        entries.push_back({utf8OfBuffer(title), 0, sheet});
    }
    return TouchResult::Ok;
}

TouchResult TouchExcel::goTo(int entry) {
    if (!isOpen() || !between(0, entry, mSheetCount - 1)) {
        return TouchResult::OutOfRange;
    }
    jumpToSheet(entry);
    InvalidateScreen();
    return TouchResult::Ok;
}
