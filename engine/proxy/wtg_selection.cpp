// SPDX-License-Identifier: Apache-2.0
// What lies under a point, secondary documents, selections: this module has
// none of them, and says so.

#include "engine/proxy/Utf16.h"
#include "modules/ModuleResults.h"
#include "modules/WordToGoModule.h"

namespace {

std::int32_t unsupportedWhen(bool argumentsFit) {
    return argumentsFit ? MODULE_NOT_SUPPORTED : MODULE_BAD_ARGUMENT;
}

} // namespace

int32_t wtg_get_click_info(void* doc, int32_t /*x*/, int32_t /*y*/, const wtg_click_info** info) {
    return unsupportedWhen(doc != nullptr && info != nullptr);
}

int32_t wtg_open_secondary_document(void* doc, intptr_t /*a*/, intptr_t /*b*/, intptr_t /*c*/,
                                    int32_t height) {
    return unsupportedWhen(doc != nullptr && height > 0);
}

int32_t wtg_close_secondary_document(void* doc) {
    return unsupportedWhen(doc != nullptr);
}

int32_t wtg_clear_selection(void* doc) {
    return unsupportedWhen(doc != nullptr);
}

int32_t wtg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first, int32_t* length) {
    return unsupportedWhen(doc != nullptr && first >= 0 &&
                           lectern::engine::isTextBuffer(text, capacity, length));
}

int32_t wtg_get_click_regions(void* doc, int32_t view, int32_t* count, const module_rect** regions) {
    if (doc == nullptr || view != 0 || count == nullptr || regions == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 0;
    *regions = nullptr;
    return MODULE_NOT_SUPPORTED;
}

int32_t wtg_scroll_to_character_range(void* doc, int32_t view, uint32_t start, uint32_t end) {
    return unsupportedWhen(doc != nullptr && view == 0 && start <= end);
}

int32_t wtg_select_all(void* doc) {
    return unsupportedWhen(doc != nullptr);
}

int32_t wtg_select_area(void* doc, int32_t view, int32_t /*left*/, int32_t /*top*/, int32_t /*right*/,
                        int32_t /*bottom*/) {
    return unsupportedWhen(doc != nullptr && view == 0);
}

int32_t wtg_select_line(void* doc, int32_t view, int32_t /*x*/, int32_t /*y*/) {
    return unsupportedWhen(doc != nullptr && view == 0);
}

int32_t wtg_select_word(void* doc, int32_t view, int32_t /*x*/, int32_t /*y*/) {
    return unsupportedWhen(doc != nullptr && view == 0);
}

int32_t wtg_smart_zoom(void* doc, int32_t view, int32_t /*x*/, int32_t /*y*/, module_rect* area) {
    return unsupportedWhen(doc != nullptr && view == 0 && area != nullptr);
}
