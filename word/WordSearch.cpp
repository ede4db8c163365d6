// SPDX-License-Identifier: Apache-2.0
// Search. mResults has all hits of the text; mRegions has the hits inside the stretch,
// with rectangles. mHitPosition, the character position, identifies the current hit.
// mCurrentResult is its index in mRegions while it is inside the stretch. Otherwise
// it only says, by being 0 or more, that there is a current hit.
#include "raster/Saturate.h"
#include "view/DrawingBudget.h"
#include "view/JsonReply.h"
#include "view/ModuleArguments.h"
#include "view/TextHelpers.h"
#include "word/Word.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr uint32_t CURRENT_HIT_COLOUR = 0x40FFFF00;

} // namespace

std::string Word::doSearch(const char* text) {
    if (mDocPixmap == nullptr) {
        return formatSimpleJsonObject("resultcount", 0);
    }
    closePopup();
    const Utf16Text text16(text);
    uint32_t from = 0;
    uint32_t to = mStretch.characterCount();
    mModule.wtg_set_highlight_color(mDocument, FOUND_COLOUR);
    const int32_t failed = mModule.wtg_find(mDocument, text16.get(), 0, &from, &to, &mResults, &mResultCount);
    const int reported = mResultCount;
    if (failed != 0) {
        std::fprintf(stderr, "doSearch (Word) returnCode = '%x'\n", static_cast<unsigned int>(failed));
    }
    if (failed != 0 || mResults == nullptr) {
        mResultCount = 0;
    }
    if (failed == 0 && fetchRegions() && mResultCount > 0) {
        goToFirstHit();
    }
    return formatSimpleJsonObject("resultcount", reported);
}

void Word::goToFirstHit() {
    if (mRegionCount > 0) {
        const int y = saturatedDifference(mScroll.y, mStretch.top());
        selectRegion(find_first_region_greater_than_eq(y, mRegions, mRegionCount));
        commonCenteringRoutine(false);
    } else {
        jumpToHit(find_first_result_greater_than_eq(0, mResults, mResultCount));
    }
}

// Fetches the regions of the stretch and finds the current hit among them. False if the
// module fails.
bool Word::fetchRegions() {
    const int32_t failed = mModule.wtg_get_found_regions(mDocument, 0, &mRegionCount, &mRegions);
    if (mRegions == nullptr || mRegionCount < 0) {
        mRegionCount = 0;
    }
    mRegionGeneration = mStretch.generation();
    for (int i = 0; mCurrentResult >= 0 && i < mRegionCount; ++i) {
        if (mRegions[i].position == mHitPosition) {
            mCurrentResult = i;
            break;
        }
    }
    return failed == 0;
}

void Word::selectRegion(int index) {
    mCurrentResult = index;
    mHitPosition = mRegions[index].position;
}

// Moves to a hit outside the stretch. If the module fails, returns false and changes
// nothing.
bool Word::jumpToHit(int result) {
    const uint32_t position = mResults[result].start;
    if (!jumpToCharacter(0, position)) {
        return false;
    }
    mHitPosition = position;
    mCurrentResult = std::max(0, mCurrentResult);
    fetchRegions();
    return true;
}

// Null if there is no current hit or it lies outside the stretch.
const wtg_find_region* Word::currentRegion() {
    if (mCurrentResult < 0 || mResultCount < 1 || mDocPixmap == nullptr) {
        return nullptr;
    }
    if (mRegionGeneration != mStretch.generation()) {
        fetchRegions();
    }
    if (mCurrentResult >= mRegionCount || mRegions[mCurrentResult].position != mHitPosition) {
        return nullptr;
    }
    return &mRegions[mCurrentResult];
}

