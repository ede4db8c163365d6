// SPDX-License-Identifier: Apache-2.0
// Construction, opening a file, and saving and restoring the state.
#include "word/Word.h"

#include "modules/Singleton.h"
#include "view/ModuleArguments.h"
#include "view/TextHelpers.h"

#include <cstdio>

namespace {

// The highest valid row in a state record.
constexpr int LAST_ROW = 1 << 30;

} // namespace

Word::Word(int width, int height, int docId, unsigned int dataStoreId)
    : OfficeBase(width, height, docId, dataStoreId, _WORD), mStretch([this](int rows) { renumber(rows); }),
      mPopup(width - 2 * POPUP_LEFT, POPUP_HEIGHT) {
    mScale = 1.0;
    mScaleLevel = 1;
    mModuleHandle = mModule.SetFunctionPointers();
    attachStateRecord("/usr");
}

Word::~Word() {
    if (mDocument != nullptr) {
        mModule.wtg_close_file(&mDocument);
    }
}

std::vector<CpPixmap*> Word::pictures() {
    std::vector<CpPixmap*> all = OfficeBase::pictures();
    all.push_back(&mPopup);
    return all;
}

void Word::releaseModuleMemory() {
    if (mDocument != nullptr) {
        mModule.wtg_release_memory(mDocument);
    }
}

int Word::openFile(const char* path, const char* password) {
    const Utf16Text path16(path);
    const Utf16Text password16(password);
    const Utf16Text fonts(FONT_DIRECTORY);
    const Utf16Text temporary(TEMPORARY_DIRECTORY);
    const int code =
        mModule.wtg_open_file(path16.get(), password16.get(), fonts.get(), temporary.get(), &mDocument);
    std::printf("openFile (Word) returnCode = '%x'\n", static_cast<unsigned int>(code));
    return code != 0 ? code : initializeWord();
}

int Word::initializeWord() {
    uint32_t scratch = 0;
    uint32_t characters = 0;
    mModule.wtg_get_character_count(mDocument, 0, &scratch, &characters);
    mStretch.open(mDocument, characters);
    const int code = layOut();
    if (mRestored && mDocPixmap != nullptr) {
        returnToSavedPlace();
    }
    return code;
}

void Word::returnToSavedPlace() {
    const auto [character, row] = mSavedPlace;
    if (character != 0 || row != 0) {
        const bool sensible =
            character > 0 && character < mStretch.characterCount() && between(0, row, LAST_ROW);
        if (sensible && mStretch.jump(0, character)) {
            mStretch.place(row);
        } else {
            mScroll.y = 0;
        }
    }
    settle();
}

void Word::SaveStateToDataStore() {
    OfficeBase::SaveStateToDataStore();
    if (mDataStore == nullptr) {
        return;
    }
    if (mPopupShown) {
        mDataStore->scrollY = mPageRow;
    }
    // If the document was never opened, the saved place stays in the record for the
    // next attempt.
    if (mDocPixmap != nullptr) {
        mSavedPlace = {mStretch.topCharacter(), mStretch.top()};
    }
    mDataStore->extra[0] = static_cast<int32_t>(mSavedPlace.character);
    mDataStore->extra[1] = mSavedPlace.row;
}

void Word::RestoreStateFromDataStore() {
    OfficeBase::RestoreStateFromDataStore();
    if (mDataStore != nullptr) {
        mSavedPlace = {static_cast<uint32_t>(mDataStore->extra[0]), mDataStore->extra[1]};
        mRestored = true;
    }
}
