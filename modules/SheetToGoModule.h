/* SPDX-License-Identifier: Apache-2.0 */
/*
 * The spreadsheet module, "SheetToGoModule.so": 43 functions.
 *
 * x, y, widths and heights are document pixels of a sheet at the current dpi,
 * counted from the top left corner of its first cell.
 */
#ifndef LECTERN_MODULES_SHEETTOGOMODULE_H
#define LECTERN_MODULES_SHEETTOGOMODULE_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A found hit or a comment mark, in document pixels. 20 bytes. */
typedef struct {
    int32_t unused, x, y, width, height;
} stg_region;

LECTERN_RECORD_SIZE(stg_region, 20, 20);

/* Opens a regular file. An empty password means none. */
LECTERN_MODULE_EXPORT int32_t stg_open_file(const uint16_t* path, const uint16_t* password,
                                            const uint16_t* font_dir, const uint16_t* temp_dir, void** doc);
LECTERN_MODULE_EXPORT int32_t stg_close_file(void** doc);
LECTERN_MODULE_EXPORT int32_t stg_release_memory(void* doc);

/* Sheets, but for those that the document hides. A sheet reaches over its cells,
 * merged areas, drawings and charts, and is never less than 21 columns by 51
 * rows; it runs from left to right, whatever its language. Hidden columns and
 * rows have no pixels. Capacities of texts are UTF-16 units. */
