/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Optional functions of the word-processing module, for views with touch manners. A
 * module may export any of them; docs/modules.md says what is done without each.
 *
 * ModuleTypes.h has the rules for results, documents, texts, arrays and threads. Points
 * and rectangles are buffer pixels, so a rectangle may reach beyond the buffer.
 */
#ifndef LECTERN_MODULES_TOUCHWORDFUNCTIONS_H
#define LECTERN_MODULES_TOUCHWORDFUNCTIONS_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A line of text, or the part of it in one cell of a table. */
typedef struct {
    const uint16_t* text; /* zero-terminated UTF-16; the module owns it */
    module_rect place;
} wtg_text_line;

/* A heading. */
typedef struct {
    const uint16_t* text; /* zero-terminated UTF-16; the module owns it */
    int32_t level;        /* 0 for the highest */
    uint32_t character;   /* position of its start, for wtg_jump_to_character */
} wtg_outline_entry;

LECTERN_RECORD_SIZE(wtg_text_line, 24, 20);
LECTERN_RECORD_SIZE(wtg_outline_entry, 16, 12);

/* The character nearest to a point on the line at that row, and the rectangle of this
 * line, as wide as the buffer. The line's top is where wtg_jump_to_character puts the
 * stretch's top for this character. A point outside of the text counts as the nearest
 * one inside. */
LECTERN_MODULE_EXPORT int32_t wtg_get_character_at(void* doc, int32_t x, int32_t y, uint32_t* character,
                                                   module_rect* line);

/* Where the stretch begins, and how much of the text is laid out: *top is the pixel row
 * of the whole text, from 0, at the stretch's top; *rows and *characters are those from
 * the text's start to where it is laid out. The text is known to its end when
 * *characters is the character count. Lays nothing out. */
LECTERN_MODULE_EXPORT int32_t wtg_get_text_size(void* doc, int64_t* top, int64_t* rows, uint32_t* characters);

/* The table or picture at a point: the columns that it takes, and the line at the point.
 * *most_dpi is the highest resolution at which the narrowest column of the table has
 * room for four letters, 0 for a picture. MODULE_NOTHING_THERE where neither is. */
LECTERN_MODULE_EXPORT int32_t wtg_get_tap_area(void* doc, int32_t x, int32_t y, module_rect* area,
                                               int32_t* most_dpi);

/* How later calls of wtg_find compare: bit 0 with regard to case, bit 1 whole words
 * only. 0 after the open. */
LECTERN_MODULE_EXPORT int32_t wtg_set_find_options(void* doc, int32_t flags);

/* Moves the start (end 0) or the end (end 1) of the selection to a point. At least one
 * character stays selected. MODULE_NOTHING_THERE without a selection. */
LECTERN_MODULE_EXPORT int32_t wtg_move_selection_end(void* doc, int32_t end, int32_t x, int32_t y);

/* The selection inside the stretch, one rectangle for each line, from top to bottom. */
LECTERN_MODULE_EXPORT int32_t wtg_get_selection_regions(void* doc, int32_t* count,
                                                        const module_rect** rectangles);

/* The lines with a part in the buffer rows from `top` to before `bottom`, in reading
 * order: the cells of a table's row follow each other. */
LECTERN_MODULE_EXPORT int32_t wtg_get_text_lines(void* doc, int32_t top, int32_t bottom, int32_t* count,
                                                 const wtg_text_line** lines);

/* The headings of the whole text, in its order. */
LECTERN_MODULE_EXPORT int32_t wtg_get_outline(void* doc, int32_t* count, const wtg_outline_entry** entries);

#ifdef __cplusplus
}
#endif
#endif
