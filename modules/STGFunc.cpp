// SPDX-License-Identifier: Apache-2.0
#include "modules/STGFunc.h"

#include "modules/LoadLibrarySymbol.h"

void* STGFunc::SetFunctionPointers() {
    void* handle = OpenModule("SheetToGoModule.so");
#define LECTERN_RESOLVE(name)                                                                                \
    this->name = reinterpret_cast<decltype(this->name)>(LoadLibrarySymbol(handle, #name));
    STG_FUNCTIONS(LECTERN_RESOLVE)
#undef LECTERN_RESOLVE
    return handle;
}
