/* SPDX-License-Identifier: Apache-2.0 */
/* Result codes of our own modules. Any module may use others; 0 is success for
 * all. The open result travels to the client unchanged. */
#ifndef LECTERN_MODULES_MODULERESULTS_H
#define LECTERN_MODULES_MODULERESULTS_H

enum module_result {
    MODULE_OK = 0,
    MODULE_FAILED = 1,         /* something inside went wrong */
    MODULE_NOT_FOUND = 2,      /* no file of that name */
    MODULE_NOT_A_FILE = 3,     /* a directory, FIFO or device */
    MODULE_NOT_READABLE = 4,   /* no permission, or the read fails */
    MODULE_DAMAGED = 5,        /* the contents make no document */
    MODULE_WRONG_KIND = 6,     /* a document, but not of the kind its name says */
    MODULE_NEEDS_PASSWORD = 7, /* protected, and none was given */
    MODULE_WRONG_PASSWORD = 8, /* protected, and the one given does not open it */
    MODULE_TIMED_OUT = 9,      /* took longer than it may; the document is lost */
    MODULE_ENGINE_LOST = 10,   /* the engine process is gone, and the document with it */
    MODULE_NO_ENGINE = 11,     /* no engine process can be started */
    MODULE_BAD_ARGUMENT = 12,  /* a null, a size, an index that cannot be */
    MODULE_NOT_SUPPORTED = 13, /* this module does not do that */
    MODULE_NOTHING_THERE = 14, /* nothing to scroll to, to find, to select */
    MODULE_TOO_LARGE = 15,     /* more memory than a document may take */
    MODULE_REFUSED = 16,       /* the document does not allow it: a protected sheet, merged cells */
};

#endif
