// SPDX-License-Identifier: Apache-2.0
// Comments and searching.

#include "engine/modules/sheet/SheetHandle.h"

using namespace lectern::engine;
using lectern::GLibHolder;

int32_t stg_get_comment_marks_rects(void* doc, int32_t sheet, const stg_region** marks, int32_t* count) {
    if (marks == nullptr || count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    *marks = nullptr;
    *count = 0;
    return onMeasures(doc, sheet, [&](SheetHandle& handle, const SheetMeasures& measures) {
        handle.commentMarks = measures.comments;
        *marks = handle.commentMarks.empty() ? nullptr : handle.commentMarks.data();
        *count = static_cast<int32_t>(handle.commentMarks.size());
        return MODULE_OK;
    });
}

int32_t stg_get_comment(void* doc, int32_t sheet, int32_t x, int32_t y, uint16_t* text, int32_t capacity,
                        int32_t first, int32_t* length) {
    if (doc == nullptr || !isTextBuffer(text, capacity, length) || first < 0) {
        return MODULE_BAD_ARGUMENT;
    }
    deliverText({}, text, capacity, length);
    return onWorkbook(doc, [&](SheetHandle& handle) {
        GLibHolder<GVariant> comment;
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_comment_sync,
                                               std::tuple(gint{sheet}, gint{x}, gint{y}), out(comment));
        if (result == MODULE_OK) {
            deliverTextFrom(elementsOf<std::uint16_t>(comment.get()), first, text, capacity, length);
        }
        return result;
    });
}

int32_t stg_set_highlight_color(void* doc, const uint8_t rgb[3]) {
    if (rgb == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) {
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_set_highlight_color_sync,
                                               std::tuple(guchar{rgb[0]}, guchar{rgb[1]}, guchar{rgb[2]}));
        if (result == MODULE_OK) {
            handle.state.colour = {rgb[0], rgb[1], rgb[2]};
        }
        return result;
    });
}

int32_t stg_find(void* doc, const uint16_t* text, int32_t first_sheet, int32_t /*first_y*/,
                 int32_t last_sheet, int32_t /*last_y*/) {
    if (text == nullptr || first_sheet != last_sheet) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) {
        const GLibHolder<GVariant> wanted = unitsOf(text);
        const std::int32_t result = callEngine(handle, &lectern_ipc_sheet_call_find_sync,
                                               std::tuple(gint{first_sheet}, wanted.get()));
        if (result == MODULE_OK) {
            handle.state.search = {{text, text + unitCount(text) + 1},
                                   first_sheet,
                                   handle.state.colour,
                                   handle.state.findOptions};
        }
        return result;
    });
}

int32_t stg_get_found_regions(void* doc, int32_t* count, const stg_region** regions) {
    return getRegions(doc, regions, count, &SheetHandle::foundRegions,
                      &lectern_ipc_sheet_call_found_regions_sync);
}

int32_t stg_stop_find(void* doc) {
    return onWorkbook(doc, [](SheetHandle& handle) {
        handle.foundRegions.clear();
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_sheet_call_stop_find_sync, std::tuple<>());
        if (result == MODULE_OK) {
            handle.state.search.reset();
        }
        return result;
    });
}
