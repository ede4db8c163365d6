// SPDX-License-Identifier: Apache-2.0
// Changes of the sheet in memory: sorting, hidden tracks, sizes.

#include "engine/modules/sheet/SheetHandle.h"

using namespace lectern::engine;
using lectern::GLibHolder;

namespace {

constexpr gint COLUMNS = static_cast<gint>(Axis::Columns);
constexpr gint ROWS = static_cast<gint>(Axis::Rows);

// Makes a call after which the sheet has to be measured again, and keeps what is changed
// then.
template<class Method, class... Inputs>
std::int32_t change(SheetHandle& handle, Method method, gint sheet, Inputs... inputs) {
    GLibHolder<GVariant> changes;
    handle.measures.reset();
    const std::int32_t result = inTurn(
        [&] { return callEngine(handle, method, std::tuple<gint, Inputs...>(sheet, inputs...)); },
        [&] {
            return callEngine(handle, &lectern_ipc_sheet_call_changes_sync, std::tuple(sheet), out(changes));
        });
    if (result == MODULE_OK) {
        handle.state.changes[sheet] = numbersOf(changes.get());
    }
    return result;
}

template<class Method, class... Inputs>
std::int32_t changeSheet(void* doc, Method method, Inputs... inputs) {
    return onWorkbook(doc, [&](SheetHandle& handle) { return change(handle, method, inputs...); });
}

// A sort moves the cells of the sheet's hits, so the engine forgets them.
std::int32_t sort(void* doc, gint sheet, gint column, gboolean ascending) {
    return onWorkbook(doc, [&](SheetHandle& handle) {
        const std::int32_t result =
            change(handle, &lectern_ipc_sheet_call_sort_sync, sheet, column, ascending);
        if (result == MODULE_OK && handle.state.search && handle.state.search->sheet == sheet) {
            handle.state.search.reset();
        }
        return result;
    });
}

} // namespace

int32_t stg_sort_ascending(void* doc, int32_t sheet, int32_t column) {
    return sort(doc, sheet, column, TRUE);
}

int32_t stg_sort_descending(void* doc, int32_t sheet, int32_t column) {
    return sort(doc, sheet, column, FALSE);
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
