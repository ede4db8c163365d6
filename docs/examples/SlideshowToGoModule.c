/* SPDX-License-Identifier: Apache-2.0 */
/* A presentation module that shows every file as one blank slide of 4 by 3. */
#include "modules/SlideshowToGoModule.h"

#include "modules/ModuleResults.h"

#include <stdlib.h>

/* An open document. A real module keeps its parsed file here. */
typedef struct {
    uint32_t paper; /* 0xAARRGGBB */
} document;

int32_t sstg_open_file(const uint16_t* path, const uint16_t* font_dir, const uint16_t* temp_dir, void** doc) {
    (void)font_dir;
    (void)temp_dir;
    if (doc == NULL) {
        return MODULE_BAD_ARGUMENT;
    }
    *doc = NULL;
    if (path == NULL || path[0] == 0) {
        return MODULE_NOT_FOUND;
    }
    document* opened = malloc(sizeof *opened);
    if (opened == NULL) {
        return MODULE_TOO_LARGE;
    }
    opened->paper = 0xFFFFFFF0;
    *doc = opened;
    return MODULE_OK;
}

int32_t sstg_close_file(void** doc) {
    if (doc == NULL || *doc == NULL) {
        return MODULE_BAD_ARGUMENT;
    }
    free(*doc);
    *doc = NULL;
    return MODULE_OK;
}

int32_t sstg_get_slide_count(void* doc, int32_t* count) {
    if (doc == NULL || count == NULL) {
        return MODULE_BAD_ARGUMENT;
    }
    *count = 1;
    return MODULE_OK;
}

int32_t sstg_get_slide_dimensions(void* doc, int32_t slide, int32_t* width, int32_t* height) {
    if (doc == NULL || slide != 0 || width == NULL || height == NULL) {
        return MODULE_BAD_ARGUMENT;
    }
    *width = 720; /* ten inches */
    *height = 540;
    return MODULE_OK;
}

int32_t sstg_render_slide(void* doc, int32_t slide, int32_t flags, uint32_t* pixels, int32_t width,
                          int32_t height) {
    (void)flags;
    if (doc == NULL || slide != 0 || pixels == NULL || width < 1 || height < 1) {
        return MODULE_BAD_ARGUMENT;
    }
    const document* shown = doc;
    for (int64_t i = 0; i < (int64_t)width * height; ++i) {
        pixels[i] = shown->paper;
    }
    return MODULE_OK;
}

/* A search finds nothing: counts become 0 and arrays null. */
int32_t sstg_find(void* doc, const uint16_t* text, int32_t first_slide, int32_t last_slide,
                  const sstg_find_info** infos, int32_t* count) {
    (void)text;
    if (infos == NULL || count == NULL) {
        return MODULE_BAD_ARGUMENT;
    }
    *infos = NULL;
    *count = 0;
    return doc == NULL || first_slide != 0 || last_slide != 0 ? MODULE_BAD_ARGUMENT : MODULE_OK;
}

int32_t sstg_get_found_regions(void* doc, int32_t* count, const sstg_find_region** regions) {
    if (count == NULL || regions == NULL) {
        return MODULE_BAD_ARGUMENT;
    }
    *regions = NULL;
    *count = 0;
    return doc == NULL ? MODULE_BAD_ARGUMENT : MODULE_OK;
}

/* The functions that this module does not support. It must export them all the same. */
#define REFUSED(name, ...)                                                                                   \
    int32_t name(__VA_ARGS__) {                                                                              \
        return MODULE_NOT_SUPPORTED;                                                                         \
    }
#pragma GCC diagnostic ignored "-Wunused-parameter"

REFUSED(sstg_stop_find, void* doc)
REFUSED(sstg_set_highlight_color, void* doc, const uint8_t rgb[3])
REFUSED(sstg_get_slide_title, void* doc, int32_t slide, uint16_t* text, int32_t capacity, int32_t* length)
REFUSED(sstg_slide_has_note, void* doc, int32_t slide, uint8_t* flag)
REFUSED(sstg_get_slide_note, void* doc, int32_t slide, uint16_t* text, int32_t capacity, int32_t first,
        int32_t* length)
REFUSED(sstg_get_document_name, void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length)
REFUSED(sstg_get_document_author, void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length)
REFUSED(sstg_get_document_description, void* doc, uint16_t* text, int32_t capacity_bytes, int32_t* length)
REFUSED(sstg_get_document_creation_date, void* doc, time_t* time)
REFUSED(sstg_get_document_last_saved_date, void* doc, time_t* time)
REFUSED(sstg_get_found_note_offsets, void* doc, int32_t slide, int32_t* count, const int32_t** offsets)
REFUSED(sstg_get_slide_outline, void* doc, int32_t slide, int32_t* count, sstg_outline_item** items)
REFUSED(sstg_free_slide_outline, void* doc, sstg_outline_item* items)
REFUSED(sstg_get_version, uint16_t* text, int32_t capacity, int32_t* length)
REFUSED(sstg_release_memory, void* doc)
