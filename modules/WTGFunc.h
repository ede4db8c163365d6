// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/WordToGoModule.h"

// Every function of the word-processing module, in the order of the table.
// clang-format off
#define WTG_FUNCTIONS(X) \
    X(wtg_clear_selection) \
    X(wtg_close_file) \
    X(wtg_close_secondary_document) \
    X(wtg_copy_selection) \
    X(wtg_find) \
    X(wtg_get_bottom_right_character) \
    X(wtg_get_character_count) \
    X(wtg_get_click_info) \
    X(wtg_get_click_regions) \
    X(wtg_get_document_author) \
    X(wtg_get_document_creation_date) \
    X(wtg_get_document_description) \
    X(wtg_get_document_last_saved_date) \
    X(wtg_get_document_name) \
    X(wtg_get_found_regions) \
    X(wtg_get_top_left_character) \
    X(wtg_get_version) \
    X(wtg_get_vertical_last_used_pixel) \
    X(wtg_jump_to_character) \
    X(wtg_open_file) \
    X(wtg_open_secondary_document) \
    X(wtg_page_layout_size) \
    X(wtg_release_memory) \
    X(wtg_scroll_down) \
    X(wtg_scroll_to_character_range) \
    X(wtg_scroll_up) \
    X(wtg_select_all) \
    X(wtg_select_area) \
    X(wtg_select_line) \
    X(wtg_select_word) \
    X(wtg_set_dpi) \
    X(wtg_set_highlight_color) \
    X(wtg_set_offscreen_buffer) \
    X(wtg_smart_zoom) \
    X(wtg_stop_find) \
    X(wtg_word_count)
// clang-format on

// The functions of the loaded word-processing module. There is one table, in
// Singleton<WTGFunc>. Its members are null until SetFunctionPointers() has run, and
// dangling after the last view of this kind has closed the module. All access
// happens with the registry's mutex locked.
struct WTGFunc {
// NOLINTNEXTLINE(bugprone-macro-parentheses): a member's name takes none
#define LECTERN_MEMBER(name) decltype(&::name) name = nullptr;
    WTG_FUNCTIONS(LECTERN_MEMBER)
#undef LECTERN_MEMBER

    // Opens "WordToGoModule.so" by its bare name, sets every member and returns the
    // module's handle, which the caller closes with dlclose. If the module cannot be
    // loaded or lacks a function, writes the loader's message to standard error and
    // ends the process with exit status 1.
    void* SetFunctionPointers();
};
