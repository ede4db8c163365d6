// SPDX-License-Identifier: Apache-2.0
// Loads modules for the three function tables. Private to modules/. A view cannot
// work without its module, so every failure writes the loader's message to standard
// error and ends the process with exit status 1.
#pragma once

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

[[noreturn]] inline void FailLoading(const char* message) {
    std::fprintf(stderr, "%s\n", message);
    std::exit(1);
}

// Opens a module by its bare name on the loader's search path. The function is
// static, so that dlopen is called from the program itself and uses its run path.
static void* OpenModule(const char* fileName) {
    void* handle = dlopen(fileName, RTLD_LAZY);
    if (handle == nullptr) {
        FailLoading(dlerror());
    }
    return handle;
}

// The address of a function in a module.
static void* LoadLibrarySymbol(void* handle, const char* name) {
    void* address = dlsym(handle, name);
    if (const char* message = dlerror()) {
        FailLoading(message);
    }
    return address;
}
