// SPDX-License-Identifier: Apache-2.0
// Construction, opening a file, and saving and restoring the state.
#include "excel/Excel.h"

#include "view/ModuleArguments.h"
#include "view/TextHelpers.h"

#include <algorithm>
#include <cstdio>

namespace {

// Lengths of the cells' surface in pixels.
constexpr long long USUAL_LENGTH = 1500;
constexpr long long LARGEST_LENGTH = 16384;                       // modules take no larger surface
constexpr long long BOUNDED_LENGTH = 4096;                        // a square of this side has MAX_PIXELS
constexpr long long MAX_PIXELS = BOUNDED_LENGTH * BOUNDED_LENGTH; // 64 MiB

// A quarter longer than a view that the usual length cannot cover, and even.
long long prvRoomyLength(long long viewLength) {
    return viewLength <= USUAL_LENGTH ? USUAL_LENGTH : (viewLength * 5 + 7) / 8 * 2;
}

bool prvFits(long long width, long long height) {
    return std::max(width, height) <= LARGEST_LENGTH && width * height <= MAX_PIXELS;
}

// The size of the cells' surface: it has room around the view if that fits into
// memory, else it covers the view. A view too large for that is covered in part.
CpPoint prvCellsSize(long long width, long long height) {
    const auto size = [](long long x, long long y) {
        return CpPoint(static_cast<int>(x), static_cast<int>(y));
    };
    if (prvFits(prvRoomyLength(width), prvRoomyLength(height))) {
        return size(prvRoomyLength(width), prvRoomyLength(height));
    }
    const long long covering[] = {std::max(width, USUAL_LENGTH), std::max(height, USUAL_LENGTH)};
    if (prvFits(covering[0], covering[1])) {
        return size(covering[0], covering[1]);
    }
    return size(std::min(covering[0], BOUNDED_LENGTH), std::min(covering[1], BOUNDED_LENGTH));
}

} // namespace

Excel::Excel(int width, int height, int docId, unsigned int dataStoreId)
    : OfficeBase(width, height, docId, dataStoreId, _EXCEL) {
    mScale = 2.0;
    mScaleLevel = 1;
    mModuleHandle = mModule.SetFunctionPointers();
    if (!attachGivenStateRecord()) {
        std::fputs("Creating shmid!", stdout);
        std::fflush(stdout); // the text has no line feed, which would flush it
        makeStateRecord("/var");
    }
}

Excel::~Excel() {
    mModule.stg_release_memory(mDocument);
    if (mDocument != nullptr) {
        mModule.stg_close_file(&mDocument);
    }
}

std::vector<CpPixmap*> Excel::pictures() {
    std::vector<CpPixmap*> all = OfficeBase::pictures();
    all.push_back(mRowHeaders.get());
    all.push_back(mColumnHeaders.get());
    return all;
}

void Excel::releaseModuleMemory() {
    if (mDocument != nullptr) {
        mModule.stg_release_memory(mDocument);
    }
}

int Excel::openFile(const char* path, const char* password) {
    const Utf16Text path16(path);
    const Utf16Text password16(password);
    const Utf16Text fonts(FONT_DIRECTORY);
    const Utf16Text temporary(TEMPORARY_DIRECTORY);
    const int code =
        mModule.stg_open_file(path16.get(), password16.get(), fonts.get(), temporary.get(), &mDocument);
    return code != 0 ? code : initializeExcel();
}

CpPoint Excel::cellsSize(int width, int height) {
    return prvCellsSize(width, height);
}

int Excel::initializeExcel() {
    const CpPoint size = cellsSize(mWidth, mHeight);
    mCells = std::make_unique<CpPixmap>(size.x, size.y);
    mDocPixmap = mCells.get();
    mModule.stg_get_sheet_count(mDocument, &mSheetCount);
    mModule.stg_get_column_count(mDocument, mCurrentSheet, &mColumnCount);
    const int code = layOut();
    if (code != 0) {
        mCells.reset();
        mDocPixmap = nullptr;
    }
    recenterDocument();
    mOffscreenDirty = true;
    return code;
}

void Excel::SaveStateToDataStore() {
    OfficeBase::SaveStateToDataStore();
    if (mDataStore != nullptr) {
        mDataStore->extra[1] = mCurrentSheet;
    }
}

void Excel::RestoreStateFromDataStore() {
    OfficeBase::RestoreStateFromDataStore();
    if (mDataStore != nullptr) {
        mCurrentSheet = mDataStore->extra[1];
    }
}
