/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Functions that a presentation module may export besides those of its table. Touch views
 * look each one up by its name and do without it; docs/modules.md tells how. The rules of
 * modules/ModuleTypes.h hold.
 *
 * Points and rectangles are in pixels of a picture of the slide with the given width and
 * height, each at least 1. None of these functions changes what sstg_get_found_regions
 * returns.
 */
#ifndef LECTERN_MODULES_TOUCHSLIDEFUNCTIONS_H
#define LECTERN_MODULES_TOUCHSLIDEFUNCTIONS_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A line of text on a slide. */
typedef struct {
    const uint16_t* text; /* `length` UTF-16 units and a terminator */
    /* The place of each unit; empty for one that is not drawn, as at a line's end. */
    const module_rect* places;
    int32_t length;
    /* The lines of a paragraph follow each other and have the same number. */
    int32_t paragraph;
} sstg_text_line;

LECTERN_RECORD_SIZE(sstg_text_line, 24, 16);

/* Flags for later finds; none are set at the open. */
enum sstg_find_flag {
    SSTG_FIND_MATCH_CASE = 1,
    SSTG_FIND_WHOLE_WORDS = 2 /* no letter, digit or underscore beside a hit */
};
LECTERN_MODULE_EXPORT int32_t sstg_set_find_options(void* doc, int32_t flags);

/* The link at a point: of a text, else of a shape. Of a link inside the presentation
 * *target is the slide, and the address is empty. Of all others *target is -1, and the
 * address is UTF-16 as in rule 4. Fails if there is no link. */
LECTERN_MODULE_EXPORT int32_t sstg_get_link(void* doc, int32_t slide, int32_t x, int32_t y, int32_t width,
                                            int32_t height, int32_t* target, uint16_t* address,
                                            int32_t capacity, int32_t* length);

/* The rectangle around the topmost picture, table or chart at a point. It may reach beyond
 * the slide. Fails if there is none. */
LECTERN_MODULE_EXPORT int32_t sstg_get_shape_area(void* doc, int32_t slide, int32_t x, int32_t y,
                                                  int32_t width, int32_t height, module_rect* area);

/* All lines of text on a slide, those of its master and its footers included, in the
 * order in which they are drawn. */
LECTERN_MODULE_EXPORT int32_t sstg_get_text_lines(void* doc, int32_t slide, int32_t width, int32_t height,
                                                  int32_t* count, const sstg_text_line** lines);

#ifdef __cplusplus
}
#endif

#endif
