// SPDX-License-Identifier: Apache-2.0
// Construction, opening a file, and saving and restoring the state.
#include "ppt/PPT.h"

#include "view/ModuleArguments.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

PPT::PPT(int width, int height, int docId, unsigned int dataStoreId)
    : OfficeBase(width, height, docId, dataStoreId, _PPT) {
    mModuleHandle = mModule.SetFunctionPointers();
    attachStateRecord("/tmp");
}

PPT::~PPT() {
    if (mDocument != nullptr) {
        mModule.sstg_close_file(&mDocument);
    }
}

void PPT::releaseModuleMemory() {
    if (mDocument != nullptr) {
        mModule.sstg_release_memory(mDocument);
    }
}

int PPT::openFile(const char* path, const char* /*password*/) {
    const Utf16Text path16(path);
    const Utf16Text fonts(FONT_DIRECTORY);
    const Utf16Text temporary(TEMPORARY_DIRECTORY);
    const int code = mModule.sstg_open_file(path16.get(), fonts.get(), temporary.get(), &mDocument);
    std::printf("openFile (Power) returnCode = '%x'\n", static_cast<unsigned int>(code));
    return code != 0 ? code : initializePPT();
}

int PPT::initializePPT() {
    mModule.sstg_get_slide_count(mDocument, &mSlideCount);
    mSlideCount = std::max(0, mSlideCount);
    mModule.sstg_get_slide_dimensions(mDocument, 0, &mSlideWidth, &mSlideHeight);
    if (mSlideWidth < 1 || mSlideHeight < 1) {
        mSlideWidth = 0;
        mSlideHeight = 0;
    }
    const double fit = scaleForWidth(mWidth);
    mBaseScale = fit;
    mMinScale = fit;
    mMaxScale = 4.0 * fit;
    // A pinch to a limit may have ended slightly beyond it, by a rounding error.
    constexpr double ROUNDING = 1e-9;
    const bool sensible = mScale >= mMinScale * (1 - ROUNDING) && mScale <= mMaxScale * (1 + ROUNDING);
    if (!mScaleRestored || !sensible) {
        mScale = fit;
    }
    resizeDocument();
    mOffscreenDirty = true;
    return 0;
}

void PPT::SaveStateToDataStore() {
    OfficeBase::SaveStateToDataStore();
    if (mDataStore != nullptr) {
        mDataStore->extra[1] = mCurrentSlide;
    }
}

void PPT::RestoreStateFromDataStore() {
    OfficeBase::RestoreStateFromDataStore();
    if (mDataStore == nullptr) {
        return;
    }
    mCurrentSlide = mDataStore->extra[1];
    const double scale = mDataStore->scale;
    mScaleRestored = std::isfinite(scale) && scale > 0.0;
    if (mScaleRestored && mSurface == nullptr) {
        mScale = scale;
    }
}
