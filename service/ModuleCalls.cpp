// SPDX-License-Identifier: Apache-2.0
#include "service/ModuleCalls.h"

#include "modules/ModuleTypes.h"
#include "service/ModuleWaits.h"
#include "view/ModuleArguments.h"
#include "view/TextHelpers.h"

#include <dlfcn.h>

namespace {

// Calls a function of a module that need not be there. Modules are looked up by name
// and not through the views' handles, because a rendering call in progress holds the
// registry's lock.
template<typename Function, typename... Arguments>
void callEach(int flags, const char* name, Arguments... arguments) {
    for (const char* module : {"WordToGoModule.so", "SheetToGoModule.so", "SlideshowToGoModule.so"}) {
        void* handle = dlopen(module, flags);
        if (handle == nullptr) {
            continue;
        }
        if (void* address = dlsym(handle, name)) {
            reinterpret_cast<Function>(address)(arguments...);
        }
        dlclose(handle);
    }
}

} // namespace

void prepareModules() {
    // Like the path of an open, so that the module can use the same settings.
    const Utf16Text temporary(TEMPORARY_DIRECTORY);
    callEach<decltype(&lectern_module_prepare)>(RTLD_LAZY, "lectern_module_prepare", temporary.get());
    callEach<decltype(&lectern_module_set_wait_calls)>(RTLD_LAZY, "lectern_module_set_wait_calls",
                                                       beginModuleWait, endModuleWait);
}

void stopModulesSoon() {
    callEach<decltype(&lectern_module_stop_soon)>(RTLD_LAZY | RTLD_NOLOAD, "lectern_module_stop_soon");
}
