// SPDX-License-Identifier: Apache-2.0
// Search in a touch view of a text. mResults has the hits of the whole text by their
// position, and mHit is the index of the current one. Word's search marks it: it knows
// the current hit by mHitPosition, and shows it while mCurrentResult is not negative.
#include "raster/Saturate.h"
#include "touch/TouchWord.h"
#include "view/JsonReply.h"
#include "view/ModuleArguments.h"
#include "view/TextHelpers.h"

#include <algorithm>

namespace {

constexpr int32_t MATCH_CASE = 1; // flags of wtg_set_find_options
constexpr int32_t WHOLE_WORDS = 2;

// The index of the first hit that begins at or behind a character; their number without one.
int prvFirstFrom(const wtg_find_result* results, int count, uint32_t character) {
    const wtg_find_result* const first = std::partition_point(
        results, results + count, [=](const wtg_find_result& result) { return result.start < character; });
    return static_cast<int>(first - results);
}

} // namespace

HitPlace TouchWord::hitPlace() const {
    HitPlace place;
    place.hits = mResultCount;
    place.hit = mCurrentResult >= 0 && mHit < mResultCount ? mHit : -1;
    return place;
}

TouchResult TouchWord::find(const char* text, const SearchOptions& options) {
    if (mDocPixmap == nullptr) {
        return TouchResult::Failed;
    }
    const int32_t flags = (options.matchCase ? MATCH_CASE : 0) | (options.wholeWords ? WHOLE_WORDS : 0);
    if (flags != 0 && mTouchModule.setFindOptions == nullptr) {
        return TouchResult::NotSupported;
    }
    closePopup();
    stopFind();
    if (mTouchModule.setFindOptions != nullptr && mTouchModule.setFindOptions(mDocument, flags) != 0) {
        return TouchResult::Failed;
    }
    const Utf16Text text16(text);
    uint32_t from = 0;
    uint32_t to = mStretch.characterCount();
    mModule.wtg_set_highlight_color(mDocument, FOUND_COLOUR);
    const int32_t failed = mModule.wtg_find(mDocument, text16.get(), 0, &from, &to, &mResults, &mResultCount);
    if (failed != 0 || mResults == nullptr || mResultCount < 0) {
        mResultCount = 0;
    }
    InvalidateScreen(); // the marks of the search before are gone
    return failed == 0 ? TouchResult::Ok : TouchResult::Failed;
}

TouchResult TouchWord::search(const char* text, const SearchOptions& options, HitPlace& hit) {
    const TouchResult result = find(text, options);
    if (result == TouchResult::Ok && mResultCount > 0) {
        goToHit(firstHitInReach());
    }
    hit = hitPlace();
    return result == TouchResult::Ok && mResultCount == 0 ? TouchResult::NothingThere : result;
}

TouchResult TouchWord::stepToHit(int step, HitPlace& hit) {
    if (mDocPixmap == nullptr || mResultCount < 1 || mCurrentResult < 0) {
        return TouchResult::NothingThere;
    }
    closePopup();
    const long long next = (static_cast<long long>(mHit) + step) % mResultCount;
    goToHit(static_cast<int>(next < 0 ? next + mResultCount : next));
    hit = hitPlace();
    return TouchResult::Ok;
}

// The first hit at or below the view's top; the first of the text if there is none.
int TouchWord::firstHitInReach() {
    fetchRegions(); // those in the stretch, by their places
    for (int i = 0; i < mRegionCount; ++i) {
        if (hitRow(mRegions[i]) >= mScroll.y) {
            return prvFirstFrom(mResults, mResultCount, mRegions[i].position) % mResultCount;
        }
    }
    uint32_t end = 0;
    if (mModule.wtg_get_bottom_right_character(mDocument, 0, &end) != 0) {
        return 0;
    }
    return prvFirstFrom(mResults, mResultCount, end) % mResultCount;
}

void TouchWord::goToHit(int hit) {
    glide().stop();
    mHit = hit;
    mHitPosition = mResults[hit].start;
    mCurrentResult = 0;
    fetchRegions();
    if (!showHit() && jumpToCharacter(0, mHitPosition)) {
        fetchRegions();
        if (!showHit()) {
            // It has no mark there; its line is at the view's top.
            moveTo({mScroll.x, saturatedDifference(mScroll.y, mHeight / 3)});
        }
    }
    InvalidateScreen();
}

// Moves so that the current hit is in view, unless it is. False if it is not in the stretch.
bool TouchWord::showHit() {
    const wtg_find_region* region = currentRegion();
    if (region == nullptr || region->rectangle_count < 1 || region->rectangles == nullptr) {
        return false;
    }
    const module_rect first = region->rectangles[0];
    const int top = saturatedSum(mStretch.top(), first.y);
    CpPoint wanted = mScroll;
    if (top < mScroll.y || saturatedSum(top, first.height) > saturatedSum(mScroll.y, mHeight)) {
        wanted.y = saturatedDifference(top, mHeight / 3);
    }
    const int right = saturatedSum(first.x, first.width);
    if (mWideMode && (first.x < mScroll.x || right > saturatedSum(mScroll.x, mWidth))) {
        wanted.x = saturatedDifference(first.x, mWidth / 3);
    }
    if (wanted.x != mScroll.x || wanted.y != mScroll.y) {
        moveTo(wanted);
    }
    return true;
}

// The search and the steps of clients that also know other views.
std::string TouchWord::doSearch(const char* text) {
    HitPlace hit;
    search(text, {}, hit);
    return formatSimpleJsonObject("resultcount", hit.hits);
}

int TouchWord::nextResult() {
    HitPlace hit;
    stepToHit(1, hit);
    return 0;
}

int TouchWord::previousResult() {
    HitPlace hit;
    stepToHit(-1, hit);
    return 0;
}
