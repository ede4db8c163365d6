// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "modules/SlideshowToGoModule.h"

// Every function of the presentation module, in the order of the table.
// clang-format off
#define SSTG_FUNCTIONS(X) \
    X(sstg_close_file) \
    X(sstg_find) \
    X(sstg_free_slide_outline) \
    X(sstg_get_document_author) \
    X(sstg_get_document_creation_date) \
    X(sstg_get_document_description) \
    X(sstg_get_document_last_saved_date) \
    X(sstg_get_document_name) \
    X(sstg_get_found_note_offsets) \
    X(sstg_get_found_regions) \
    X(sstg_get_slide_count) \
    X(sstg_get_slide_dimensions) \
    X(sstg_get_slide_note) \
    X(sstg_get_slide_outline) \
    X(sstg_get_slide_title) \
    X(sstg_get_version) \
    X(sstg_open_file) \
    X(sstg_release_memory) \
    X(sstg_render_slide) \
    X(sstg_set_highlight_color) \
    X(sstg_slide_has_note) \
    X(sstg_stop_find)
// clang-format on

// The functions of the loaded presentation module. There is one table, in
// Singleton<SSTGFunc>. Its members are null until SetFunctionPointers() has run, and
// dangling after the last view of this kind has closed the module. All access
// happens with the registry's mutex locked.
struct SSTGFunc {
// NOLINTNEXTLINE(bugprone-macro-parentheses): a member's name takes none
#define LECTERN_MEMBER(name) decltype(&::name) name = nullptr;
    SSTG_FUNCTIONS(LECTERN_MEMBER)
#undef LECTERN_MEMBER

    // Opens "SlideshowToGoModule.so" by its bare name, sets every member and returns
    // the module's handle, which the caller closes with dlclose. If the module cannot
    // be loaded or lacks a function, writes the loader's message to standard error
    // and ends the process with exit status 1.
    void* SetFunctionPointers();
};
