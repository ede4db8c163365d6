// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <dlfcn.h>

// A function beyond a module's table, which modules may lack. `handle` is the module's.
// Function is the type of its declaration: optionalSymbol<decltype(wtg_export)>(...).
// Null without it.
template<typename Function>
Function* optionalSymbol(void* handle, const char* name) {
    return handle != nullptr ? reinterpret_cast<Function*>(dlsym(handle, name)) : nullptr;
}
