/* SPDX-License-Identifier: Apache-2.0 */
/* The result codes of Lectern's own modules, and how every part of Lectern treats
 * failure; docs/results.md has the whole contract with all its forms.
 *
 * Codes. 0 always means success. Modules of others may use other codes, so code
 * outside of engine/ compares with 0 only. The client receives the result of an
 * open unchanged: no one between engine and client translates a code.
 *
 * Failure is a value: a code, false, null, an empty optional, a Result. Exceptions
 * of libraries end at the border where they come in; none leaves a module function,
 * a handler or a thread.
 *
 * Who returns a failure leaves its out-parameters alone and prints nothing, except
 * the reason that a plain false or null cannot hold. Who ends a failure's way tells
 * it, once: in a reply, in a record, on standard error or in the log.
 *
 * Callers look at every result, or a comment there says why it does not matter. */
#ifndef LECTERN_MODULES_MODULERESULTS_H
#define LECTERN_MODULES_MODULERESULTS_H

enum module_result {
    MODULE_OK = 0,
    MODULE_FAILED = 1,         /* an internal error */
    MODULE_NOT_FOUND = 2,      /* no file of that name */
    MODULE_NOT_A_FILE = 3,     /* a directory, FIFO or device */
    MODULE_NOT_READABLE = 4,   /* no permission, or reading failed */
    MODULE_DAMAGED = 5,        /* the contents are not a document */
    MODULE_WRONG_KIND = 6,     /* a document of another kind than its extension says */
    MODULE_NEEDS_PASSWORD = 7, /* protected, and no password was given */
    MODULE_WRONG_PASSWORD = 8, /* protected, and the password is wrong */
    MODULE_TIMED_OUT = 9,      /* exceeded its time limit; the document is lost */
    MODULE_ENGINE_LOST = 10,   /* the engine process has ended; the document is lost */
    MODULE_NO_ENGINE = 11,     /* no engine process could be started */
    MODULE_BAD_ARGUMENT = 12,  /* a null pointer, or a size or index out of range */
    MODULE_NOT_SUPPORTED = 13, /* this module does not support the call */
    MODULE_NOTHING_THERE = 14, /* nothing to scroll to, to find or to select */
    MODULE_TOO_LARGE = 15,     /* needs more memory than a document may use */
    MODULE_REFUSED = 16,       /* the document does not allow it: protected sheet, merged cells */
    MODULE_CHANGED = 17,       /* the file has changed since it was opened; the document is lost */
    MODULE_TOO_COMPLEX = 18,   /* its layout would take too long, although it is small */
    MODULE_CANCELLED = 19,     /* the caller gave the open up */
};

#endif
