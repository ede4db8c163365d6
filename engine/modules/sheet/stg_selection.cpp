// SPDX-License-Identifier: Apache-2.0
// Selecting cells, and copying the selection.

#include "engine/modules/sheet/SheetHandle.h"

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

std::int32_t selectTracks(void* doc, std::int32_t sheet, Axis axis, std::int32_t first, std::int32_t last,
                          std::int32_t* count) {
    if (count == nullptr) {
        return MODULE_BAD_ARGUMENT;
    }
    gint visible = 0;
    const std::int32_t result =
        selectBy(doc, &lectern_ipc_sheet_call_select_tracks_sync,
                 std::tuple(gint{sheet}, static_cast<gint>(axis), gint{first}, gint{last}), &visible);
    if (result == MODULE_OK) {
        *count = visible;
    }
    return result;
}

} // namespace

int32_t stg_clear_selection(void* doc) {
    return onWorkbook(doc, [](SheetHandle& handle) {
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_sheet_call_clear_selection_sync, std::tuple<>());
        if (result == MODULE_OK) {
            handle.state.selection.reset();
        }
        return result;
    });
}

int32_t stg_select_area(void* doc, int32_t sheet, int32_t left, int32_t top, int32_t width, int32_t height) {
    return selectBy(doc, &lectern_ipc_sheet_call_select_area_sync,
                    std::tuple(gint{sheet}, gint{left}, gint{top}, gint{width}, gint{height}));
}

int32_t stg_select_column(void* doc, int32_t sheet, int32_t first_x, int32_t last_x, int32_t* count) {
    return selectTracks(doc, sheet, Axis::Columns, first_x, last_x, count);
}

int32_t stg_select_row(void* doc, int32_t sheet, int32_t first_y, int32_t last_y, int32_t* count) {
    return selectTracks(doc, sheet, Axis::Rows, first_y, last_y, count);
}

int32_t stg_select_cell(void* doc, int32_t sheet, int32_t x, int32_t y) {
    return selectBy(doc, &lectern_ipc_sheet_call_select_cell_sync, std::tuple(gint{sheet}, gint{x}, gint{y}));
}

int32_t stg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first, int32_t* length) {
    if (!isTextBuffer(text, capacity, length) || first < 0) {
        return MODULE_BAD_ARGUMENT;
    }
    return onWorkbook(doc, [&](SheetHandle& handle) {
        GLibHolder<GVariant> selected;
        const std::int32_t result =
            callEngine(handle, &lectern_ipc_sheet_call_copy_selection_sync, std::tuple<>(), out(selected));
        if (result == MODULE_OK) {
            deliverTextFrom(elementsOf<std::uint16_t>(selected.get()), first, text, capacity, length);
        }
        return result;
    });
}
