/* SPDX-License-Identifier: Apache-2.0 */
/*
 * The presentation module, "SlideshowToGoModule.so": 22 functions.
 *
 * Slides count from 0. ModuleTypes.h has the rules for results, documents, texts,
 * arrays and threads.
 */
#ifndef LECTERN_MODULES_SLIDESHOWTOGOMODULE_H
#define LECTERN_MODULES_SLIDESHOWTOGOMODULE_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The numbers of hits on one slide and in its notes. */
typedef struct {
    int32_t slide, slide_hits, note_hits;
} sstg_find_info;

/* A hit on the slide that was rendered last: one rectangle, in pixels of that picture,
 * for each line that it spans. The module owns the rectangles. */
typedef struct {
    const module_rect* rectangles;
    uint32_t rectangle_count;
} sstg_find_region;

/* A line of a slide's outline and its depth, from 0. */
typedef struct {
    const uint16_t* text;
    int32_t level;
} sstg_outline_item;

LECTERN_RECORD_SIZE(sstg_find_info, 12, 12);
LECTERN_RECORD_SIZE(sstg_find_region, 16, 8);
LECTERN_RECORD_SIZE(sstg_outline_item, 16, 8);

/* Opens a regular file. The module may create temporary files in `temp_dir`. On success
 * *doc is the new document. */
LECTERN_MODULE_EXPORT int32_t sstg_open_file(const uint16_t* path, const uint16_t* font_dir,
                                             const uint16_t* temp_dir, void** doc);
LECTERN_MODULE_EXPORT int32_t sstg_close_file(void** doc);

/* The slides. Dimensions are in 1/72 inch. Capacities of texts are UTF-16 units. */
LECTERN_MODULE_EXPORT int32_t sstg_get_slide_count(void* doc, int32_t* count);
LECTERN_MODULE_EXPORT int32_t sstg_get_slide_dimensions(void* doc, int32_t slide, int32_t* width,
                                                        int32_t* height);
LECTERN_MODULE_EXPORT int32_t sstg_get_slide_title(void* doc, int32_t slide, uint16_t* text, int32_t capacity,
                                                   int32_t* length);
LECTERN_MODULE_EXPORT int32_t sstg_slide_has_note(void* doc, int32_t slide, uint8_t* flag);
LECTERN_MODULE_EXPORT int32_t sstg_get_slide_note(void* doc, int32_t slide, uint16_t* text, int32_t capacity,
                                                  int32_t first, int32_t* length);

/* Paints a whole slide into width * height pixels 0xAARRGGBB, row by row, stretched to
 * that size. The module uses `pixels` only during the call. */
LECTERN_MODULE_EXPORT int32_t sstg_render_slide(void* doc, int32_t slide, int32_t flags, uint32_t* pixels,
                                                int32_t width, int32_t height);

/* Search. sstg_find returns the slides with hits among those from first_slide to
 * last_slide. sstg_get_found_regions returns the hits on the slide, and for the size,
 * that sstg_render_slide painted last. */
LECTERN_MODULE_EXPORT int32_t sstg_set_highlight_color(void* doc, const uint8_t rgb[3]);
LECTERN_MODULE_EXPORT int32_t sstg_find(void* doc, const uint16_t* text, int32_t first_slide,
                                        int32_t last_slide, const sstg_find_info** infos, int32_t* count);
LECTERN_MODULE_EXPORT int32_t sstg_get_found_regions(void* doc, int32_t* count,
                                                     const sstg_find_region** regions);
LECTERN_MODULE_EXPORT int32_t sstg_stop_find(void* doc);

LECTERN_MODULE_EXPORT int32_t sstg_get_document_name(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                     int32_t* length);
LECTERN_MODULE_EXPORT int32_t sstg_get_document_author(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                       int32_t* length);
LECTERN_MODULE_EXPORT int32_t sstg_get_document_description(void* doc, uint16_t* text, int32_t capacity_bytes,
                                                            int32_t* length);
LECTERN_MODULE_EXPORT int32_t sstg_get_document_creation_date(void* doc, time_t* time);
LECTERN_MODULE_EXPORT int32_t sstg_get_document_last_saved_date(void* doc, time_t* time);

/* Functions that no view calls. */
LECTERN_MODULE_EXPORT int32_t sstg_get_found_note_offsets(void* doc, int32_t slide, int32_t* count,
                                                          const int32_t** offsets);
LECTERN_MODULE_EXPORT int32_t sstg_get_slide_outline(void* doc, int32_t slide, int32_t* count,
                                                     sstg_outline_item** items);
LECTERN_MODULE_EXPORT int32_t sstg_free_slide_outline(void* doc, sstg_outline_item* items);
LECTERN_MODULE_EXPORT int32_t sstg_get_version(uint16_t* text, int32_t capacity, int32_t* length);
LECTERN_MODULE_EXPORT int32_t sstg_release_memory(void* doc);

#ifdef __cplusplus
}
#endif
#endif
