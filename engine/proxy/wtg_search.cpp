// SPDX-License-Identifier: Apache-2.0
// Searching: this module does not, and says so.

#include "modules/ModuleResults.h"
#include "modules/WordToGoModule.h"

int32_t wtg_find(void* doc, const uint16_t* text, int32_t /*flags*/, uint32_t* from, uint32_t* to,
                 const wtg_find_result** results, int32_t* count) {
    if (doc == nullptr || text == nullptr || from == nullptr || to == nullptr || results == nullptr ||
        count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *results = nullptr;
    *count = 0;
    return MODULE_NOT_SUPPORTED;
}

int32_t wtg_get_found_regions(void* doc, int32_t view, int32_t* count, const wtg_find_region** regions) {
    if (doc == nullptr || view != 0 || count == nullptr || regions == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *regions = nullptr;
    return MODULE_NOT_SUPPORTED;
}

int32_t wtg_stop_find(void* doc) {
    return doc == nullptr ? MODULE_BAD_ARGUMENT : MODULE_NOT_SUPPORTED;
}

int32_t wtg_set_highlight_color(void* doc, const uint8_t rgb[3]) {
    return doc == nullptr || rgb == nullptr ? MODULE_BAD_ARGUMENT : MODULE_NOT_SUPPORTED;
}
