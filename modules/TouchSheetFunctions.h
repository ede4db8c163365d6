/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Functions that "SheetToGoModule.so" may export besides those of
 * SheetToGoModule.h, whose rules apply. Views with touch manners look each up by
 * its name and do without it if it is absent.
 */
#ifndef LECTERN_MODULES_TOUCHSHEETFUNCTIONS_H
#define LECTERN_MODULES_TOUCHSHEETFUNCTIONS_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A cell, or a merged area. */
typedef struct {
    int32_t column, row;     /* the first cell of a merged area, from 0 */
    module_rect place;       /* in document pixels; a side of a hidden cell is 0 */
    const uint16_t* text;    /* as the cell shows it; never null */
    const uint16_t* formula; /* "=A1*2", in English; empty without one; never null */
} stg_cell;

LECTERN_RECORD_SIZE(stg_cell, 40, 32);

/* A cell by its column and row. Cells beyond the sheet's extent are refused with
 * MODULE_BAD_ARGUMENT. The texts belong to the module and stay valid until the next
 * call of the same function for that document. */
LECTERN_MODULE_EXPORT int32_t stg_get_cell(void* doc, int32_t sheet, int32_t column, int32_t row,
                                           stg_cell* cell);

/* The cells with a text that overlap a rectangle of document pixels, row by row from the
 * left: at most the first 4096 of them. A merged area comes with its first cell in the
 * rectangle. Width and height are at least 1. */
LECTERN_MODULE_EXPORT int32_t stg_get_cells(void* doc, int32_t sheet, int32_t x, int32_t y, int32_t width,
                                            int32_t height, const stg_cell** cells, int32_t* count);

/* What a double tap at a document pixel shows as wide as the screen: a drawing, else the
 * merged area or the cell at the pixel. */
LECTERN_MODULE_EXPORT int32_t stg_get_tap_area(void* doc, int32_t sheet, int32_t x, int32_t y,
                                               module_rect* area);

/* How later finds compare: bit 0 regards case, bit 1 finds whole words only. 0 after the
 * open. Other bits are refused. */
LECTERN_MODULE_EXPORT int32_t stg_set_find_options(void* doc, int32_t flags);

#ifdef __cplusplus
}
#endif
#endif
