// SPDX-License-Identifier: Apache-2.0
// Construction, opening a file, and saving and restoring the state.
#include "excel/Excel.h"

#include "view/ModuleArguments.h"
#include "view/TextHelpers.h"

#include <cstdio>

namespace {

constexpr int CELLS_SIDE = 1500; // width and height of the cells' surface in pixels

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

int Excel::openFile(const char* path, const char* password) {
    const Utf16Text path16(path);
    const Utf16Text password16(password);
    const Utf16Text fonts(FONT_DIRECTORY);
    const Utf16Text temporary(TEMPORARY_DIRECTORY);
    const int code =
        mModule.stg_open_file(path16.get(), password16.get(), fonts.get(), temporary.get(), &mDocument);
    return code != 0 ? code : initializeExcel();
}

int Excel::initializeExcel() {
    mCells = std::make_unique<CpPixmap>(CELLS_SIDE, CELLS_SIDE);
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
