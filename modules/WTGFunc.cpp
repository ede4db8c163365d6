// SPDX-License-Identifier: Apache-2.0
#include "modules/WTGFunc.h"

#include "modules/LoadLibrarySymbol.h"

void* WTGFunc::SetFunctionPointers() {
    void* handle = OpenModule("WordToGoModule.so");
#define LECTERN_RESOLVE(name)                                                                                \
    this->name = reinterpret_cast<decltype(this->name)>(LoadLibrarySymbol(handle, #name));
    WTG_FUNCTIONS(LECTERN_RESOLVE)
#undef LECTERN_RESOLVE
    return handle;
}
