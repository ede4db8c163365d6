/* SPDX-License-Identifier: Apache-2.0 */
/*
 * What the three rendering modules share: the calling rules and the records.
 *
 * A module is a shared object with plain C functions. These rules hold for
 * every one of them, whoever made it:
 *
 *  1. Results are int32_t and 0 is success. After any other result the
 *     out-parameters are as they were, but for found counts and arrays (0 and
 *     null) and the amounts of the two scroll calls (0).
 *  2. A document is a void*. Open takes the address of the handle and leaves
 *     null there when it fails; close takes the address and sets null. Every
 *     function survives a null document: non-zero, nothing touched.
 *  3. `view` is the index of a view of the document; only 0 exists.
 *  4. Text is zero-terminated UTF-16. Capacities are bytes for the document's
 *     name, author and description, and UTF-16 units everywhere else, always
 *     with the terminator. The length reported is that of the whole text in
 *     units without the terminator, also when less of it fits; what fits is
 *     written and terminated. A null buffer with capacity 0 only measures.
 *     Callers provide capacity * 2 bytes, so reading it either way is safe.
 *  5. `first` of comment, note and copy calls is the first unit to read.
 *  6. Rectangles and points are in pixels at the current dpi.
 *  7. Arrays that a module hands out stay its own. They are valid until the
 *     next call of the same function on that document, until its stop_find
 *     (found arrays) or its close, also when what stands behind the module has
 *     died meanwhile.
 *  8. Times are seconds since 1970 in UTC, 0 when unset. Colours are three
 *     bytes red, green, blue, copied during the call; they count for later
 *     finds and selections.
 *  9. Any thread may call, one call at a time per document. Modules write to
 *     pixel buffers only during a call. One that is refused leaves the module
 *     with none: it writes neither to that nor to the one before.
 * 10. Null pixels and sizes below 1 are refused, and so are indices out of
 *     range: a module never follows them.
 */
#ifndef LECTERN_MODULES_MODULETYPES_H
#define LECTERN_MODULES_MODULETYPES_H

#include <assert.h>
#include <stdint.h>
#include <time.h>

/* Functions that a module exports; everything else in it stays hidden. */
#define LECTERN_MODULE_EXPORT __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* Optional: a module may export this, or link to a library that does. The
 * service looks it up when it is about to end and calls it, from any thread and
 * also while other functions run, any number of times. Calls in progress then
 * return within about 2 seconds, with a result other than 0 where they must, and
 * so do all later ones. Nothing is closed by it. */
LECTERN_MODULE_EXPORT void lectern_module_stop_soon(void);

#ifdef __cplusplus
}
#endif

/* x and y are the top left corner; all in pixels. */
typedef struct {
    int32_t x, y, width, height;
} module_rect;

/* The records are shared with code that others compiled: their sizes, with
 * pointers of eight bytes and of four, are part of the interface. */
#define LECTERN_RECORD_SIZE(type, with_8, with_4)                                                            \
    static_assert(sizeof(type) == (with_4) + (sizeof(void*) == 8) * ((with_8) - (with_4)), "size of " #type)

LECTERN_RECORD_SIZE(module_rect, 16, 16);

#endif
