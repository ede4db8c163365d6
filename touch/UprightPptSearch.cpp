// SPDX-License-Identifier: Apache-2.0
// Search. The module tells how many hits each slide has, and the places of those on the
// slide that it has rendered last.
#include "touch/UprightPpt.h"
#include "view/JsonReply.h"
#include "view/ModuleArguments.h"
#include "view/ModuleArray.h"
#include "view/TextHelpers.h"

#include <algorithm>

namespace {

int32_t prvFlags(const SearchOptions& options) {
    return (options.matchCase ? SSTG_FIND_MATCH_CASE : 0) | (options.wholeWords ? SSTG_FIND_WHOLE_WORDS : 0);
}

// The place along one axis that shows [from, to): the present one if it does.
int prvShowing(int scroll, int viewLength, int from, int to) {
    if (from >= scroll && to <= saturatedSum(scroll, viewLength)) {
        return scroll;
    }
    const long long middle = from + (static_cast<long long>(to) - from) / 2;
    return saturateToInt(middle - viewLength / 2);
}

} // namespace

TouchResult UprightPpt::search(const char* text, const SearchOptions& options, HitPlace& hit) {
    if (mSurface == nullptr) {
        return TouchResult::NothingThere;
    }
    if (mOptional.setFindOptions != nullptr) {
        mOptional.setFindOptions(mDocument, prvFlags(options)); // if it fails, all hits are found
    } else if (options.matchCase || options.wholeWords) {
        return TouchResult::NotSupported;
    }
    find(text);
    InvalidateScreen();
    if (mHits == 0) {
        return TouchResult::NothingThere;
    }
    goToHit(firstHit());
    hit = hitPlace();
    return TouchResult::Ok;
}

void UprightPpt::find(const char* text) {
    forgetHits();
    const Utf16Text text16(text);
    const sstg_find_info* infos = nullptr;
    int32_t count = 0;
    mModule.sstg_set_highlight_color(mDocument, FOUND_COLOUR);
    mModule.sstg_find(mDocument, text16.get(), 0, mSlideCount - 1, &infos, &count);
    mResults = moduleArray(infos, count);
    mOffscreenDirty = true;
    constexpr long long MOST_HITS = 1 << 30;
    long long hits = 0;
    for (const sstg_find_info& info : mResults) {
        hits = std::min(MOST_HITS, hits + std::max(0, info.slide_hits));
    }
    mHits = static_cast<int>(hits);
}

// The first hit on the current slide at or below the view's top, or else the next.
int UprightPpt::firstHit() {
    int before = 0;
    for (const sstg_find_info& info : mResults) {
        if (info.slide > mCurrentSlide) {
            return before % mHits;
        }
        const int onSlide = std::max(0, info.slide_hits);
        if (info.slide == mCurrentSlide && onSlide > 0) {
            fetchRegions();
            const auto first = std::find_if(mRegions.begin(), mRegions.end(), [this](const auto& region) {
                return region.rectangles != nullptr && region.rectangle_count > 0 &&
                       region.rectangles[0].y >= mScroll.y;
            });
            const auto index = static_cast<int>(first - mRegions.begin());
            return (before + std::min(index, onSlide)) % mHits;
        }
        before += onSlide;
    }
    return 0;
}

void UprightPpt::goToHit(int hit) {
    mHit = hit;
    mHitSlide = 0;
    mCurrentResult = hit;
    while (mHitSlide + 1 < mResults.size() && mCurrentResult >= mResults[mHitSlide].slide_hits) {
        mCurrentResult -= std::max(0, mResults[mHitSlide].slide_hits);
        ++mHitSlide;
    }
    endContact();
    if (!isHitSlideShown()) {
        changeSlide(mResults[mHitSlide].slide);
    }
    fetchCurrentRegions();
    if (const sstg_find_region* region = currentRegion()) {
        const module_rect& r = region->rectangles[0];
        moveTo({prvShowing(mScroll.x, mWidth, r.x, saturatedSum(r.x, r.width)),
                prvShowing(mScroll.y, mHeight, r.y, saturatedSum(r.y, r.height))});
    }
}

// Lets mRegions be those of the picture that the surface shows.
void UprightPpt::fetchCurrentRegions() {
    if (!isSearching() || !isHitSlideShown() || (mRegionsOf == rendering() && !mOffscreenDirty)) {
        return;
    }
    if (mRenderedAnother) {
        mOffscreenDirty = true;
    }
    fetchRegions();
}

TouchResult UprightPpt::stepToHit(int step, HitPlace& hit) {
    if (mHits == 0) {
        return TouchResult::NothingThere;
    }
    goToHit((mHit + (step < 0 ? mHits - 1 : 1)) % mHits);
    InvalidateScreen();
    hit = hitPlace();
    return TouchResult::Ok;
}

void UprightPpt::forgetHits() {
    mResults = {};
    mRegions = {};
    mRegionsOf = Rendering();
    mCurrentResult = -1;
    mHit = -1;
    mHits = 0;
}

std::string UprightPpt::doSearch(const char* text) {
    HitPlace hit;
    search(text, SearchOptions(), hit);
    return formatSimpleJsonObject("resultcount", mHits);
}

int UprightPpt::nextResult() {
    HitPlace hit;
    stepToHit(1, hit);
    return 0;
}

int UprightPpt::previousResult() {
    HitPlace hit;
    stepToHit(-1, hit);
    return 0;
}

int UprightPpt::stopFind() {
    forgetHits();
    return PPT::stopFind();
}
