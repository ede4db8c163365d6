/* SPDX-License-Identifier: Apache-2.0 */
/*
 * The word-processing module, "WordToGoModule.so": 36 functions.
 *
 * The module lays a document out as one continuous text, as wide as the
 * offscreen buffer at the current dpi, and keeps that buffer showing one
 * stretch of it, current after every call that changes the stretch. Character
 * positions count from 0 at the start of the body text.
 */
#ifndef LECTERN_MODULES_WORDTOGOMODULE_H
#define LECTERN_MODULES_WORDTOGOMODULE_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A hit of wtg_find: characters [start, end). 12 bytes. */
typedef struct {
    uint32_t unused, start, end;
} wtg_find_result;

/* A hit inside the stretch, in buffer pixels, one rectangle for each line it spans. */
typedef struct {
    uint32_t position; /* its first character */
    const module_rect* rectangles;
    uint32_t rectangle_count;
} wtg_find_region;

/* What lies under a point. 6: hyperlink, a is a const uint16_t*; 7: internal
 * link, a bookmark or an entry of a table of contents, a is the story and b the
 * position for wtg_jump_to_character; 2 footnote, 3 endnote, 4 comment, 5 other
 * secondary text (our own module has none): a, b, c are for
 * wtg_open_secondary_document; any other value: nothing of interest. */
typedef struct {
    int32_t type;
    intptr_t a, b, c;
} wtg_click_info;

LECTERN_RECORD_SIZE(wtg_find_result, 12, 12);
LECTERN_RECORD_SIZE(wtg_find_region, 24, 12);
LECTERN_RECORD_SIZE(wtg_click_info, 32, 16);

/* Opens a regular file. An empty password means none. `temp_dir` is where the
 * module may make temporary files. On success *doc is the new document. */
LECTERN_MODULE_EXPORT int32_t wtg_open_file(const uint16_t* path, const uint16_t* password,
                                            const uint16_t* font_dir, const uint16_t* temp_dir, void** doc);
LECTERN_MODULE_EXPORT int32_t wtg_close_file(void** doc);

/* Characters of the whole body; scratch gets 0. */
LECTERN_MODULE_EXPORT int32_t wtg_get_character_count(void* doc, int32_t view, uint32_t* scratch,
                                                      uint32_t* count);

/* The buffer that shows the stretch: width * height pixels 0xAARRGGBB, owned by
 * the caller until another is set or the document is closed. Another size and
 * another dpi only mark the layout stale; the next call that needs it lays out
 * once and keeps the character at the stretch's top at the top. */
LECTERN_MODULE_EXPORT int32_t wtg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                       int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t wtg_set_dpi(void* doc, int32_t dpi);

/* First character of the stretch, inclusive: 0 only when the stretch starts at
 * the text's first row, else the first character of the first line that begins
 * at or below the stretch's top. */
LECTERN_MODULE_EXPORT int32_t wtg_get_top_left_character(void* doc, int32_t view, uint32_t* position);
/* End of the stretch, exclusive: the character count only when the text's last
 * row is shown. */
LECTERN_MODULE_EXPORT int32_t wtg_get_bottom_right_character(void* doc, int32_t view, uint32_t* position);
/* Rows of the buffer that hold text; its height while text goes on below. */
LECTERN_MODULE_EXPORT int32_t wtg_get_vertical_last_used_pixel(void* doc, int32_t view, int32_t* rows);

/* Moves the stretch down by exactly `rows` while any text lies below it, also
 * past the end (the rest is white); else non-zero and 0. */
LECTERN_MODULE_EXPORT int32_t wtg_scroll_down(void* doc, int32_t view, int32_t rows, int32_t* scrolled);
/* Moves the stretch up by `rows` or by what there is above, and reports it. */
LECTERN_MODULE_EXPORT int32_t wtg_scroll_up(void* doc, int32_t view, int32_t rows, int32_t* scrolled);
/* Starts the stretch at the line of a character; story 0 is the body text. */
LECTERN_MODULE_EXPORT int32_t wtg_jump_to_character(void* doc, int32_t story, uint32_t position);

