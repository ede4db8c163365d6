// SPDX-License-Identifier: Apache-2.0
// Loading for the three function tables; not for use outside modules/. A view
// cannot do anything without its module, so every failure ends the process
// with the loader's own message on standard error and exit status 1.
#pragma once

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

[[noreturn]] inline void FailLoading(const char* message) {
    std::fprintf(stderr, "%s\n", message);
    std::exit(1);
}

// Opens a module by its bare name on the loader's search path. Static, so that
// dlopen is called from the program itself, whose run path then counts.
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