// The index of the current hit in mResults. The bisection may return a neighbour, so
// this searches on from there.
std::optional<int> Word::ownResult() const {
    int r = find_first_result_greater_than_eq(mHitPosition, mResults, mResultCount);
    while (r + 1 < mResultCount && mResults[r].start < mHitPosition) {
        ++r;
    }
    while (r > 0 && mResults[r].start > mHitPosition) {
        --r;
    }
    return mResults[r].start == mHitPosition ? std::optional<int>(r) : std::nullopt;
}

int Word::nextResult() {
    if (mCurrentResult < 0 || mResultCount < 1) {
        return 0;
    }
    closePopup();
    if (currentRegion() != nullptr && mCurrentResult + 1 < mRegionCount) {
        selectRegion(mCurrentResult + 1);
    } else {
        const std::optional<int> own = ownResult();
        if (!own || *own >= mResultCount - 1 || !jumpToHit(*own + 1)) {
            return 0;
        }
    }
    commonCenteringRoutine(false);
    return 0;
}

int Word::previousResult() {
    if (mCurrentResult < 0 || mResultCount < 1) {
        return 0;
    }
    closePopup();
    if (currentRegion() != nullptr && mCurrentResult > 0) {
        selectRegion(mCurrentResult - 1);
    } else {
        const std::optional<int> own = ownResult();
        // There is no step back from the first two results.
        if (!own || *own <= 1 || !jumpToHit(*own - 1)) {
            return 0;
        }
    }
    const wtg_find_region* region = currentRegion();
    if (region != nullptr && hitRow(*region) < mScroll.y) {
        mScroll.y = saturateToInt(static_cast<long long>(hitRow(*region)) + 120 - mHeight);
    }
    commonCenteringRoutine(true);
    return 0;
}

// The document row of a hit. Its rectangles are relative to the surface.
int Word::hitRow(const wtg_find_region& region) const {
    return saturatedSum(mStretch.top(), firstRow(region));
}

void Word::commonCenteringRoutine(bool keepVertical) {
    const wtg_find_region* region = currentRegion();
    if (region == nullptr || region->rectangle_count < 1 || region->rectangles == nullptr) {
        return;
    }
    const int row = hitRow(*region);
    if (!keepVertical && row > saturateToInt(static_cast<long long>(mHeight) + mScroll.y - 80)) {
        mScroll.y = saturatedDifference(row, 10);
    }
    if (mWideMode) {
        centreHorizontally(region->rectangles[0].x);
    }
    settle();
}

void Word::centreHorizontally(int x) {
    if (!between(mScroll.x, x, saturatedSum(mScroll.x, mWidth))) {
        mScroll.x = saturateToInt(offCentre(x) - mWidth / 2);
    }
}

int Word::ReinitSearchRects() {
    if (mResultCount >= 1 && mDocPixmap != nullptr) {
        fetchRegions();
        commonCenteringRoutine(false);
    }
    return 0;
}

int Word::stopFind() {
    if (mDocument != nullptr) {
        mModule.wtg_stop_find(mDocument);
    }
    mCurrentResult = -1;
    mResultCount = 0;
    mResults = nullptr;
    mRegionCount = 0;
    mRegions = nullptr;
    return 0;
}

int Word::drawCurrentResult(CpPixmap* frame) {
    const wtg_find_region* region = currentRegion();
    if (region == nullptr || region->rectangles == nullptr) {
        return 0;
    }
    const int left = saturatedDifference(mDocPixmap->Left(), mScroll.x);
    const int top = saturatedDifference(mDocPixmap->Top(), mScroll.y);
    DrawingBudget budget(*frame);
    for (uint32_t i = 0; i < region->rectangle_count; ++i) {
        const module_rect& hit = region->rectangles[i];
        const int x = saturatedSum(left, hit.x);
        const int y = saturatedSum(top, hit.y);
        CpRect mark(x, y, saturatedSum(x, hit.width), saturatedSum(y, hit.height));
        if (budget.coversRect(mark)) {
            frame->DrawAlphaRectOnPix(mark, CURRENT_HIT_COLOUR);
        }
    }
    return 0;
}
