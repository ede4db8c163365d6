// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/SheetToGoModule.h"

// Every function of the spreadsheet module, in the order of the table. The order is
// alphabetical with two exceptions, which are part of the module interface.
// clang-format off
#define STG_FUNCTIONS(X) \
    X(stg_autofit_column) \
    X(stg_cell_bounds) \
    X(stg_clear_selection) \
    X(stg_close_file) \
    X(stg_copy_selection) \
    X(stg_find) \
    X(stg_get_column_count) \
    X(stg_get_comment_marks_rects) \
    X(stg_get_comment) \
    X(stg_get_document_author) \
    X(stg_get_document_creation_date) \
    X(stg_get_document_description) \
    X(stg_get_document_last_saved_date) \
    X(stg_get_document_name) \
    X(stg_get_found_regions) \
    X(stg_get_sheet_count) \
    X(stg_get_sheet_dimensions) \
    X(stg_get_sheet_title) \
    X(stg_get_version) \
    X(stg_hide_columns) \
    X(stg_hide_rows) \
    X(stg_open_file) \
    X(stg_release_memory) \
    X(stg_render_sheet) \
    X(stg_resize_column) \
    X(stg_resize_row) \
    X(stg_select_area) \
    X(stg_select_cell) \
    X(stg_select_column) \
    X(stg_select_row) \
    X(stg_set_column_offscreen_buffer) \
    X(stg_set_dpi) \
    X(stg_set_highlight_color) \
    X(stg_set_offscreen_buffer) \
    X(stg_set_row_offscreen_buffer) \
    X(stg_sort_ascending) \
    X(stg_sort_descending) \
    X(stg_stop_find) \
    X(stg_unhide_all_columns) \
    X(stg_unhide_all_rows) \
    X(stg_unhide_columns) \
    X(stg_unhide_rows) \
    X(stg_get_cell_reference_at_location)
// clang-format on

// The functions of the loaded spreadsheet module. There is one table, in
// Singleton<STGFunc>. Its members are null until SetFunctionPointers() has run, and
// dangling after the last view of this kind has closed the module. All access
// happens with the registry's mutex locked.
struct STGFunc {
// NOLINTNEXTLINE(bugprone-macro-parentheses): a member's name takes none
#define LECTERN_MEMBER(name) decltype(&::name) name = nullptr;
    STG_FUNCTIONS(LECTERN_MEMBER)
#undef LECTERN_MEMBER

    // Opens "SheetToGoModule.so" by its bare name, sets every member and returns the
    // module's handle, which the caller closes with dlclose. If the module cannot be
    // loaded or lacks a function, writes the loader's message to standard error and
    // ends the process with exit status 1.
    void* SetFunctionPointers();
};
