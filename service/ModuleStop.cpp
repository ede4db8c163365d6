// SPDX-License-Identifier: Apache-2.0
#include "service/ModuleStop.h"

#include "modules/ModuleTypes.h"

#include <dlfcn.h>

#include <initializer_list>

void stopModulesSoon() {
    // Looks the modules up by name and not through the views' handles, because a
    // rendering call in progress holds the registry's lock.
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
