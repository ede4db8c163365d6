// SPDX-License-Identifier: Apache-2.0
#include "service/ModuleStop.h"

#include "modules/ModuleTypes.h"

#include <dlfcn.h>

#include <initializer_list>

void stopModulesSoon() {
    // By name: the handles belong to views, and a call in progress has the registry.
    for (const char* name : {"WordToGoModule.so", "SheetToGoModule.so", "SlideshowToGoModule.so"}) {
        void* module = dlopen(name, RTLD_LAZY | RTLD_NOLOAD);
        if (module == nullptr) {
            continue;
        }
        if (void* address = dlsym(module, "lectern_module_stop_soon")) {
            reinterpret_cast<decltype(&lectern_module_stop_soon)>(address)();
        }
        dlclose(module);
    }
}
