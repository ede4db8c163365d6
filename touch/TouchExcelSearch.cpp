// SPDX-License-Identifier: Apache-2.0
// Search through all sheets. The module searches one sheet at a time and replaces the
// hits of the sheet before, so those of the other sheets are only counted.
#include "raster/Saturate.h"
#include "touch/TouchExcel.h"
#include "view/JsonReply.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int UNCOUNTED = -1;
// After this time the sheets that are left are counted when a step comes to them.
constexpr double MOST_COUNTING = 2.0; // seconds
constexpr int MOST_SHEETS = 65535;
constexpr int32_t MATCH_CASE = 1;
constexpr int32_t WHOLE_WORDS = 2;

} // namespace

void TouchExcel::findIn(int sheet) {
    const Utf16Text text(mSearch.text.c_str());
    mModule.stg_set_highlight_color(mDocument, FOUND_COLOUR);
    if (mModule.stg_find(mDocument, text.get(), sheet, 0, sheet, mSheetHeight) == 0) {
        fetchRegions();
    } else {
        mFound = {};
    }
    // Later selections have their own colour, also those that sorting makes.
    mModule.stg_set_highlight_color(mDocument, SELECTION_COLOUR);
    mIsStale = true;
    mSearch.sheet = sheet;
    mSearch.counts[static_cast<size_t>(sheet)] = static_cast<int>(mFound.size());
}

void TouchExcel::countInOtherSheets() {
    const double end = touchTime() + MOST_COUNTING;
    const auto count = static_cast<int>(mSearch.counts.size());
    for (int i = 1; i < count && touchTime() < end; ++i) {
        findIn((mCurrentSheet + i) % count);
    }
}

bool TouchExcel::findInNextSheet(int from, int step) {
    const double end = touchTime() + MOST_COUNTING;
    const auto count = static_cast<int>(mSearch.counts.size());
    for (int i = 1; i <= count; ++i) {
        const int sheet = ((from + i * step) % count + count) % count;
        const int known = mSearch.counts[static_cast<size_t>(sheet)];
        if (known == 0 || (known == UNCOUNTED && touchTime() >= end)) {
            continue;
        }
        findIn(sheet);
        if (!mFound.empty()) {
            mCurrentResult = step > 0 ? 0 : static_cast<int>(mFound.size()) - 1;
            return true;
        }
    }
    return false;
}

TouchResult TouchExcel::search(const char* text, const SearchOptions& options, HitPlace& hit) {
    const int32_t flags = (options.matchCase ? MATCH_CASE : 0) | (options.wholeWords ? WHOLE_WORDS : 0);
    if (flags != 0 && mFunctions.setFindOptions == nullptr) {
        return TouchResult::NotSupported;
    }
    stopFind();
    if (!isOpen() || text == nullptr || *text == '\0' || mSheetCount < 1) {
        return TouchResult::NothingThere;
    }
    takeChanges();
    if (mFunctions.setFindOptions != nullptr && mFunctions.setFindOptions(mDocument, flags) != 0) {
        return TouchResult::Failed;
    }
    mSearch.text = text;
    mSearch.counts.assign(static_cast<size_t>(std::min(mSheetCount, MOST_SHEETS)), UNCOUNTED);
    countInOtherSheets();
    if (between(0, mCurrentSheet, mSheetCount - 1)) {
        findIn(mCurrentSheet);
        mCurrentResult = firstHitFromView();
    }
    if (mCurrentResult < 0 && !findInNextSheet(mCurrentSheet, 1)) {
        InvalidateScreen();
        return TouchResult::NothingThere;
    }
    showHit(hit);
    return TouchResult::Ok;
}

// The first hit of the sheet that begins at or behind the view's first cell, row by row;
// -1 if there is none.
int TouchExcel::firstHitFromView() const {
    for (size_t i = 0; i < mFound.size(); ++i) {
        const stg_region& hit = mFound[i];
        const bool isBelow = hit.y > mScroll.y;
        const bool isInFirstRow = !isBelow && saturatedSum(hit.y, hit.height) > mScroll.y;
        if (isBelow || (isInFirstRow && saturatedSum(hit.x, hit.width) > mScroll.x)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

TouchResult TouchExcel::stepToHit(int step, HitPlace& hit) {
    if (!isOpen() || mSearch.sheet < 0) {
        return TouchResult::NothingThere;
    }
    takeChanges();
    const int way = step < 0 ? -1 : 1;
    const int next = mCurrentResult + way;
    if (between(0, next, static_cast<int>(mFound.size()) - 1)) {
        mCurrentResult = next;
    } else if (!findInNextSheet(mSearch.sheet, way)) {
        return TouchResult::NothingThere;
    }
    showHit(hit);
    return TouchResult::Ok;
}

CpRect TouchExcel::hitPlace() const {
    const stg_region* region = currentRegion();
    return region != nullptr ? CpRect(region->x, region->y, saturatedSum(region->x, region->width),
                                      saturatedSum(region->y, region->height))
                             : CpRect();
}

HitPlace TouchExcel::currentHit() const {
    const auto known = [](int sum, int count) { return sum + std::max(0, count); };
    const auto begin = mSearch.counts.begin();
    HitPlace hit;
    hit.hits = std::accumulate(begin, mSearch.counts.end(), 0, known);
    hit.part = std::max(0, mSearch.sheet);
    if (mCurrentResult >= 0 && mSearch.sheet >= 0) {
        hit.hit = mCurrentResult + std::accumulate(begin, begin + mSearch.sheet, 0, known);
    }
    return hit;
}

// Brings the current hit to the middle of the cells' part of the view unless it is in it.
void TouchExcel::showHit(HitPlace& hit) {
    glide().stop();
    if (mSearch.sheet != mCurrentSheet) {
        jumpToSheet(mSearch.sheet);
    }
    const CpRect place = hitPlace();
    const CpRect shown = shownCells();
    const auto edge = [](int scroll, int from, int to, int length) {
        const long long middle = from + (static_cast<long long>(to) - from) / 2;
        const bool isShown = from >= scroll && to <= static_cast<long long>(scroll) + length;
        return isShown ? scroll : std::min(from, saturateToInt(middle - length / 2));
    };
    moveTo({edge(mScroll.x, place.Left(), place.Right(), shown.Width()),
            edge(mScroll.y, place.Top(), place.Bottom(), shown.Height())});
    hit = currentHit();
    InvalidateScreen();
}

std::string TouchExcel::doSearch(const char* text) {
    HitPlace hit;
    search(text, SearchOptions(), hit);
    return formatSimpleJsonObject("resultcount", hit.hits);
}

int TouchExcel::nextResult() {
    HitPlace hit;
    stepToHit(1, hit);
    return 0;
}

int TouchExcel::previousResult() {
    HitPlace hit;
    stepToHit(-1, hit);
    return 0;
}

int TouchExcel::stopFind() {
    mSearch = Search();
    return Excel::stopFind();
}

// The hits of another layout, in the columns and rows that are not hidden. A sort ends
// the module's search.
int TouchExcel::ReinitSearchRects() {
    if (mSearch.sheet >= 0) {
        const bool hadHits = !mFound.empty();
        fetchRegions();
        if (hadHits && mFound.empty()) {
            findIn(mSearch.sheet);
        }
        const auto count = static_cast<int>(mFound.size());
        mSearch.counts[static_cast<size_t>(mSearch.sheet)] = count;
        mCurrentResult = std::min(mCurrentResult, count - 1);
    }
    return 0;
}
