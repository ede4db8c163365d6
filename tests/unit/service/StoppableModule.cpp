// SPDX-License-Identifier: Apache-2.0
// A module that has only the function that is called before the service ends.
#include "modules/ModuleTypes.h"

#include <atomic>

extern "C" {

LECTERN_MODULE_EXPORT int stop_count();

static std::atomic<int> stops{0};

void lectern_module_stop_soon() {
    ++stops;
}

int stop_count() {
    return stops;
}
}
