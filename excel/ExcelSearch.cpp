// SPDX-License-Identifier: Apache-2.0
// Search on the current sheet. The module finds all hits at once. Their regions are in
// document pixels and are fetched again after a zoom.
#include "excel/Excel.h"
#include "raster/Saturate.h"
#include "view/JsonReply.h"
#include "view/ModuleArguments.h"
#include "view/ModuleArray.h"
#include "view/TextHelpers.h"

std::string Excel::doSearch(const char* text) {
    if (!isOpen()) {
        return formatSimpleJsonObject("resultcount", 0);
    }
    const Utf16Text text16(text);
    mModule.stg_set_highlight_color(mDocument, FOUND_COLOUR);
    mModule.stg_find(mDocument, text16.get(), mCurrentSheet, 0, mCurrentSheet, mSheetHeight);
    mCurrentResult = 0;
    fetchRegions();
    if (centreOnCurrentRegion()) {
        recenterDocument();
    }
    mOffscreenDirty = true;
    return formatSimpleJsonObject("resultcount", static_cast<int>(mFound.size()));
}

void Excel::fetchRegions() {
    const stg_region* regions = nullptr;
    int32_t count = 0;
    mModule.stg_get_found_regions(mDocument, &count, &regions);
    mFound = moduleArray(regions, count);
}

const stg_region* Excel::currentRegion() const {
    const auto index = static_cast<size_t>(mCurrentResult);
    return mCurrentResult >= 0 && index < mFound.size() ? &mFound[index] : nullptr;
}

bool Excel::centreOnCurrentRegion() {
    const stg_region* region = currentRegion();
    if (region == nullptr) {
        return false;
    }
    CenterAboutRect(CpRect(region->x, region->y, saturatedSum(region->x, region->width),
                           saturatedSum(region->y, region->height)),
                    true);
    return true;
}

int Excel::nextResult() {
    return stepResult(1);
}

int Excel::previousResult() {
    return stepResult(-1);
}

// Goes to the next or previous hit; after the last comes the first. mCurrentResult
// may be too large, from an earlier search, so it is first reduced modulo the count.
int Excel::stepResult(int step) {
    if (mCurrentResult < 0 || mFound.empty()) {
        return 0;
    }
    const auto count = static_cast<int>(mFound.size());
    mCurrentResult = (mCurrentResult % count + step + count) % count;
    centreOnCurrentRegion();
    recenterDocument();
    mOffscreenDirty = true;
    return 0;
}

int Excel::stopFind() {
    if (isOpen()) {
        mModule.stg_stop_find(mDocument);
    }
    mCurrentResult = -1;
    mFound = {};
    mOffscreenDirty = true;
    return 0;
}

int Excel::ReinitSearchRects() {
    if (!mFound.empty()) {
        fetchRegions();
        mOffscreenDirty = true;
        centreOnCurrentRegion();
    }
    return 0;
}

// Draws the mark of the current hit. Adds the window's position to the region, unlike
// centreOnCurrentRegion(): clients expect it.
int Excel::drawCurrentResult(CpPixmap* frame) {
    const stg_region* region = currentRegion();
    if (region == nullptr) {
        return 0;
    }
    const CpPoint header = corner();
    CpPoint at(mCells->Left(), mCells->Top());
    at.Offset(saturatedDifference(region->x, mScroll.x), saturatedDifference(region->y, mScroll.y));
    at += header;
    CpRect mark(at.x, at.y, saturatedSum(at.x, region->width), saturatedSum(at.y, region->height));
    frame->DrawAlphaRectOnPix(mark, CURRENT_HIT_COLOUR);
    return 0;
}
