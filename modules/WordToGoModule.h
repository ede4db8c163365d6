/* SPDX-License-Identifier: Apache-2.0 */
/*
 * The word-processing module, "WordToGoModule.so": 36 functions.
 *
 * The module lays a document out as one continuous text without pages, as wide as
 * the offscreen buffer at the current dpi. The buffer shows a part of this text,
 * the stretch. After each call that changes the stretch, the buffer is current.
 * Character positions count from 0 at the start of the body text.
 *
 * ModuleTypes.h has the rules for results, documents, texts, arrays and threads.
 */
#ifndef LECTERN_MODULES_WORDTOGOMODULE_H
#define LECTERN_MODULES_WORDTOGOMODULE_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A hit of wtg_find: the characters from start to before end. */
typedef struct {
    uint32_t unused, start, end;
} wtg_find_result;

/* A hit inside the stretch: one rectangle, in buffer pixels, for each line that it
 * spans. The module owns the rectangles. */
typedef struct {
    uint32_t position; /* character position of its start */
    const module_rect* rectangles;
    uint32_t rectangle_count;
} wtg_find_region;

/* The thing under a point, by its type:
 *   2 a footnote, 3 an endnote, 4 a comment, 5 another secondary text (Lectern's own
 *     module has none): pass a, b and c to wtg_open_secondary_document;
 *   6 a hyperlink: a is its target, a const uint16_t* that the module owns;
 *   7 an internal link, that is a bookmark or an entry of a table of contents: a is
 *     the story and b the position for wtg_jump_to_character;
 *   any other type: none of these. */
typedef struct {
    int32_t type;
    intptr_t a, b, c;
} wtg_click_info;

LECTERN_RECORD_SIZE(wtg_find_result, 12, 12);
LECTERN_RECORD_SIZE(wtg_find_region, 24, 12);
LECTERN_RECORD_SIZE(wtg_click_info, 32, 16);

/* Opens a regular file. An empty password means none. The module may create
 * temporary files in `temp_dir`. On success *doc is the new document, which
 * wtg_close_file releases. */
LECTERN_MODULE_EXPORT int32_t wtg_open_file(const uint16_t* path, const uint16_t* password,
                                            const uint16_t* font_dir, const uint16_t* temp_dir, void** doc);
LECTERN_MODULE_EXPORT int32_t wtg_close_file(void** doc);

/* Stores the number of characters of the whole body in *count, and 0 in *scratch. */
LECTERN_MODULE_EXPORT int32_t wtg_get_character_count(void* doc, int32_t view, uint32_t* scratch,
                                                      uint32_t* count);

/* Sets the buffer that shows the stretch: width * height pixels 0xAARRGGBB, row by
 * row. The caller owns it and keeps it until it sets another one or closes the
 * document. A new size or dpi only marks the layout as stale. The next call that
 * needs the layout makes it, once, and keeps the stretch's first character at the
 * stretch's top. */
LECTERN_MODULE_EXPORT int32_t wtg_set_offscreen_buffer(void* doc, int32_t view, uint32_t* pixels,
                                                       int32_t width, int32_t height);
LECTERN_MODULE_EXPORT int32_t wtg_set_dpi(void* doc, int32_t dpi);

/* The first character of the stretch: 0 only if the stretch starts at the text's
 * first row, else the first character of the first line that begins at or below the
 * stretch's top. */
LECTERN_MODULE_EXPORT int32_t wtg_get_top_left_character(void* doc, int32_t view, uint32_t* position);
/* The character after the last one of the stretch: equal to the character count only
 * if the stretch shows the text's last row. */
LECTERN_MODULE_EXPORT int32_t wtg_get_bottom_right_character(void* doc, int32_t view, uint32_t* position);
/* The number of buffer rows that hold text: the buffer's height while more text lies
 * below. */
LECTERN_MODULE_EXPORT int32_t wtg_get_vertical_last_used_pixel(void* doc, int32_t view, int32_t* rows);

/* Moves the stretch down by exactly `rows` pixel rows if any text lies below it, even
 * past the text's end, where rows are white. Else fails, with *scrolled 0. */