/* Finds text without regard to case between *from and *to, results by position,
 * none overlapping another. Notes and comments are not searched. All hits inside
 * the stretch are marked in the highlight colour until the next find or
 * wtg_stop_find. Text that is empty or no UTF-16 finds nothing. */
LECTERN_MODULE_EXPORT int32_t wtg_find(void* doc, const uint16_t* text, int32_t flags, uint32_t* from,
                                       uint32_t* to, const wtg_find_result** results, int32_t* count);
/* The hits inside the stretch, by y, then x. */
LECTERN_MODULE_EXPORT int32_t wtg_get_found_regions(void* doc, int32_t view, int32_t* count,
                                                    const wtg_find_region** regions);
LECTERN_MODULE_EXPORT int32_t wtg_stop_find(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_set_highlight_color(void* doc, const uint8_t rgb[3]);

/* x and y are buffer pixels; a point outside of the text is on nothing. */
LECTERN_MODULE_EXPORT int32_t wtg_get_click_info(void* doc, int32_t x, int32_t y,
                                                 const wtg_click_info** info);
/* Paints a secondary document into the current buffer from row 50 on, `height`
 * rows, the rest white, laid out to the buffer's width at the current dpi. */
LECTERN_MODULE_EXPORT int32_t wtg_open_secondary_document(void* doc, intptr_t a, intptr_t b, intptr_t c,
                                                          int32_t height);
LECTERN_MODULE_EXPORT int32_t wtg_close_secondary_document(void* doc);

LECTERN_MODULE_EXPORT int32_t wtg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                    int32_t* length);
LECTERN_MODULE_EXPORT int32_t wtg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                      int32_t* length);
LECTERN_MODULE_EXPORT int32_t wtg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                           int32_t* length);
LECTERN_MODULE_EXPORT int32_t wtg_get_document_creation_date(void* doc, time_t* time);
LECTERN_MODULE_EXPORT int32_t wtg_get_document_last_saved_date(void* doc, time_t* time);
LECTERN_MODULE_EXPORT int32_t wtg_word_count(void* doc, int32_t* count);

/* Functions that no view calls. */

/* One stretch of text is selected at a time, and marked in the highlight colour.
 * Points and sides are buffer pixels. Where there is no text nothing changes and
 * the result is not 0. An area selects the text from its first corner to its
 * last. A copy has a line feed between two paragraphs, and is empty when nothing
 * is selected. */
LECTERN_MODULE_EXPORT int32_t wtg_select_all(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_select_area(void* doc, int32_t view, int32_t left, int32_t top,
                                              int32_t right, int32_t bottom);
LECTERN_MODULE_EXPORT int32_t wtg_select_line(void* doc, int32_t view, int32_t x, int32_t y);
LECTERN_MODULE_EXPORT int32_t wtg_select_word(void* doc, int32_t view, int32_t x, int32_t y);
LECTERN_MODULE_EXPORT int32_t wtg_clear_selection(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first,
                                                 int32_t* length);

/* Where inside the stretch wtg_get_click_info would find something, near misses aside. */
LECTERN_MODULE_EXPORT int32_t wtg_get_click_regions(void* doc, int32_t view, int32_t* count,
                                                    const module_rect** regions);
/* The paragraph at a point, in buffer pixels; it may reach beyond the buffer. */
LECTERN_MODULE_EXPORT int32_t wtg_smart_zoom(void* doc, int32_t view, int32_t x, int32_t y,
                                             module_rect* area);
/* Shows characters [start, end): starts the stretch at the first one's line,
 * unless the lines of both ends begin inside it already. */
LECTERN_MODULE_EXPORT int32_t wtg_scroll_to_character_range(void* doc, int32_t view, uint32_t start,
                                                            uint32_t end);
/* The layout's width, and the rows of the whole text. */
LECTERN_MODULE_EXPORT int32_t wtg_page_layout_size(void* doc, int32_t view, int32_t* width, int32_t* height);
LECTERN_MODULE_EXPORT int32_t wtg_release_memory(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_get_version(uint16_t* text, int32_t capacity, int32_t* length);

#ifdef __cplusplus
}
#endif
#endif
