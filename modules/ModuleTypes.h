/* SPDX-License-Identifier: Apache-2.0 */
/*
 * The calling rules and the records that the three rendering modules share.
 *
 * A module is a shared object that exports C functions. Every function of every
 * module follows these rules:
 *
 *  1. A function returns an int32_t; 0 means success. After a failure the
 *     out-parameters are unchanged, with these exceptions: counts and arrays of
 *     hits become 0 and null, and the amounts of the two scroll functions
 *     become 0.
 *  2. A document is a void*. Open receives the address of the handle and sets
 *     it to null on failure. Close receives the address and sets it to null.
 *     With a null document every function fails and changes nothing.
 *  3. `view` is the index of a view of the document. Only 0 exists.
 *  4. Text is zero-terminated UTF-16. A capacity includes the terminator. It
 *     counts bytes for a document's name, author and description, and UTF-16
 *     units everywhere else. The reported length is that of the whole text in
 *     units without the terminator, even when less of it fits. The module
 *     writes as much as fits and terminates it. With a null buffer and a
 *     capacity of 0 it only reports the length. Callers provide capacity * 2
 *     bytes, so both ways of counting are safe.
 *  5. `first` of comment, note and copy functions is the first unit to read.
 *  6. Rectangles and points are in pixels at the current dpi.
 *  7. The module owns the arrays that it returns. They stay valid until the
 *     next call of the same function for that document, until stop_find (hits)
 *     or until close, even if an engine process behind the module dies.
 *  8. Times are seconds since 1970 in UTC; 0 means unknown. Colours are three
 *     bytes, red, green and blue, which the module copies during the call. They
 *     apply to later finds and selections.
 *  9. Any thread may call a function, but only one at a time for a document.
 *     Modules write to pixel buffers only during a call. After a module has
 *     refused a buffer it has none: it writes neither to that one nor to the
 *     one before.
 * 10. A module refuses null pixels, sizes below 1 and indices out of range.
 */
#ifndef LECTERN_MODULES_MODULETYPES_H
#define LECTERN_MODULES_MODULETYPES_H

#include <assert.h>
#include <stdint.h>
#include <time.h>

/* Marks the functions that a module exports. Everything else in it is hidden. */
#define LECTERN_MODULE_EXPORT __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* Optional: a module, or a library that it links to, may export this function.
 * The service calls it when it is about to end: from any thread, also while other
 * functions run, any number of times. From then on every call, running or later,
 * must return within about 2 seconds, if need be with a failure. The function
 * closes no document. */
LECTERN_MODULE_EXPORT void lectern_module_stop_soon(void);

/* Optional: a module, or a library that it links to, may export this function. The
 * service calls it when it starts, before it can be called itself. The module may begin
 * in the background whatever makes the first open faster, and returns at once. It must
 * stay loaded then. The folder is that of later opens. Modules that share a library are
 * called once each. */
LECTERN_MODULE_EXPORT void lectern_module_prepare(const uint16_t* temporary_folder);

/* Optional: a module, or a library that it links to, may export this function. The
 * service calls it once, when it starts, and the module must stay loaded then. From then
 * on the module calls begin() before a function waits for something that can take long,
 * such as another process, and end() after it, on the same thread. Between them it leaves
 * the caller's buffers alone, and the service may call functions for other documents on
 * other threads. Pairs do not nest. end() can wait for a few milliseconds. Modules that
 * share a library are called once each, with the same functions. */
LECTERN_MODULE_EXPORT void lectern_module_set_wait_calls(void (*begin)(void), void (*end)(void));

/* Optional: a module may export this function. The service calls it after functions of
 * an open document. Returns 0 as long as the document works, or will at the next call;
 * later the code of what has put an end to it for ever, and then always that. The
 * service tells the client this code once. Returns at once. */
LECTERN_MODULE_EXPORT int32_t lectern_module_lost(void* doc);

#ifdef __cplusplus
}
#endif

/* A rectangle in pixels. x and y are its top left corner. */
typedef struct {
    int32_t x, y, width, height;
} module_rect;

/* Others compile code against these records, so their sizes, with pointers of eight
 * bytes and of four, are part of the interface. */
#define LECTERN_RECORD_SIZE(type, with_8, with_4)                                                            \
    static_assert(sizeof(type) == (with_4) + (sizeof(void*) == 8) * ((with_8) - (with_4)), "size of " #type)

LECTERN_RECORD_SIZE(module_rect, 16, 16);

#endif