LECTERN_MODULE_EXPORT int32_t wtg_scroll_down(void* doc, int32_t view, int32_t rows, int32_t* scrolled);
/* Moves the stretch up by `rows` pixel rows, or to the text's start if that is nearer,
 * and stores the amount in *scrolled. */
LECTERN_MODULE_EXPORT int32_t wtg_scroll_up(void* doc, int32_t view, int32_t rows, int32_t* scrolled);
/* Makes the stretch start at the line of a character. Story 0 is the body text. */
LECTERN_MODULE_EXPORT int32_t wtg_jump_to_character(void* doc, int32_t story, uint32_t position);

/* Finds all hits of a text between the characters *from and *to, without regard to
 * case. Results are sorted by position and do not overlap. Notes and comments are not
 * searched. All hits inside the stretch are marked in the highlight colour until the
 * next find or wtg_stop_find. An empty text, or one that is not valid UTF-16, has no
 * hits. */
LECTERN_MODULE_EXPORT int32_t wtg_find(void* doc, const uint16_t* text, int32_t flags, uint32_t* from,
                                       uint32_t* to, const wtg_find_result** results, int32_t* count);
/* The hits inside the stretch, sorted by y, then x. */
LECTERN_MODULE_EXPORT int32_t wtg_get_found_regions(void* doc, int32_t view, int32_t* count,
                                                    const wtg_find_region** regions);
LECTERN_MODULE_EXPORT int32_t wtg_stop_find(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_set_highlight_color(void* doc, const uint8_t rgb[3]);

/* x and y are buffer pixels. Nothing lies under a point outside of the text. */
LECTERN_MODULE_EXPORT int32_t wtg_get_click_info(void* doc, int32_t x, int32_t y,
                                                 const wtg_click_info** info);
/* Paints a secondary document, such as a footnote, into the current buffer: `height`
 * rows from row 50 on, white where its text ends, laid out to the buffer's width at
 * the current dpi. */
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

/* A document has one selection, a continuous part of the text, which is marked in the
 * highlight colour. Points and sides are buffer pixels. Where there is no text, the
 * calls fail and change nothing. An area selects the text from its top left corner to
 * its bottom right corner. A copy has a line feed between paragraphs. It is empty when
 * nothing is selected. */
LECTERN_MODULE_EXPORT int32_t wtg_select_all(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_select_area(void* doc, int32_t view, int32_t left, int32_t top,
                                              int32_t right, int32_t bottom);
LECTERN_MODULE_EXPORT int32_t wtg_select_line(void* doc, int32_t view, int32_t x, int32_t y);
LECTERN_MODULE_EXPORT int32_t wtg_select_word(void* doc, int32_t view, int32_t x, int32_t y);
LECTERN_MODULE_EXPORT int32_t wtg_clear_selection(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_copy_selection(void* doc, uint16_t* text, int32_t capacity, int32_t first,
                                                 int32_t* length);

/* The rectangles inside the stretch in which wtg_get_click_info finds something. It
 * also accepts points that narrowly miss them. */
LECTERN_MODULE_EXPORT int32_t wtg_get_click_regions(void* doc, int32_t view, int32_t* count,
                                                    const module_rect** regions);
/* The rectangle of the paragraph at a point, in buffer pixels. It may reach beyond the
 * buffer. */
LECTERN_MODULE_EXPORT int32_t wtg_smart_zoom(void* doc, int32_t view, int32_t x, int32_t y,
                                             module_rect* area);
/* Shows the characters from start to before end: makes the stretch start at the first
 * one's line, unless the lines of both ends already begin inside the stretch. */
LECTERN_MODULE_EXPORT int32_t wtg_scroll_to_character_range(void* doc, int32_t view, uint32_t start,
                                                            uint32_t end);
/* The width of the layout and the height of the whole text, in pixels. */
LECTERN_MODULE_EXPORT int32_t wtg_page_layout_size(void* doc, int32_t view, int32_t* width, int32_t* height);
LECTERN_MODULE_EXPORT int32_t wtg_release_memory(void* doc);
LECTERN_MODULE_EXPORT int32_t wtg_get_version(uint16_t* text, int32_t capacity, int32_t* length);

#ifdef __cplusplus
}
#endif
#endif
