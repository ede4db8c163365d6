/* SPDX-License-Identifier: Apache-2.0 */
/*
 * The spreadsheet module, "SheetToGoModule.so": 43 functions.
 *
 * x, y, widths and heights are document pixels of a sheet at the current dpi,
 * counted from the top left corner of its first cell. "Track" means a column or a
 * row. Sheets and columns count from 0.
 *
 * ModuleTypes.h has the rules for results, documents, texts, arrays and threads.
 */
#ifndef LECTERN_MODULES_SHEETTOGOMODULE_H
#define LECTERN_MODULES_SHEETTOGOMODULE_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The rectangle of a hit or of a comment mark, in document pixels. */
typedef struct {
    int32_t unused, x, y, width, height;
} stg_region;

LECTERN_RECORD_SIZE(stg_region, 20, 20);

/* Opens a regular file. An empty password means none. The module may create
 * temporary files in `temp_dir`. On success *doc is the new document. */
LECTERN_MODULE_EXPORT int32_t stg_open_file(const uint16_t* path, const uint16_t* password,
                                            const uint16_t* font_dir, const uint16_t* temp_dir, void** doc);
LECTERN_MODULE_EXPORT int32_t stg_close_file(void** doc);
LECTERN_MODULE_EXPORT int32_t stg_release_memory(void* doc);

/* The sheets, without those that the document hides. A sheet covers its cells, merged
 * areas, drawings and charts, and at least 21 columns by 51 rows. Column 0 is at its
 * left in every language. Hidden columns and rows have no pixels. Capacities of texts
 * are UTF-16 units. */
LECTERN_MODULE_EXPORT int32_t stg_get_sheet_count(void* doc, int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_get_column_count(void* doc, int32_t sheet, int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_get_sheet_dimensions(void* doc, int32_t sheet, int32_t* width,
                                                       int32_t* height);
LECTERN_MODULE_EXPORT int32_t stg_get_sheet_title(void* doc, int32_t sheet, uint16_t* text, int32_t capacity,
                                                  int32_t* length);

/* The three buffers: the cells, the row headers at their left and the column headers
 * above them. Each has width * height pixels 0xAARRGGBB, row by row, and belongs to the
 * caller, who keeps it until another one is set or the document is closed.
 *
 * stg_render_sheet fills all three, with the document pixel (x, y) at the top left of
 * the cells. Outside of the sheet the cells are white and the headers have no
 * labels. */
LECTERN_MODULE_EXPORT int32_t stg_set_dpi(void* doc, int32_t dpi);
LECTERN_MODULE_EXPORT int32_t stg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                       int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_set_row_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                           int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_set_column_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                              int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_render_sheet(void* doc, int32_t sheet, int32_t x, int32_t y);

/* The cell at a document pixel, or the nearest cell for a point outside the sheet. The
 * point (-1, -1) returns the header corner: the row headers' width and the column
 * headers' height. References count from 0. Inside a merged area the result is still
 * the single column and row at the point, so that a point in the first row has its
 * column even under a title that spans many columns. */
LECTERN_MODULE_EXPORT int32_t stg_cell_bounds(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t* left,
                                              int32_t* top, int32_t* width, int32_t* height);
LECTERN_MODULE_EXPORT int32_t stg_get_cell_reference_at_location(void* doc, int32_t sheet, int32_t x,
                                                                 int32_t y, int32_t* column, int32_t* row);

/* Comments. stg_get_comment fails for a cell without one and sets text[0] and *length
 * to 0. A merged area has one mark, and its comment is found at each of its points. */
LECTERN_MODULE_EXPORT int32_t stg_get_comment_marks_rects(void* doc, int32_t sheet, const stg_region** marks,
                                                          int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_get_comment(void* doc, int32_t sheet, int32_t x, int32_t y, uint16_t* text,
                                              int32_t capacity, int32_t first, int32_t* length);

/* Search in one sheet. last_sheet must equal first_sheet. A hit is a cell that shows
 * the text, without regard to case. Hidden cells have no region. The module ignores
 * first_y and last_y and searches the whole sheet, because the caller may not know the
 * sheet's present height. Regions are sorted by y, then x. */
LECTERN_MODULE_EXPORT int32_t stg_set_highlight_color(void* doc, const uint8_t rgb[3]);
LECTERN_MODULE_EXPORT int32_t stg_find(void* doc, const uint16_t* text, int32_t first_sheet, int32_t first_y,
                                       int32_t last_sheet, int32_t last_y);
LECTERN_MODULE_EXPORT int32_t stg_get_found_regions(void* doc, int32_t* count, const stg_region** regions);
LECTERN_MODULE_EXPORT int32_t stg_stop_find(void* doc);

/* Selection. Each call replaces the one before. x and y are any document pixel inside
 * the first and the last track. *count is the number of visible tracks. The copied text
 * has a tab between columns and a line feed between rows. It leaves out columns and rows
 * behind the last text, and rows that a filter hides. It includes other hidden cells,
 * and empty ones before the first text. */
LECTERN_MODULE_EXPORT int32_t stg_clear_selection(void* doc);
LECTERN_MODULE_EXPORT int32_t stg_select_area(void* doc, int32_t sheet, int32_t left, int32_t top,
                                              int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t stg_select_column(void* doc, int32_t sheet, int32_t first_x, int32_t last_x,
                                                int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_select_row(void* doc, int32_t sheet, int32_t first_y, int32_t last_y,
                                             int32_t* count);
LECTERN_MODULE_EXPORT int32_t stg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first,
                                                 int32_t* length);

/* Changes to the open document. Modules never write to its file.
 *
 * Sorting moves the rows below the header, as far as the sheet has contents or, in a
 * list with filter buttons, to the end of the list. The header is that of the list, or
 * the row with the most texts above the first row that has something else than a text
 * below a text; the first sort of a sheet decides it. Sorting fails and changes nothing
 * if the sheet is protected or if merged cells are among the rows to be moved.
 *
 * Unhiding shows those tracks that were hidden last among the given ones and the hidden
 * ones that touch them, or all of these if none was hidden through the module. So it
 * undoes hiding at the same place. Resizing changes a track by `change` pixels. It fails if
 * the result would be less than one pixel or more than the document format allows. */
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
