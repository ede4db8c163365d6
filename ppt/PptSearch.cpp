// SPDX-License-Identifier: Apache-2.0
// Search. The module returns the slides with hits, and the regions of the hits on a
// slide after it has rendered that slide. If the client shows another slide in
// between, nothing is marked, and the next step continues from the current hit.
#include "ppt/PPT.h"
#include "raster/Saturate.h"
#include "view/JsonReply.h"
#include "view/ModuleArguments.h"
#include "view/ModuleArray.h"
#include "view/TextHelpers.h"

#include <algorithm>

std::string PPT::doSearch(const char* text) {
    std::string reply = formatSimpleJsonObject("resultcount", 0);
    if (mSurface == nullptr) {
        return reply;
    }
    const Utf16Text text16(text);
    const sstg_find_info* infos = nullptr;
    int32_t count = 0;
    mModule.sstg_set_highlight_color(mDocument, FOUND_COLOUR);
    mModule.sstg_find(mDocument, text16.get(), 0, mSlideCount - 1, &infos, &count);
    mResults = moduleArray(infos, count);
    mCurrentResult = -1;
    mOffscreenDirty = true;
    if (!fetchRegions() || mResults.empty()) {
        return reply;
    }
    if (!mRegions.empty()) {
        const int y = saturatedDifference(mScroll.y, mDocPixmap->Top());
        mCurrentResult =
            find_first_region_greater_than_eq(y, mRegions.data(), static_cast<int>(mRegions.size()));
        mHitSlide = infoOfSlideShown();
    } else {
        mCurrentResult = 0;
        goToHitSlide(static_cast<size_t>(find_first_slide_greater_than_eq(
            mCurrentSlide, mResults.data(), static_cast<int>(mResults.size()))));
    }
    centreOnCurrentRegion(true);
    return reply;
}

PPT::Rendering PPT::rendering() const {
    return {mCurrentSlide, mSurface->Width(), mSurface->Height()};
}

// Fetches the regions of the current slide. Renders the slide first if it is dirty,
// because the module returns the regions of its last rendering. If the module fails,
// returns false and there are no regions.
bool PPT::fetchRegions() {
    if (mOffscreenDirty) {
        drawOffscreenBuffer();
    }
    const sstg_find_region* regions = nullptr;
    int32_t count = 0;
    const bool fetched = mModule.sstg_get_found_regions(mDocument, &count, &regions) == 0;
    mRegions = fetched ? moduleArray(regions, count) : std::span<const sstg_find_region>();
    mRegionsOf = rendering();
    return fetched;
}

// The index in mResults of the current slide; if it has no hits, of the next slide
// that has, or else of the last.
size_t PPT::infoOfSlideShown() const {
    const auto info = std::find_if(mResults.begin(), mResults.end(),
                                   [this](const auto& i) { return i.slide >= mCurrentSlide; });
    return std::min(static_cast<size_t>(info - mResults.begin()), mResults.size() - 1);
}

void PPT::goToHitSlide(size_t info) {
    mHitSlide = info;
    jumpToSlide(mResults[info].slide);
    fetchRegions();
}

bool PPT::isHitSlideShown() const {
    return mResults[mHitSlide].slide == mCurrentSlide;
}

// Returns to the slide of the current hit if the client has shown another one, and
// fetches the regions again if the slide or its size has changed.
void PPT::returnToHitSlide() {
    if (!isHitSlideShown()) {
        jumpToSlide(mResults[mHitSlide].slide);
    }
    if (mRegionsOf != rendering()) {
        fetchRegions();
    }
}

const sstg_find_region* PPT::currentRegion() const {
    if (!isSearching() || !isHitSlideShown() || static_cast<size_t>(mCurrentResult) >= mRegions.size()) {
        return nullptr;
    }
    const sstg_find_region& region = mRegions[static_cast<size_t>(mCurrentResult)];
    return region.rectangles != nullptr && region.rectangle_count > 0 ? &region : nullptr;
}

void PPT::centreOnCurrentRegion(bool flag) {
    const sstg_find_region* region = currentRegion();
    if (region != nullptr) {
        const module_rect& hit = region->rectangles[0];
        CenterAboutRect(CpRect(hit.x, hit.y, saturatedSum(hit.x, hit.width), saturatedSum(hit.y, hit.height)),
                        flag);
    }
}

int PPT::nextResult() {
    if (!isSearching()) {
        return 0;
    }
    if (static_cast<size_t>(mCurrentResult) + 1 < mRegions.size()) {
        ++mCurrentResult;
        returnToHitSlide();
    } else {
        mCurrentResult = 0;
        goToHitSlide((mHitSlide + 1) % mResults.size());
    }
    centreOnCurrentRegion(true);
    return 0;
}

int PPT::previousResult() {
    if (!isSearching()) {
        return 0;
    }
    if (mCurrentResult > 0) {
        --mCurrentResult;
        returnToHitSlide();
    } else {
        goToHitSlide((mHitSlide + mResults.size() - 1) % mResults.size());
        // A slide may have hits only in its notes, and so no regions.
        mCurrentResult = std::max(0, static_cast<int>(mRegions.size()) - 1);
    }
    centreOnCurrentRegion(false);
    return 0;
}

int PPT::ReinitSearchRects() {
    if (isSearching() && isHitSlideShown()) {
        fetchRegions();
        centreOnCurrentRegion(true);
    }
    return 0;
}

int PPT::stopFind() {
    if (mDocument != nullptr) {
        mModule.sstg_stop_find(mDocument);
    }
    mCurrentResult = -1;
    mResults = {};
    mRegions = {};
    mOffscreenDirty = true;
    return 0;
}