LECTERN_MODULE_EXPORT int32_t stg_get_sheet_count(void* doc, int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_get_column_count(void* doc, int32_t sheet, int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_get_sheet_dimensions(void* doc, int32_t sheet, int32_t* width,
                                                       int32_t* height);
LECTERN_MODULE_EXPORT int32_t stg_get_sheet_title(void* doc, int32_t sheet, uint16_t* text, int32_t capacity,
                                                  int32_t* length);

/* Buffers: width * height pixels 0xAARRGGBB, the caller's own; the cell area,
 * the row headers at its left and the column headers above it. Rendering fills
 * all three, with the document pixel (x, y) at the cell area's top left; what
 * lies outside of the sheet is white in one, without labels in the others. */
LECTERN_MODULE_EXPORT int32_t stg_set_dpi(void* doc, int32_t dpi);
LECTERN_MODULE_EXPORT int32_t stg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                       int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_set_row_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                           int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_set_column_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                              int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_render_sheet(void* doc, int32_t sheet, int32_t x, int32_t y);

/* The cell at a document pixel; a point outside the sheet gives the nearest
 * cell, and (-1, -1) the header corner: the row headers' width and the column
 * headers' height. References are 0-based. It is the column and the row that
 * cross there, also inside a merged area, so that a point in the first row
 * tells its column under a title that spans many. */
LECTERN_MODULE_EXPORT int32_t stg_cell_bounds(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t* left,
                                              int32_t* top, int32_t* width, int32_t* height);
LECTERN_MODULE_EXPORT int32_t stg_get_cell_reference_at_location(void* doc, int32_t sheet, int32_t x,
                                                                 int32_t y, int32_t* column, int32_t* row);

/* Comments. Where there is none the result is non-zero, text[0] and *length 0.
 * Of a merged area the whole is marked, and tells its comment anywhere. */
LECTERN_MODULE_EXPORT int32_t stg_get_comment_marks_rects(void* doc, int32_t sheet, const stg_region** marks,
                                                          int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_get_comment(void* doc, int32_t sheet, int32_t x, int32_t y, uint16_t* text,
                                              int32_t capacity, int32_t first, int32_t* length);

/* Hits on one sheet, first_sheet, which last_sheet must be too: the cells that
 * show the text, in whatever case; hidden ones have no region. The whole sheet
 * is searched whatever first_y and last_y say: a caller's idea of the sheet's
 * height may be older than its last change. Regions by y, then x. */
LECTERN_MODULE_EXPORT int32_t stg_set_highlight_color(void* doc, const uint8_t rgb[3]);
LECTERN_MODULE_EXPORT int32_t stg_find(void* doc, const uint16_t* text, int32_t first_sheet, int32_t first_y,
                                       int32_t last_sheet, int32_t last_y);
LECTERN_MODULE_EXPORT int32_t stg_get_found_regions(void* doc, int32_t* count, const stg_region** regions);
LECTERN_MODULE_EXPORT int32_t stg_stop_find(void* doc);

/* Selection, of the last call only. x and y are any document pixel inside the
 * first and last track; counts are of visible ones. The copied text has tabs
 * between columns and a line feed between rows, without the empty ones at the
 * end; hidden cells of the selection are in it. */
LECTERN_MODULE_EXPORT int32_t stg_clear_selection(void* doc);
LECTERN_MODULE_EXPORT int32_t stg_select_area(void* doc, int32_t sheet, int32_t left, int32_t top,
                                              int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_select_column(void* doc, int32_t sheet, int32_t first_x, int32_t last_x,
                                                int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_select_row(void* doc, int32_t sheet, int32_t first_y, int32_t last_y,
                                             int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first,
                                                 int32_t* length);

/* Changes to the open document only; files are never written.
 *
 * Sorting moves all rows that hold anything. The first of them stays in place
 * when it is a header: everything in it is text, and below at least one of its
 * texts something is not. A document that does not allow the sort, for its sheet
 * is protected or has merged cells, is left as it was, with a non-zero result.
 *
 * What is unhidden reaches over the hidden tracks that touch it, so that unhiding
 * at the same place brings back what hiding took. No track is resized to less
 * than a pixel or beyond what the document can hold: a non-zero result. */
LECTERN_MODULE_EXPORT int32_t stg_sort_ascending(void* doc, int32_t sheet, int32_t column);
LECTERN_MODULE_EXPORT int32_t stg_sort_descending(void* doc, int32_t sheet, int32_t column);
LECTERN_MODULE_EXPORT int32_t stg_hide_columns(void* doc, int32_t sheet, int32_t first_x, int32_t last_x);
LECTERN_MODULE_EXPORT int32_t stg_hide_rows(void* doc, int32_t sheet, int32_t first_y, int32_t last_y);
LECTERN_MODULE_EXPORT int32_t stg_unhide_columns(void* doc, int32_t sheet, int32_t first_x, int32_t last_x);
LECTERN_MODULE_EXPORT int32_t stg_unhide_rows(void* doc, int32_t sheet, int32_t first_y, int32_t last_y);
LECTERN_MODULE_EXPORT int32_t stg_unhide_all_columns(void* doc, int32_t sheet);
LECTERN_MODULE_EXPORT int32_t stg_unhide_all_rows(void* doc, int32_t sheet);
LECTERN_MODULE_EXPORT int32_t stg_resize_column(void* doc, int32_t sheet, int32_t x, int32_t change);
LECTERN_MODULE_EXPORT int32_t stg_resize_row(void* doc, int32_t sheet, int32_t y, int32_t change);

LECTERN_MODULE_EXPORT int32_t stg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                    int32_t* length);
LECTERN_MODULE_EXPORT int32_t stg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                      int32_t* length);
LECTERN_MODULE_EXPORT int32_t stg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                           int32_t* length);
LECTERN_MODULE_EXPORT int32_t stg_get_document_creation_date(void* doc, time_t* time);
LECTERN_MODULE_EXPORT int32_t stg_get_document_last_saved_date(void* doc, time_t* time);

/* Functions that no view calls. */
LECTERN_MODULE_EXPORT int32_t stg_autofit_column(void* doc, int32_t sheet, int32_t x);
LECTERN_MODULE_EXPORT int32_t stg_get_version(uint16_t* text, int32_t capacity, int32_t* length);
LECTERN_MODULE_EXPORT int32_t stg_select_cell(void* doc, int32_t sheet, int32_t x, int32_t y);

#ifdef __cplusplus
}
#endif
#endif
