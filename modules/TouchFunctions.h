/* SPDX-License-Identifier: Apache-2.0 */
/*
 * Functions that a rendering module may export besides those of its table. Touch views
 * call them. A module need not have any: the service looks each one up by its name and
 * does without it; docs/modules.md tells how. The rules of modules/ModuleTypes.h hold.
 */
#ifndef LECTERN_MODULES_TOUCHFUNCTIONS_H
#define LECTERN_MODULES_TOUCHFUNCTIONS_H

#include "modules/ModuleTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* How to open a file. The texts are UTF-16 with a terminator; all pointers are the
 * caller's and valid during the call. */
typedef struct {
    const uint16_t* path;
    const uint16_t* password; /* null or empty: none */
    const uint16_t* font_dir;
    const uint16_t* temp_dir;
    /* A file descriptor that becomes readable when the caller gives the open up; the call
     * then returns a failure (Lectern's: MODULE_CANCELLED) within about a tenth of a
     * second, and has left nothing. -1: the open is never given up. */
    int32_t cancel_descriptor;
    /* Null, or called on the calling thread with how much is done: 0 to 100, not falling,
     * and not more often than ten times a second. Between the calls of
     * lectern_module_set_wait_calls. A module that knows of no progress never calls it. */
    void (*progress)(void* data, int32_t percent);
    void* data; /* for progress */
} lectern_open_request;

LECTERN_RECORD_SIZE(lectern_open_request, 56, 28);

/* Open a file of any name: its contents decide how it is read. They open whatever the
 * module can read as its kind of document: templates as documents, a text or a list of
 * values from a text file. Otherwise as the open functions of the tables, whose close
 * functions close the document. */
LECTERN_MODULE_EXPORT int32_t wtg_open_any_file(const lectern_open_request* request, void** doc);
LECTERN_MODULE_EXPORT int32_t stg_open_any_file(const lectern_open_request* request, void** doc);
LECTERN_MODULE_EXPORT int32_t sstg_open_any_file(const lectern_open_request* request, void** doc);

/* What an export writes. */
enum lectern_export_format {
    LECTERN_EXPORT_PDF = 0,
    LECTERN_EXPORT_TEXT = 1 /* UTF-8, without a byte order mark */
};

/* Write the document's file, as it was opened, in another format to an open file, from its
 * present position on. Zoom, search, selection and changes of a sheet make no difference.
 * After a failure the file may hold a part. The descriptor stays the caller's. */
LECTERN_MODULE_EXPORT int32_t wtg_export(void* doc, int32_t format, int32_t descriptor);
LECTERN_MODULE_EXPORT int32_t stg_export(void* doc, int32_t format, int32_t descriptor);
LECTERN_MODULE_EXPORT int32_t sstg_export(void* doc, int32_t format, int32_t descriptor);

#ifdef __cplusplus
}
#endif

#endif
