// SPDX-License-Identifier: Apache-2.0
#include "modules/SSTGFunc.h"

#include "modules/LoadLibrarySymbol.h"

void* SSTGFunc::SetFunctionPointers() {
    void* handle = OpenModule("SlideshowToGoModule.so");
#define LECTERN_RESOLVE(name)                                                                                \
    this->name = reinterpret_cast<decltype(this->name)>(LoadLibrarySymbol(handle, #name));
    SSTG_FUNCTIONS(LECTERN_RESOLVE)
#undef LECTERN_RESOLVE
    return handle;
}
