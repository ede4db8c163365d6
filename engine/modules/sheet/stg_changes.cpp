// SPDX-License-Identifier: Apache-2.0
// Changes of the sheet in memory: sorting, hidden tracks, sizes.

#include "engine/modules/sheet/SheetHandle.h"

using namespace lectern::engine;

namespace {

constexpr gint COLUMNS = static_cast<gint>(Axis::Columns);
constexpr gint ROWS = static_cast<gint>(Axis::Rows);

// Makes a call after which the sheet has to be measured again.
template<class Method, class... Inputs>
int32_t changeSheet(void* doc, Method method, Inputs... inputs) {
    return onWorkbook(doc, [&](SheetHandle& handle) {
        handle.measures.reset();
        return callEngine(handle, method, std::tuple<Inputs...>(inputs...));
    });
}

} // namespace

int32_t stg_sort_ascending(void* doc, int32_t sheet, int32_t column) {
    return changeSheet(doc, &lectern_ipc_sheet_call_sort_sync, gint{sheet}, gint{column}, gboolean{TRUE});
}

int32_t stg_sort_descending(void* doc, int32_t sheet, int32_t column) {
    return changeSheet(doc, &lectern_ipc_sheet_call_sort_sync, gint{sheet}, gint{column}, gboolean{FALSE});
}

int32_t stg_hide_columns(void* doc, int32_t sheet, int32_t first_x, int32_t last_x) {
    return changeSheet(doc, &lectern_ipc_sheet_call_hide_sync, gint{sheet}, COLUMNS, gint{first_x},
                       gint{last_x});
}

int32_t stg_hide_rows(void* doc, int32_t sheet, int32_t first_y, int32_t last_y) {
    return changeSheet(doc, &lectern_ipc_sheet_call_hide_sync, gint{sheet}, ROWS, gint{first_y},
                       gint{last_y});
}

int32_t stg_unhide_columns(void* doc, int32_t sheet, int32_t first_x, int32_t last_x) {
    return changeSheet(doc, &lectern_ipc_sheet_call_unhide_sync, gint{sheet}, COLUMNS, gint{first_x},
                       gint{last_x});
}

int32_t stg_unhide_rows(void* doc, int32_t sheet, int32_t first_y, int32_t last_y) {
    return changeSheet(doc, &lectern_ipc_sheet_call_unhide_sync, gint{sheet}, ROWS, gint{first_y},
                       gint{last_y});
}

int32_t stg_unhide_all_columns(void* doc, int32_t sheet) {
    return changeSheet(doc, &lectern_ipc_sheet_call_unhide_all_sync, gint{sheet}, COLUMNS);
}

int32_t stg_unhide_all_rows(void* doc, int32_t sheet) {
    return changeSheet(doc, &lectern_ipc_sheet_call_unhide_all_sync, gint{sheet}, ROWS);
}

int32_t stg_resize_column(void* doc, int32_t sheet, int32_t x, int32_t change) {
    return changeSheet(doc, &lectern_ipc_sheet_call_resize_sync, gint{sheet}, COLUMNS, gint{x}, gint{change});
}

int32_t stg_resize_row(void* doc, int32_t sheet, int32_t y, int32_t change) {
    return changeSheet(doc, &lectern_ipc_sheet_call_resize_sync, gint{sheet}, ROWS, gint{y}, gint{change});
}

int32_t stg_autofit_column(void* doc, int32_t sheet, int32_t x) {
    return changeSheet(doc, &lectern_ipc_sheet_call_autofit_column_sync, gint{sheet}, gint{x});
}
