// SPDX-License-Identifier: Apache-2.0
// Opening files: under any name if the module can do that, else as the defined views do.
#include "touch/ModuleFiles.h"
#include "touch/TouchExcel.h"
#include "touch/TouchPpt.h"
#include "touch/TouchWord.h"

int TouchWord::openFile(const char* path, const char* password) {
    const std::optional<int> code =
        openAnyFile(mModuleHandle, docType(), path, password, openWatch(), &mDocument);
    if (!code) {
        return Word::openFile(path, password);
    }
    return *code != 0 ? *code : initializeWord();
}

int TouchExcel::openFile(const char* path, const char* password) {
    const std::optional<int> code =
        openAnyFile(mModuleHandle, docType(), path, password, openWatch(), &mDocument);
    if (!code) {
        return Excel::openFile(path, password);
    }
    return *code != 0 ? *code : initializeExcel();
}

int TouchPpt::openFile(const char* path, const char* password) {
    const std::optional<int> code =
        openAnyFile(mModuleHandle, docType(), path, password, openWatch(), &mDocument);
    if (!code) {
        return PPT::openFile(path, password);
    }
    return *code != 0 ? *code : initializePPT();
}
