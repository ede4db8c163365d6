// SPDX-License-Identifier: Apache-2.0
// A document that its module has given up.
#include "modules/ModuleTypes.h"
#include "view/OfficeBase.h"

#include <dlfcn.h>

void OfficeBase::tellLoss() {
    void* const document = moduleDocument();
    if (mLossTold || mModuleHandle == nullptr || document == nullptr) {
        return;
    }
    // Modules need not have the function.
    auto* const lost =
        reinterpret_cast<decltype(&lectern_module_lost)>(dlsym(mModuleHandle, "lectern_module_lost"));
    const int32_t code = lost != nullptr ? lost(document) : 0;
    if (code != 0) {
        mLossTold = true;
        SendDocMessage(_DOCUMENT_LOST, mDocId, code);
    }
}
